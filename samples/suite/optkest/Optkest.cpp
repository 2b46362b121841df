// SPDX-License-Identifier: MIT
#include "Optkest.h"

#include "EvaluationPlaces.h"
#include "Expression.h"
#include "Progress.h"
#include "SolvedImpedance.h"
#include "TuningReport.h"

#include <ResultFiles.h>

#include <QDir>
#include <QFileInfo>

using namespace suite;

namespace {

constexpr int searchedPercentage = 85;
constexpr ProgressShare searchingShare = {preparedPercentage, searchedPercentage};
constexpr ProgressShare finalShare = {searchedPercentage, solvedPercentage};

// The tuned model's files, by their index among the results. The table of all evaluations follows.
constexpr const char* tunedSuffixes[] = {"nec", "out", "csv"};

QString exampleOfOptimisation()
{
    return QStringLiteral("the model does not say what to optimise, give a value a name with "
                          "'SY LENGTH=0.5' and add a comment such as "
                          "'CM @optimise LENGTH FROM 0.4 TO 0.6 AT 300'");
}

} // namespace

Optkest::Optkest() : ComponentProgram(QStringLiteral("optkest"), OptionGroup::Optkest)
{}

Optkest::~Optkest() = default;

void Optkest::work()
{
    if (finishAfterCheck()) {
        return;
    }
    if (!prepare()) {
        finish();
        return;
    }
    printer().printText(TuningReport::question(m_search->state(), m_farm->placeCount()));
    printer().printText(TuningReport::tableHeader(m_search->state()));
    printer().printPercentage(Marker::Percentage, 0);
    printer().printPercentage(Marker::TotalPercentage, preparedPercentage);
    advance();
}

bool Optkest::prepare()
{
    return checkModel() && makeFarm() && openFolder() && checkResults() && makeSearch();
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
    return true;
}

bool Optkest::makeFarm()
{
    const EvaluationPlaces places(commandLine());
    if (!report(places.findings())) {
        return false;
    }
    if (hasOption("--machines-file")) {
        qunsetenv("SLURM_JOB_ID"); // an evaluation has its own host and not those of the job
    }
    m_farm = std::make_unique<EvaluationFarm>(
        places.hosts(),
        commandLine().wordsBehind(OptionGroup::Optkest, QStringLiteral("--runkest-options")));
    connect(m_farm.get(), &EvaluationFarm::succeeded, this, &Optkest::takeRun);
    connect(m_farm.get(), &EvaluationFarm::failed, this, &Optkest::failRun);
    connect(m_farm.get(), &EvaluationFarm::ended, this, &Optkest::endWork);
    connect(m_farm.get(), &EvaluationFarm::progressed, this, &Optkest::printFinalProgress);
    return true;
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
    ResultFiles results;
    if (!results.open(resultPaths())) {
        fail(FindingKind::ResultNotWritten, results.error());
        return false;
    }
    return true;
}

// Nothing is deleted before it is clear that the runs to restart from are there.
bool Optkest::makeSearch()
{
    const int last = option("--restart").toInt();
    m_search = std::make_unique<TuningSearch>(question());
    OptimisationState earlier;
    if (last > 0) {
        const QString error = earlier.readEarlier(m_folder->statePath(), m_search->state(), last);
        if (!error.isEmpty()) {
            fail(FindingKind::RestartImpossible,
                 QStringLiteral("there is no going on from run %1, ").arg(last) + error);
            return false;
        }
    }
    if (hasOption("-r")) {
        m_folder->removeRunsBehind(last);
    }
    printKnown(m_search->restart(earlier, last));
    return true;
}

OptimisationState Optkest::question() const
{
    const Optimisation& optimisation = *component().preprocessor().model().optimisation;
    OptimisationState result;
    result.fingerprint = QString::fromLatin1(m_model->fingerprint());
    result.name = optimisation.value.name;
    result.low = optimisation.low;
    result.high = optimisation.high;
    result.frequency = optimisation.frequency;
    result.atOnce = m_farm->placeCount();
    return result;
}

// Rounds that earlier runs answer need no time.
void Optkest::advance()
{
    while (isGood() && m_search->planRound()) {
        printKnown(m_search->knownEvaluations());
        if (!startRound() || !m_search->openRuns().isEmpty()) {
            return;
        }
        endRound();
    }
    if (!isGood()) {
        return;
    }
    if (m_search->state().evaluations.isEmpty()) {
        giveUp(FindingKind::NoOptimisation,
               QStringLiteral("the range to optimise in is too narrow"));
        return;
    }
    startFinalRun();
}

// False when something is wrong; nothing is left to wait for then but the end of what runs.
bool Optkest::startRound()
{
    int place = 0;
    const QMap<int, double> runs = m_search->openRuns();
    for (auto run = runs.begin(); run != runs.end(); ++run) {
        const QByteArray deck =
            m_model->withValueAndFrequency(run.value(), m_search->state().frequency);
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
    const SolvedImpedance solved =
        SolvedImpedance::read(m_folder->filePath(run, QStringLiteral("csv")));
    if (solved.impedance) {
        takeResult(run, host, *solved.impedance);
    } else {
        failRun(run, host, solved.error);
    }
}

void Optkest::takeResult(int run, const QString& host, const Impedance& impedance)
{
    printer().printText(TuningReport::tableLine(m_search->add(run, impedance), host));
    const QString error = m_search->state().write(m_folder->statePath());
    if (!error.isEmpty()) {
        giveUp(FindingKind::RunFolderUnusable, error);
        return;
    }
    m_keptEvaluations = m_search->state().evaluations.size();
    if (m_search->openRuns().isEmpty()) {
        endRound();
        advance();
    }
}

void Optkest::printKnown(const QVector<Evaluation>& evaluations)
{
    for (const Evaluation& evaluation : evaluations) {
        printer().printText(TuningReport::tableLine(evaluation, QStringLiteral("taken over")));
    }
}

void Optkest::endRound()
{
    m_search->endRound();
    const int percentage = static_cast<int>(100 * m_search->progress());
    printer().printPercentage(Marker::Percentage, percentage);
    printer().printPercentage(Marker::TotalPercentage, searchingShare.at(percentage, 100));
}

void Optkest::printFinalProgress(int run, int percentage)
{
    if (run == RunFolder::finalRun) {
        printer().printPercentage(Marker::Percentage, percentage);
        printer().printPercentage(Marker::TotalPercentage, finalShare.at(percentage, 100));
    }
}

void Optkest::failRun(int run, const QString& host, const QString& reason)
{
    m_failedRun = run;
    const QString name = run == RunFolder::finalRun ? QStringLiteral("the run of the tuned model")
                                                    : QStringLiteral("run %1").arg(run);
    const QString place =
        host.isEmpty() ? QString() : QStringLiteral(" on the host '%1'").arg(host);
    giveUp(FindingKind::EvaluationFailed, name + place + QStringLiteral(" failed, ") + reason);
}

void Optkest::startFinalRun()
{
    printer().printText(QStringLiteral("Solving the tuned model"));
    printer().printPercentage(Marker::Percentage, 0);
    printer().printPercentage(Marker::TotalPercentage, searchedPercentage);
    const QString error =
        m_folder->prepareRun(RunFolder::finalRun, m_model->withValue(m_search->best().value));
    if (!error.isEmpty()) {
        giveUp(FindingKind::RunFolderUnusable, error);
        return;
    }
    m_farm->start(0, RunFolder::finalRun,
                  m_folder->filePath(RunFolder::finalRun, QStringLiteral("nec")));
}

void Optkest::finishFinalRun()
{
    ResultFiles results;
    if (!writeResults(results)) {
        giveUp(FindingKind::ResultNotWritten, results.error());
        return;
    }
    const OptimisationState& state = m_search->state();
    printer().printFiles(results.paths());
    component().findingPrinter().print(TuningReport::facts(*m_search));
    printer().print(Marker::Variable,
                    state.name + QStringLiteral(" = ") + plainNumber(m_search->best().value));
    printer().printPercentage(Marker::TotalPercentage, 100);
    endWork();
}

// Copies the last run's files to their places beside the model.
bool Optkest::writeResults(ResultFiles& results)
{
    bool isWritten = results.open(resultPaths());
    int index = 0;
    for (const char* suffix : tunedSuffixes) {
        const QString source = m_folder->filePath(RunFolder::finalRun, QLatin1String(suffix));
        isWritten = isWritten && results.copy(index++, source);
    }
    return isWritten && results.write(index, m_search->state().csv()) && results.commit();
}

QStringList Optkest::resultPaths() const
{
    const ModelFile& model = component().modelFile();
    QStringList result;
    for (const char* suffix : tunedSuffixes) {
        result.append(model.pathWithEnding(QStringLiteral("_opt.") + QLatin1String(suffix)));
    }
    return result << model.pathWithEnding(QStringLiteral(".opt.csv"));
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
    const QList<int> openRuns = m_search ? m_search->openRuns().keys() : QList<int>();
    for (const int run : openRuns) {
        if (run != m_failedRun) {
            m_folder->removeRun(run);
        }
    }
    if (m_folder) {
        m_folder->removeRun(RunFolder::finalRun);
    }
    if (!isGood() && m_keptEvaluations > 0) {
        component().findingPrinter().print(FindingKind::EvaluationsKept,
                                           {QString::number(m_keptEvaluations),
                                            QFileInfo(m_folder->statePath()).dir().dirName(),
                                            QString::number(m_search->state().lastRun())});
    }
    finish();
}
