#include "Amrkest.h"

#include "AnalysisFiles.h"
#include "EngineProgram.h"
#include "OptionWords.h"
#include "ResultTable.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cmath>
#include <complex>

using namespace suite;

namespace {

constexpr int usualIterations = 5;

// Of runkest, which may have another component to end first.
constexpr StopTimes runStopTimes = {1500, 1700};

// The shares of the whole run: pre-processing, the iterations, the final solution.
constexpr int preparedPercentage = 5;
constexpr int refinedPercentage = 55;
constexpr int solvedPercentage = 95;

constexpr int deckFile = 0;
constexpr int tableFile = 1;
constexpr int firstSolvedFile = 2;

constexpr qint64 copyStep = 1 << 20;

QString finalFolder()
{
    return QStringLiteral("final");
}

QString percent(double part)
{
    return QString::number(100 * part, 'g', 3);
}

// What runs leave behind, half written files of killed ones among it.
QRegularExpression filesOf(const QString& stem)
{
    return QRegularExpression(QStringLiteral("\\A%1\\.(nec|out|csv)(\\.[A-Za-z]{6})?\\z")
                                  .arg(QRegularExpression::escape(stem)));
}

double changeBetween(const Impedance& before, const Impedance& now)
{
    const std::complex<double> old(before.resistance, before.reactance);
    const std::complex<double> current(now.resistance, now.reactance);
    return std::abs(current) > 0 ? std::abs(current - old) / std::abs(current) : 0;
}

} // namespace

Amrkest::Amrkest() : ComponentProgram(QStringLiteral("amrkest"), OptionGroup::Amrkest)
{}

Amrkest::~Amrkest()
{
    if (m_folder && m_folder->isOpen() && !has("--keep-files")) {
        removeWork();
    }
}

void Amrkest::work()
{
    if (!prepare()) {
        finish();
        return;
    }
    if (commandLine().has(OptionGroup::Kest, QStringLiteral("--check-only"))) {
        printTotal(100);
        finish();
        return;
    }
    if (!openFolder()) {
        finish();
        return;
    }
    printer().printText(QStringLiteral("Refining at %1 MHz until the impedance changes by less "
                                       "than %2 %, at most %3 iterations")
                            .arg(QString::number(m_frequency, 'g', 10), percent(threshold()))
                            .arg(mostIterations()));
    printTotal(preparedPercentage);
    startIteration();
}

bool Amrkest::prepare()
{
    const Model& model = component().preprocessor().model();
    m_refinement = std::make_unique<SegmentRefinement>(model);
    const FindingList problems = m_refinement->problems();
    component().findingPrinter().print(problems);
    const EngineProgram engine;
    if (problems.hasErrors() || model.frequencies.count == 0) {
        failAsTold();
        return false;
    }
    if (engine.path().isEmpty()) {
        fail(FindingKind::EngineMissing, engine.error());
        return false;
    }
    m_frequency = (model.frequencies.lowest() + model.frequencies.highest()) / 2;
    if (has("--frequency")) {
        m_frequency =
            commandLine().value(OptionGroup::Amrkest, QStringLiteral("--frequency")).toDouble();
    }
    return true;
}

bool Amrkest::openFolder()
{
    const ModelFile& model = component().modelFile();
    m_stemPath = model.pathWithEnding(QString());
    m_folder = std::make_unique<WorkFolder>(model.resultPath(QStringLiteral("amrkest")),
                                            QStringLiteral("amrkest"));
    if (!m_folder->open()) {
        fail(FindingKind::WorkFolderRefused, m_folder->error());
        return false;
    }
    removeWork();
    m_resultPaths = QStringList{model.pathWithEnding(QStringLiteral("_amr.nec")),
                                model.pathWithEnding(QStringLiteral(".amr.csv"))};
    if (!has("--skip-final-solve")) {
        m_resultPaths += {model.pathWithEnding(QStringLiteral("_amr.out")),
                          model.pathWithEnding(QStringLiteral("_amr.csv"))};
    }
    if (!m_results.open(m_resultPaths)) {
        fail(FindingKind::ResultNotWritten, m_results.error());
        return false;
    }
    return true;
}

void Amrkest::startIteration()
{
    const int number = m_iterations.size() + 1;
    const int factor = nextFactor();
    printer().printText(QStringLiteral("Iteration %1, %2 segments")
                            .arg(number)
                            .arg(m_refinement->segmentCount(factor)));
    const QString folder = iterationFolder(number);
    const QString name = stem() + QStringLiteral(".nec");
    if (!writeDeck(folder, name, m_refinement->deck(factor, m_frequency))) {
        finish();
        return;
    }
    startRunkest(m_folder->path(folder + QLatin1Char('/') + name), &Amrkest::endIteration);
}

bool Amrkest::writeDeck(const QString& folder, const QString& name, const QByteArray& deck)
{
    if (!m_folder->makeFolder(folder)) {
        fail(FindingKind::WorkFolderRefused, m_folder->error());
        return false;
    }
    ResultFiles file;
    if (!file.open({m_folder->path(folder + QLatin1Char('/') + name)}) || !file.write(0, deck) ||
        !file.commit()) {
        fail(FindingKind::ResultNotWritten, file.error());
        return false;
    }
    return true;
}

void Amrkest::startRunkest(const QString& model, void (Amrkest::*ended)())
{
    const CommandLine& line = commandLine();
    QStringList arguments = QStringList(model) + optionWords(line, OptionGroup::Runkest);
    const QStringList solver = optionWords(line, OptionGroup::Kest);
    if (!solver.isEmpty()) {
        arguments += QStringLiteral("--kest-options");
        arguments += solver;
    }
    if (line.has(OptionGroup::Prekest, QStringLiteral("--ignore-errors"))) {
        arguments += {QStringLiteral("--prekest-options"), QStringLiteral("--ignore-errors")};
    }
    if (m_stage) {
        m_stage.release()->deleteLater();
    }
    m_stage = std::make_unique<ComponentStage>(runStopTimes);
    connect(m_stage.get(), &ComponentStage::ended, this, ended);
    if (ended == &Amrkest::endFinalSolve) {
        connect(m_stage.get(), &ComponentStage::printed, this, &Amrkest::passOn);
    }
    m_stage->start(QStringLiteral("runkest"), arguments);
}

void Amrkest::endIteration()
{
    if (!isGood() || !readIteration()) {
        finish();
        return;
    }
    printIteration();
    const int share = refinedPercentage - preparedPercentage;
    printTotal(preparedPercentage + share * m_iterations.size() / mostIterations());
    judge();
}

bool Amrkest::readIteration()
{
    const int number = m_iterations.size() + 1;
    const QString start = QStringLiteral("iteration %1 failed, ").arg(number);
    if (!m_stage->isSuccess()) {
        fail(FindingKind::IterationFailed, start + m_stage->error());
        return false;
    }
    const QString name = iterationFolder(number) + QLatin1Char('/') + stem();
    const ResultTable result = ResultTable::read(m_folder->path(name + QStringLiteral(".csv")));
    if (!result.error.isEmpty() || !result.points.first().impedance) {
        fail(FindingKind::IterationFailed,
             start +
                 (result.error.isEmpty() ? QStringLiteral("it gave no impedance") : result.error));
        return false;
    }
    Iteration iteration;
    iteration.factor = nextFactor();
    iteration.impedance = *result.points.first().impedance;
    if (!m_iterations.isEmpty()) {
        iteration.change = changeBetween(m_iterations.last().impedance, iteration.impedance);
    }
    m_iterations.append(iteration);
    return true;
}

void Amrkest::printIteration()
{
    const Iteration& last = m_iterations.last();
    QString text = QStringLiteral("%1 ohm resistance, %2 ohm reactance")
                       .arg(QString::number(last.impedance.resistance, 'f', 3),
                            QString::number(last.impedance.reactance, 'f', 3));
    if (last.change) {
        text += QStringLiteral(", change %1 %").arg(percent(*last.change));
    }
    printer().printText(text);
}

// Goes on, unless there is a reason not to.
void Amrkest::judge()
{
    const Iteration& last = m_iterations.last();
    const QString count = QString::number(m_iterations.size());
    const QString change =
        last.change ? QStringLiteral("the last change was %1 % and the threshold is %2 %")
                          .arg(percent(*last.change), percent(threshold()))
                    : QStringLiteral("one iteration has nothing to be compared with");
    const QString obstacle = m_refinement->obstacle(nextFactor());
    if (last.change && *last.change < threshold()) {
        m_conclusion.add(FindingKind::RefinementConverged, 0,
                         {count, QString::number(m_refinement->segmentCount(last.factor)),
                          percent(*last.change)});
    } else if (m_iterations.size() >= mostIterations()) {
        m_conclusion.add(FindingKind::RefinementNotConverged, 0, {count, change});
    } else if (!obstacle.isEmpty()) {
        m_conclusion.add(FindingKind::RefinementLimit, 0, {obstacle});
    } else {
        startIteration();
        return;
    }
    endRefinement();
}

void Amrkest::endRefinement()
{
    printTotal(refinedPercentage);
    if (has("--skip-final-solve")) {
        writeResults();
        finish();
        return;
    }
    startFinalSolve();
}

// The refined model is solved apart from the results, which then all come at once.
void Amrkest::startFinalSolve()
{
    const QString name = stem() + QStringLiteral("_amr.nec");
    printer().printText(QStringLiteral("Solving the refined model"));
    if (!writeDeck(finalFolder(), name, m_refinement->deck(m_iterations.last().factor))) {
        finish();
        return;
    }
    startRunkest(m_folder->path(finalFolder() + QLatin1Char('/') + name), &Amrkest::endFinalSolve);
}

// The files are told of when they are in their place, and errors in this program's own words.
void Amrkest::passOn(const MarkerLine& line)
{
    if (line.marker == Marker::TotalPercentage) {
        const int share = solvedPercentage - refinedPercentage;
        printTotal(refinedPercentage + share * qBound(0, line.percentage(), 100) / 100);
    } else if (!line.marker) {
        printer().printText(line.body);
    } else if (*line.marker != Marker::File && *line.marker != Marker::Error) {
        printer().print(*line.marker, line.body);
    }
}

void Amrkest::endFinalSolve()
{
    if (isGood() && !m_stage->isSuccess()) {
        fail(FindingKind::FinalSolveFailed,
             QStringLiteral("the refined model cannot be solved, ") + m_stage->error());
    }
    if (isGood()) {
        writeResults();
    }
    finish();
}

void Amrkest::writeResults()
{
    bool isWritten = m_results.write(deckFile, m_refinement->deck(m_iterations.last().factor)) &&
                     m_results.write(tableFile, table());
    for (int index = firstSolvedFile; isWritten && index < m_resultPaths.size(); ++index) {
        const QString name = QFileInfo(m_resultPaths.at(index)).fileName();
        isWritten = copyToResult(index, m_folder->path(finalFolder() + QLatin1Char('/') + name));
    }
    if (!isGood()) {
        return;
    }
    if (!isWritten || !m_results.commit()) {
        fail(FindingKind::ResultNotWritten, m_results.error());
        return;
    }
    for (const QString& path : qAsConst(m_resultPaths)) {
        printer().print(Marker::File, QDir::toNativeSeparators(path));
    }
    component().findingPrinter().print(m_conclusion);
    printTotal(100);
}

bool Amrkest::copyToResult(int index, const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        fail(FindingKind::FinalSolveFailed,
             QStringLiteral("the result of the refined model cannot be read, ") +
                 file.errorString());
        return false;
    }
    while (!file.atEnd()) {
        if (!m_results.write(index, file.read(copyStep))) {
            return false;
        }
    }
    return true;
}

// Only what earlier or this run's runs have made.
void Amrkest::removeWork()
{
    const QStringList folders =
        QDir(m_folder->path(QString())).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    static const QRegularExpression pattern(QStringLiteral("\\Aiteration_[0-9]{2,}\\z"));
    for (const QString& folder : folders) {
        if (pattern.match(folder).hasMatch()) {
            m_folder->removeFolder(folder, filesOf(stem()));
        }
    }
    // A final run that was to sample adaptively leaves its state when it is stopped.
    const QString refined = stem() + QStringLiteral("_amr");
    m_folder->removeFolder(finalFolder() + QLatin1Char('/') + refined +
                               QStringLiteral(".adaptkest"),
                           QRegularExpression(AnalysisFiles::names().pattern() +
                                              QStringLiteral("|\\Amade_by_adaptkest\\z")));
    m_folder->removeFolder(finalFolder(), filesOf(refined));
}

QByteArray Amrkest::table() const
{
    QString text = QStringLiteral("iteration,segments,resistance_ohm,reactance_ohm,change\n");
    for (int i = 0; i < m_iterations.size(); ++i) {
        const Iteration& iteration = m_iterations.at(i);
        const QStringList cells = {
            QString::number(i + 1), QString::number(m_refinement->segmentCount(iteration.factor)),
            QString::number(iteration.impedance.resistance, 'g', 6),
            QString::number(iteration.impedance.reactance, 'g', 6),
            iteration.change ? QString::number(*iteration.change, 'g', 6) : QString()};
        text += cells.join(QLatin1Char(',')) + QLatin1Char('\n');
    }
    return text.toLatin1();
}

QString Amrkest::iterationFolder(int number) const
{
    return QStringLiteral("iteration_%1").arg(number, 2, 10, QLatin1Char('0'));
}

QString Amrkest::stem() const
{
    return QFileInfo(m_stemPath).fileName();
}

int Amrkest::mostIterations() const
{
    const QString name = QStringLiteral("--max-iterations");
    return has("--max-iterations") ? commandLine().value(OptionGroup::Amrkest, name).toInt()
                                   : usualIterations;
}

// A change of the impedance, as a part of it.
double Amrkest::threshold() const
{
    const QString word =
        commandLine().value(OptionGroup::Amrkest, QStringLiteral("--error-threshold"));
    constexpr double highTolerance = 0.05;
    constexpr double normalTolerance = 0.02;
    constexpr double lowTolerance = 0.005;
    return word == QLatin1String("high")  ? highTolerance
           : word == QLatin1String("low") ? lowTolerance
                                          : normalTolerance;
}

bool Amrkest::has(const char* option) const
{
    return commandLine().has(OptionGroup::Amrkest, QLatin1String(option));
}

void Amrkest::printTotal(int percentage)
{
    if (percentage > m_total) {
        m_total = percentage;
        printer().printPercentage(Marker::TotalPercentage, percentage);
    }
}

bool Amrkest::stopWork()
{
    if (!m_stage) {
        return false;
    }
    m_stage->stop();
    return true;
}
