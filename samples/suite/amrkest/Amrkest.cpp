// SPDX-License-Identifier: MIT
#include "Amrkest.h"

#include "EngineProgram.h"
#include "OptionWords.h"
#include "Progress.h"
#include "SolvedImpedance.h"
#include "StopTimes.h"

using namespace suite;

namespace {

constexpr int usualIterations = 5;

constexpr int refinedPercentage = 55;
constexpr ProgressShare refiningShare = {preparedPercentage, refinedPercentage};
constexpr ProgressShare finalShare = {refinedPercentage, solvedPercentage};

// The result files by their index.
constexpr int deckFile = 0;
constexpr int tableFile = 1;
constexpr int firstSolvedFile = 2;
constexpr const char* solvedSuffixes[] = {"out", "csv"};

} // namespace

Amrkest::Amrkest() : ComponentProgram(QStringLiteral("amrkest"), OptionGroup::Amrkest)
{}

Amrkest::~Amrkest()
{
    if (m_folder && m_folder->isOpen() && !hasOption("--keep-files")) {
        m_folder->removeRuns();
    }
}

void Amrkest::work()
{
    if (!prepare()) {
        finish();
        return;
    }
    if (finishAfterCheck()) {
        return;
    }
    if (!openFolder() || !openResults()) {
        finish();
        return;
    }
    printer().printText(QStringLiteral("Refining at %1 MHz until the impedance changes by less "
                                       "than %2 %, at most %3 iterations")
                            .arg(QString::number(m_frequency, 'g', 10), m_history->thresholdText())
                            .arg(m_history->mostIterations()));
    printTotal(preparedPercentage);
    startIteration();
}

bool Amrkest::prepare()
{
    const Model& model = component().preprocessor().model();
    m_refinement = std::make_unique<SegmentRefinement>(model);
    m_history = std::make_unique<RefinementHistory>(threshold(), mostIterations());
    if (!report(m_refinement->problems())) {
        return false;
    }
    if (model.frequencies.count == 0) {
        // Only with errors ignored.
        markFailed();
        return false;
    }
    const EngineProgram engine;
    if (engine.path().isEmpty()) {
        fail(FindingKind::EngineMissing, engine.error());
        return false;
    }
    m_frequency = hasOption("--frequency")
                      ? option("--frequency").toDouble()
                      : (model.frequencies.lowest() + model.frequencies.highest()) / 2;
    return true;
}

bool Amrkest::openFolder()
{
    m_folder = std::make_unique<RefinementFolder>(component().modelFile());
    if (!m_folder->open()) {
        fail(FindingKind::WorkFolderRefused, m_folder->error());
        return false;
    }
    return true;
}

bool Amrkest::openResults()
{
    const ModelFile& model = component().modelFile();
    QStringList paths = {model.pathWithEnding(QStringLiteral("_amr.nec")),
                         model.pathWithEnding(QStringLiteral(".amr.csv"))};
    if (!hasOption("--skip-final-solve")) {
        for (const char* suffix : solvedSuffixes) {
            paths.append(model.pathWithEnding(QStringLiteral("_amr.") + QLatin1String(suffix)));
        }
    }
    if (!m_results.open(paths)) {
        fail(FindingKind::ResultNotWritten, m_results.error());
        return false;
    }
    return true;
}

void Amrkest::startIteration()
{
    const int number = m_history->count() + 1;
    const int factor = m_history->nextFactor();
    printer().printText(QStringLiteral("Iteration %1, %2 segments")
                            .arg(number)
                            .arg(m_refinement->segmentCount(factor)));
    startRun(RefinementFolder::iteration(number), m_refinement->deck(factor, m_frequency),
             &Amrkest::endIteration);
}

// Ends this run when the model cannot be written.
void Amrkest::startRun(const QString& run, const QByteArray& deck, Slot ended)
{
    if (!writeModel(run, deck)) {
        finish();
        return;
    }
    if (m_stage) {
        m_stage.release()->deleteLater();
    }
    m_stage = std::make_unique<ComponentStage>(runkestStopTimes);
    connect(m_stage.get(), &ComponentStage::ended, this, ended);
    if (run == RefinementFolder::finalRun()) {
        connect(m_stage.get(), &ComponentStage::printed, this, &Amrkest::printAgain);
    }
    m_stage->start(QStringLiteral("runkest"),
                   runkestArguments(m_folder->filePath(run, QStringLiteral("nec"))));
}

bool Amrkest::writeModel(const QString& run, const QByteArray& deck)
{
    if (!m_folder->makeFolder(run)) {
        fail(FindingKind::WorkFolderRefused, m_folder->error());
        return false;
    }
    ResultFiles file;
    if (!file.replace(m_folder->filePath(run, QStringLiteral("nec")), deck)) {
        fail(FindingKind::ResultNotWritten, file.error());
        return false;
    }
    return true;
}

QStringList Amrkest::runkestArguments(const QString& model) const
{
    QStringList result = QStringList(model) + optionWords(commandLine(), OptionGroup::Runkest);
    const QStringList solver = optionWords(commandLine(), OptionGroup::Kest);
    if (!solver.isEmpty()) {
        result += QStringLiteral("--kest-options");
        result += solver;
    }
    return result + ignoreErrorsWords(commandLine());
}

void Amrkest::endIteration()
{
    if (!isGood() || !readIteration()) {
        finish();
        return;
    }
    printer().printText(m_history->lastText());
    printTotal(refiningShare.at(m_history->count(), m_history->mostIterations()));
    m_conclusion = m_history->conclusion(m_refinement->obstacle(m_history->nextFactor()));
    if (m_conclusion.isEmpty()) {
        startIteration();
    } else {
        endRefinement();
    }
}

bool Amrkest::readIteration()
{
    const int number = m_history->count() + 1;
    SolvedImpedance solved;
    if (m_stage->isSuccess()) {
        solved = SolvedImpedance::read(
            m_folder->filePath(RefinementFolder::iteration(number), QStringLiteral("csv")));
    } else {
        solved.error = m_stage->error();
    }
    if (!solved.impedance) {
        fail(FindingKind::IterationFailed,
             QStringLiteral("iteration %1 failed, ").arg(number) + solved.error);
        return false;
    }
    m_history->add(m_refinement->segmentCount(m_history->nextFactor()), *solved.impedance);
    return true;
}

void Amrkest::endRefinement()
{
    printTotal(refinedPercentage);
    if (hasOption("--skip-final-solve")) {
        writeResults();
        finish();
        return;
    }
    startFinalRun();
}

// The refined model is solved in a folder of its own, so that all results come at once.
void Amrkest::startFinalRun()
{
    printer().printText(QStringLiteral("Solving the refined model"));
    startRun(RefinementFolder::finalRun(), refinedDeck(), &Amrkest::endFinalRun);
}

// The files are announced when they are in their place, and errors in this program's own words.
void Amrkest::printAgain(const MarkerLine& line)
{
    if (!isGood()) {
        return;
    }
    if (line.marker == Marker::TotalPercentage) {
        printTotal(finalShare.at(qBound(0, line.percentage(), 100), 100));
    } else if (line.marker != Marker::File && line.marker != Marker::Error) {
        printer().printAgain(line);
    }
}

void Amrkest::endFinalRun()
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
    bool isWritten =
        m_results.write(deckFile, refinedDeck()) && m_results.write(tableFile, m_history->table());
    for (int index = firstSolvedFile; isWritten && index < m_results.paths().size(); ++index) {
        const QString suffix = QLatin1String(solvedSuffixes[index - firstSolvedFile]);
        isWritten = m_results.copy(index, m_folder->filePath(RefinementFolder::finalRun(), suffix));
    }
    if (!isWritten || !m_results.commit()) {
        fail(FindingKind::ResultNotWritten, m_results.error());
        return;
    }
    printer().printFiles(m_results.paths());
    component().findingPrinter().print(m_conclusion);
    printTotal(100);
}

QByteArray Amrkest::refinedDeck() const
{
    return m_refinement->deck(m_history->last().factor);
}

int Amrkest::mostIterations() const
{
    return hasOption("--max-iterations") ? option("--max-iterations").toInt() : usualIterations;
}

// A change of the impedance, as a part of it.
double Amrkest::threshold() const
{
    constexpr double highTolerance = 0.05;
    constexpr double normalTolerance = 0.02;
    constexpr double lowTolerance = 0.005;
    const QString word = option("--error-threshold");
    return word == QLatin1String("high")  ? highTolerance
           : word == QLatin1String("low") ? lowTolerance
                                          : normalTolerance;
}

// Never less than before.
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
