#include "Optkest.h"

#include "Expression.h"
#include "GoldenSection.h"
#include "ParallelSection.h"
#include "ResultFiles.h"
#include "ResultTable.h"

#include <MachinesFile.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QThread>

#include <cmath>

using namespace suite;

namespace {

constexpr int mostEvaluations = 500;

// The shares of the whole run: pre-processing, the search, the tuned model's run.
constexpr int preparedPercentage = 5;
constexpr int searchedPercentage = 85;
constexpr int solvedPercentage = 99;

// Below this, in ohm, a reactance counts as none.
constexpr double noReactance = 1;

constexpr qint64 copiedPiece = 1 << 20;

QString exampleOfOptimisation()
{
    return QStringLiteral("the model does not say what to optimise, give a value a name with "
                          "'SY LENGTH=0.5' and add a comment such as "
                          "'CM @optimise LENGTH FROM 0.4 TO 0.6 AT 300'");
}

QString tableLine(const QString& run, const QString& value, const QString& resistance,
                  const QString& reactance, const QString& host)
{
    return QStringLiteral("%1 %2 %3 %4  %5")
        .arg(run, 6)
        .arg(value, 14)
        .arg(resistance, 12)
        .arg(reactance, 12)
        .arg(host);
}

} // namespace

Optkest::Optkest() : ComponentProgram(QStringLiteral("optkest"), OptionGroup::Optkest)
{}

Optkest::~Optkest() = default;

void Optkest::work()
{
    if (commandLine().has(OptionGroup::Kest, QStringLiteral("--check-only"))) {
        printer().printPercentage(Marker::TotalPercentage, 100);
        finish();
        return;
    }
    if (!prepare()) {
        finish();
        return;
    }
    printer().printText(QStringLiteral("Optimising %1 from %2 to %3 at %4 MHz, %5 at once")
                            .arg(m_state.name, plainNumber(m_state.low), plainNumber(m_state.high),
                                 plainNumber(m_state.frequency),
                                 QString::number(m_farm->placeCount())));
    printer().printText(tableLine(QStringLiteral("run"), m_state.name, QStringLiteral("R ohm"),
                                  QStringLiteral("X ohm"), QStringLiteral("host")));
    printProgress(0);
    advance();
}

bool Optkest::prepare()
{
    return checkModel() && makeFarm() && openFolder() && checkResults() && takeOverRuns();
}

bool Optkest::checkModel()
{
    const Model& model = component().preprocessor().model();
    if (!model.optimisation) {
        fail(FindingKind::NoOptimisation, exampleOfOptimisation());
        return false;
    }
    if (!model.hasVoltageSource || model.frequencyCard < 0) {
        fail(FindingKind::NoOptimisation,
             QStringLiteral("a model to optimise needs a voltage source and a frequency"));
        return false;
    }
    m_model = std::make_unique<TunedModel>(model);
    m_state.fingerprint = QString::fromLatin1(m_model->fingerprint());
    m_state.name = model.optimisation->value.name;
    m_state.low = model.optimisation->low;
    m_state.high = model.optimisation->high;
    m_state.frequency = model.optimisation->frequency;
    return true;
}

bool Optkest::makeFarm()
{
    const QStringList hosts =
        hasOption("--machines-file") ? hostsOfMachinesFile() : placesOfThisMachine();
    m_state.atOnce = hosts.size();
    m_farm = std::make_unique<EvaluationFarm>(
        hosts,
        commandLine().wordsBehind(OptionGroup::Optkest, QStringLiteral("--runkest-options")));
    connect(m_farm.get(), &EvaluationFarm::succeeded, this, &Optkest::takeRun);
    connect(m_farm.get(), &EvaluationFarm::failed, this, &Optkest::failRun);
    connect(m_farm.get(), &EvaluationFarm::ended, this, &Optkest::endWork);
    connect(m_farm.get(), &EvaluationFarm::progressed, this, &Optkest::printFinalProgress);
    return isGood();
}

QString Optkest::wantedAtOnce() const
{
    return hasOption("-np") ? option("-np") : option("-NP");
}

// Each host as often as it takes evaluations, until there are enough.
QStringList Optkest::hostsOfMachinesFile()
{
    const MachinesFile file = MachinesFile::read(option("--machines-file"));
    const QStringList errors = file.errors();
    for (const QString& error : errors) {
        fail(FindingKind::MachinesFileUnusable, error);
    }
    bool isNumber = false;
    const int wanted = wantedAtOnce().toInt(&isNumber);
    const int most = isNumber ? qMin(wanted, mostEvaluations) : mostEvaluations;
    QStringList hosts;
    for (const MachinesFile::Entry& entry : file.hosts()) {
        for (int i = 0; i < entry.count && hosts.size() < most; ++i) {
            hosts.append(entry.host);
        }
    }
    if (isGood() && isNumber && hosts.size() < most) {
        component().findingPrinter().print(
            FindingKind::FarmTooSmall, {QString::number(wanted), QString::number(hosts.size())});
    }
    return hosts;
}

QStringList Optkest::placesOfThisMachine() const
{
    const bool wantsAll = wantedAtOnce() == QLatin1String("all");
    const int wanted = wantsAll ? QThread::idealThreadCount() : wantedAtOnce().toInt();
    QStringList hosts;
    for (int i = 0; i < qBound(1, wanted, mostEvaluations); ++i) {
        hosts.append(QStringLiteral("localhost"));
    }
    return hosts;
}

bool Optkest::openFolder()
{
    m_folder = std::make_unique<RunFolder>(
        component().modelFile().pathWithEnding(QStringLiteral(".optkest")));
    const QString error = m_folder->open();
    if (!error.isEmpty()) {
        fail(FindingKind::RunFolderUnusable, error);
    }
    return error.isEmpty();
}

// Tries to open the results before the first run: hours of work end in files that can be written.
bool Optkest::checkResults()
{
    const ModelFile& file = component().modelFile();
    for (const char* ending : {"_opt.nec", "_opt.out", "_opt.csv", ".opt.csv"}) {
        m_resultPaths.append(file.pathWithEnding(QLatin1String(ending)));
    }
    ResultFiles results;
    if (!results.open(m_resultPaths)) {
        fail(FindingKind::ResultNotWritten, results.error());
        return false;
    }
    return true;
}

// Nothing is deleted before it is clear that the runs to go on from are there.
bool Optkest::takeOverRuns()
{
    const int last = option("--restart").toInt();
    makeSearch();
    OptimisationState earlier;
    if (last > 0) {
        QString error = earlier.read(m_folder->statePath());
        if (error.isEmpty() && !earlier.isSameQuestion(m_state)) {
            error = QStringLiteral("the earlier runs were of another model, range or frequency");
        } else if (error.isEmpty() && earlier.lastRun() < last) {
            error = QStringLiteral("the last earlier run is %1").arg(earlier.lastRun());
        }
        if (!error.isEmpty()) {
            fail(FindingKind::RestartImpossible,
                 QStringLiteral("there is no going on from run %1, ").arg(last) + error);
            return false;
        }
    }
    if (hasOption("-r")) {
        m_folder->removeRunsBehind(last);
    }
    for (const Evaluation& evaluation : qAsConst(earlier.evaluations)) {
        if (evaluation.run <= last) {
            m_earlier.insert(evaluation.run, evaluation);
        }
    }
    if (!m_earlier.isEmpty() && earlier.atOnce != m_state.atOnce) {
        // Another number at once asks for other points, but learns from these all the same.
        for (const Evaluation& evaluation : qAsConst(m_earlier)) {
            takeOver(evaluation);
            m_search->add(evaluation.value, evaluation.objective());
        }
        m_nextRun = last + 1;
        m_earlier.clear();
        m_state.atOnce = OptimisationState::mixed;
    }
    return true;
}

void Optkest::makeSearch()
{
    if (m_state.atOnce > 1) {
        m_search = std::make_unique<ParallelSection>(m_state.low, m_state.high, m_state.atOnce);
    } else {
        m_search = std::make_unique<GoldenSection>(m_state.low, m_state.high);
    }
}

// Rounds that earlier runs answer need no time.
void Optkest::advance()
{
    while (isGood()) {
        const QVector<double> points = m_search->next();
        if (points.isEmpty() && m_state.evaluations.isEmpty()) {
            giveUp(FindingKind::NoOptimisation,
                   QStringLiteral("the range to optimise in is too narrow"));
            return;
        }
        const int left = mostEvaluations - m_state.evaluations.size();
        m_isConverged = points.isEmpty();
        if (points.isEmpty() || left <= 0) {
            startFinalRun();
            return;
        }
        planRound(points.mid(0, left));
        if (!startRound()) {
            return;
        }
        if (!m_round.isEmpty()) {
            return;
        }
        takeRound();
    }
}

void Optkest::planRound(const QVector<double>& points)
{
    ++m_roundCount;
    m_roundStart = m_nextRun;
    for (const double point : points) {
        const int run = m_nextRun++;
        const auto known = m_earlier.constFind(run);
        if (known != m_earlier.constEnd() && known->value == point) {
            takeOver(*known);
        } else {
            m_round.insert(run, point);
        }
    }
}

// False when something is wrong; nothing is left to wait for then but the end of what runs.
bool Optkest::startRound()
{
    int place = 0;
    const QMap<int, double> runs = m_round;
    for (auto run = runs.begin(); run != runs.end(); ++run) {
        const QByteArray deck = m_model->withValueAndFrequency(run.value(), m_state.frequency);
        const QString error = m_folder->prepareRun(run.key(), deck);
        if (!error.isEmpty()) {
            giveUp(FindingKind::RunFolderUnusable, error);
            return false;
        }
        m_farm->start(place++, run.key(), m_folder->filePath(run.key(), QStringLiteral("nec")));
    }
    return true;
}

void Optkest::takeRun(int run, const QString& host)
{
    if (run == RunFolder::finalRun) {
        finishFinalRun();
        return;
    }
    const ResultTable table = ResultTable::read(m_folder->filePath(run, QStringLiteral("csv")));
    const bool hasImpedance = table.error.isEmpty() && table.points.first().impedance;
    if (!hasImpedance) {
        failRun(run, host,
                table.error.isEmpty() ? QStringLiteral("it gave no impedance") : table.error);
        return;
    }
    Evaluation evaluation;
    evaluation.run = run;
    evaluation.value = m_round.take(run);
    evaluation.impedance = *table.points.first().impedance;
    addEvaluation(evaluation, host);
    const QString error = m_state.write(m_folder->statePath());
    if (!error.isEmpty()) {
        giveUp(FindingKind::RunFolderUnusable, error);
        return;
    }
    if (m_round.isEmpty()) {
        takeRound();
        advance();
    }
}

void Optkest::addEvaluation(const Evaluation& evaluation, const QString& place)
{
    m_state.add(evaluation);
    printer().printText(tableLine(QString::number(evaluation.run), plainNumber(evaluation.value),
                                  QString::number(evaluation.impedance.resistance, 'f', 3),
                                  QString::number(evaluation.impedance.reactance, 'f', 3), place));
}

void Optkest::takeOver(const Evaluation& evaluation)
{
    addEvaluation(evaluation, QStringLiteral("taken over"));
    ++m_takenOver;
}

void Optkest::takeRound()
{
    for (const Evaluation& evaluation : qAsConst(m_state.evaluations)) {
        if (evaluation.run >= m_roundStart) {
            m_search->add(evaluation.value, evaluation.objective());
        }
    }
    printProgress(m_search->progress());
}

void Optkest::printProgress(double part)
{
    const int share = searchedPercentage - preparedPercentage;
    printer().printPercentage(Marker::Percentage, static_cast<int>(100 * part));
    printer().printPercentage(Marker::TotalPercentage,
                              preparedPercentage + static_cast<int>(share * part));
}

void Optkest::printFinalProgress(int run, int percentage)
{
    if (run == RunFolder::finalRun) {
        const int share = solvedPercentage - searchedPercentage;
        printer().printPercentage(Marker::Percentage, percentage);
        printer().printPercentage(Marker::TotalPercentage,
                                  searchedPercentage + share * percentage / 100);
    }
}

void Optkest::failRun(int run, const QString& host, const QString& reason)
{
    m_failedRun = run;
    const QString name = run == RunFolder::finalRun ? QStringLiteral("the run of the tuned model")
                                                    : QStringLiteral("run %1").arg(run);
    const QString place = host.isEmpty() ? QString() : QStringLiteral(" on ") + host;
    giveUp(FindingKind::EvaluationFailed, name + place + QStringLiteral(" failed, ") + reason);
}

void Optkest::startFinalRun()
{
    printer().printText(QStringLiteral("Solving the tuned model"));
    printer().printPercentage(Marker::Percentage, 0);
    printer().printPercentage(Marker::TotalPercentage, searchedPercentage);
    const QString error =
        m_folder->prepareRun(RunFolder::finalRun, m_model->withValue(m_search->best()));
    if (!error.isEmpty()) {
        giveUp(FindingKind::RunFolderUnusable, error);
        return;
    }
    m_farm->start(0, RunFolder::finalRun,
                  m_folder->filePath(RunFolder::finalRun, QStringLiteral("nec")));
}

void Optkest::finishFinalRun()
{
    const QString error = writeResults();
    if (!error.isEmpty()) {
        giveUp(FindingKind::ResultNotWritten, error);
        return;
    }
    for (const QString& path : qAsConst(m_resultPaths)) {
        printer().print(Marker::File, QDir::toNativeSeparators(path));
    }
    printFacts();
    printer().printPercentage(Marker::TotalPercentage, 100);
    endWork();
}

// Copies the last run's files to their places beside the model; an error text on failure.
QString Optkest::writeResults()
{
    static const QStringList suffixes = {QStringLiteral("nec"), QStringLiteral("out"),
                                         QStringLiteral("csv")};
    ResultFiles results;
    bool isWritten = results.open(m_resultPaths);
    for (int index = 0; isWritten && index < suffixes.size(); ++index) {
        QFile file(m_folder->filePath(RunFolder::finalRun, suffixes.at(index)));
        bool isRead = file.open(QIODevice::ReadOnly);
        while (isWritten && isRead && !file.atEnd()) {
            const QByteArray piece = file.read(copiedPiece);
            isRead = !piece.isEmpty();
            isWritten = results.write(index, piece);
        }
        if (!isRead) {
            return QStringLiteral("the tuned model's file '%1' cannot be read, %2")
                .arg(QFileInfo(file).fileName(), file.errorString());
        }
    }
    isWritten = isWritten && results.write(suffixes.size(), m_state.csv()) && results.commit();
    return isWritten ? QString() : results.error();
}

void Optkest::printFacts()
{
    FindingPrinter findings = component().findingPrinter();
    const Evaluation tuned = best();
    if (m_search->isAtEdge()) {
        findings.print(FindingKind::TunedAtEdge,
                       {m_state.name, plainNumber(m_state.low), plainNumber(m_state.high)});
    }
    if (!isResonance()) {
        findings.print(FindingKind::NoTunedResonance, {QString::number(tuned.objective())});
    }
    if (!m_isConverged) {
        findings.print(FindingKind::NotConverged, {QString::number(m_state.evaluations.size())});
    }
    findings.print(FindingKind::TunedValue,
                   {m_state.name, plainNumber(tuned.value), plainNumber(m_state.frequency)});
    findings.print(FindingKind::TunedImpedance, {QString::number(tuned.impedance.resistance),
                                                 QString::number(tuned.impedance.reactance)});
    findings.print(FindingKind::EvaluationCount,
                   {QString::number(m_state.evaluations.size()), QString::number(m_roundCount),
                    QString::number(m_takenOver)});
    printer().print(Marker::Variable,
                    m_state.name + QStringLiteral(" = ") + plainNumber(tuned.value));
}

Evaluation Optkest::best() const
{
    for (const Evaluation& evaluation : m_state.evaluations) {
        if (evaluation.value == m_search->best()) {
            return evaluation;
        }
    }
    return {};
}

// The reactance is next to nothing, or goes through 0 close to the best value.
bool Optkest::isResonance() const
{
    bool isNegative = false;
    bool isPositive = false;
    for (const Evaluation& evaluation : m_state.evaluations) {
        if (evaluation.value >= m_search->low() && evaluation.value <= m_search->high()) {
            isNegative = isNegative || evaluation.impedance.reactance <= 0;
            isPositive = isPositive || evaluation.impedance.reactance >= 0;
        }
    }
    return best().objective() <= noReactance || (isNegative && isPositive);
}

void Optkest::giveUp(FindingKind kind, const QString& reason)
{
    fail(kind, reason);
    m_farm->stop();
}

bool Optkest::stopWork()
{
    if (!m_farm) {
        return false;
    }
    m_farm->stop();
    return true;
}

// What unfinished runs have left is of no use; the model of a failed one shows what went wrong.
void Optkest::endWork()
{
    for (auto run = m_round.begin(); run != m_round.end(); ++run) {
        if (run.key() != m_failedRun) {
            m_folder->removeRun(run.key());
        }
    }
    if (m_folder) {
        m_folder->removeRun(RunFolder::finalRun);
    }
    finish();
}

bool Optkest::hasOption(const char* name) const
{
    return commandLine().has(OptionGroup::Optkest, QLatin1String(name));
}

QString Optkest::option(const char* name) const
{
    return commandLine().value(OptionGroup::Optkest, QLatin1String(name));
}
