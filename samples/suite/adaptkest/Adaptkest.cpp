// SPDX-License-Identifier: MIT
#include "Adaptkest.h"

#include "EngineProgram.h"
#include "Progress.h"
#include "Sweep.h"
#include "SweepReport.h"

#include <QFileInfo>
#include <QThread>

#include <algorithm>

using namespace suite;

Adaptkest::Adaptkest() : ComponentProgram(QStringLiteral("adaptkest"), OptionGroup::Adaptkest)
{}

Adaptkest::~Adaptkest() = default;

// The one place that says where the engines run: its own count means this machine.
std::unique_ptr<SweepRunner> Adaptkest::makeSweep(const SweepDeck& deck) const
{
    const QString given = option("-np");
    if (given.isEmpty()) {
        return m_plan->makeRunner(deck, true);
    }
    bool isNumber = false;
    const int wanted = given.toInt(&isNumber);
    const int atOnce = isNumber ? wanted : QThread::idealThreadCount();
    return std::make_unique<Sweep>(deck, m_engine, qMin(atOnce, deck.count()), true);
}

void Adaptkest::work()
{
    if (!prepare()) {
        finish();
        return;
    }
    printer().printText(QStringLiteral("Solving at most %1 frequencies adaptively, tolerance %2")
                            .arg(m_placing->most())
                            .arg(tolerance()));
    printProgress();
    printer().printText(SweepReport::tableHeader());
    nextAnalysis();
}

bool Adaptkest::prepare()
{
    const EngineProgram engine;
    const Model& model = component().preprocessor().model();
    if (engine.path().isEmpty()) {
        fail(FindingKind::EngineMissing, engine.error());
        return false;
    }
    if (model.frequencies.count == 0) {
        // Only with errors ignored.
        markFailed();
        return false;
    }
    if (!model.hasVoltageSource) {
        fail(FindingKind::AdaptiveWithoutSource, QString());
        return false;
    }
    m_engine = engine.path();
    m_plan = std::make_unique<SweepPlan>(commandLine());
    if (!report(m_plan->findings())) {
        return false;
    }
    m_placing = std::make_unique<AdaptivePlacing>(model.frequencies, tolerance());
    return openFolder() && restore();
}

bool Adaptkest::openFolder()
{
    const ModelFile& model = component().modelFile();
    const QString path = model.resultPath(QStringLiteral("adaptkest"));
    m_folder = std::make_unique<WorkFolder>(path, QStringLiteral("adaptkest"));
    if (!m_folder->open()) {
        fail(FindingKind::WorkFolderRefused, m_folder->error());
        return false;
    }
    const Model& checked = component().preprocessor().model();
    m_files = std::make_unique<AnalysisFiles>(path, AnalysisFiles::keyOf(checked, tolerance()));
    if (!m_results.open(model)) {
        fail(FindingKind::ResultNotWritten, m_results.error());
        return false;
    }
    return true;
}

bool Adaptkest::restore()
{
    const bool isResumed = hasOption("--resume") ||
                           commandLine().has(OptionGroup::Runkest, QStringLiteral("--resume"));
    if (hasOption("--restart")) {
        return restart(option("--restart").toInt());
    }
    return !isResumed || resume();
}

// Takes over the analyses of an earlier run, as many as were asked for.
bool Adaptkest::restart(int last)
{
    for (int number = 1; number <= qMax(last, 1); ++number) {
        if (!takeOver(last == 0 ? 0 : number)) {
            fail(FindingKind::RestartRefused, m_takeOverError);
            return false;
        }
    }
    reportTakenOver();
    return true;
}

// Takes over as many as there are. Behind a damaged one all are computed again.
bool Adaptkest::resume()
{
    while (m_files->exists(m_analysis + 1) && takeOver(m_analysis + 1)) {
    }
    if (m_analysis == 0 && !m_takeOverError.isEmpty()) {
        fail(FindingKind::ResumeRefused, {folderName(), m_takeOverError});
        return false;
    }
    if (m_analysis == 0) {
        component().findingPrinter().print(FindingKind::NothingToResume, {folderName()});
        return true;
    }
    if (!m_takeOverError.isEmpty()) {
        printer().printText(m_takeOverError);
    }
    reportTakenOver();
    return true;
}

bool Adaptkest::takeOver(int number)
{
    const std::optional<QVector<AnalysisPoint>> points = m_files->load(number);
    if (!points) {
        m_takeOverError = m_files->error();
        return false;
    }
    QVector<double> frequencies;
    for (const AnalysisPoint& point : *points) {
        frequencies.append(point.frequency);
    }
    if (frequencies.isEmpty() || frequencies != m_placing->next()) {
        m_takeOverError =
            QStringLiteral("analysis %1 does not go on from the one before it").arg(number);
        return false;
    }
    take(*points);
    return true;
}

void Adaptkest::reportTakenOver()
{
    printer().printText(QStringLiteral("Analyses 1 to %1 are taken over, %2 frequencies")
                            .arg(m_analysis)
                            .arg(m_placing->count()));
}

// What another run can continue from.
void Adaptkest::reportKept()
{
    if (m_analysis > 0) {
        component().findingPrinter().print(FindingKind::AnalysesKept,
                                           {QString::number(m_analysis), folderName()});
    }
}

QString Adaptkest::folderName() const
{
    return QFileInfo(component().modelFile().resultPath(QStringLiteral("adaptkest"))).fileName();
}

void Adaptkest::nextAnalysis()
{
    if (!isGood()) {
        return;
    }
    const QVector<double> frequencies = m_placing->next();
    if (frequencies.isEmpty()) {
        writeResults();
        finish();
        return;
    }
    startSweep(frequencies);
}

void Adaptkest::startSweep(const QVector<double>& frequencies)
{
    m_frequencies = frequencies;
    m_round.clear();
    printer().printText(
        QStringLiteral("Analysis %1, %2 frequencies").arg(m_analysis + 1).arg(frequencies.size()));
    m_sweep = makeSweep(SweepDeck(component().preprocessor().model(), frequencies));
    connect(m_sweep.get(), &SweepRunner::solved, this, &Adaptkest::takeResult);
    connect(m_sweep.get(), &SweepRunner::failed, this,
            [this](const QString& reason) { fail(FindingKind::EngineFailed, reason); });
    connect(m_sweep.get(), &SweepRunner::ended, this, &Adaptkest::endSweep);
    m_sweep->start();
}

void Adaptkest::takeResult(int index, const EngineOutput& output)
{
    const AnalysisPoint point(m_frequencies.at(index), output);
    m_round.append(point);
    printer().printText(SweepReport::tableLine({point.frequency, point.impedance}));
    printProgress();
    checkReader();
}

void Adaptkest::endSweep(bool isComplete)
{
    if (!isComplete || !isGood()) {
        reportKept();
        finish();
        return;
    }
    m_sweep.release()->deleteLater();
    if (!m_files->save(m_analysis + 1, m_round)) {
        fail(FindingKind::ResultNotWritten, m_files->error());
        reportKept();
        finish();
        return;
    }
    take(m_round);
    m_round.clear();
    QMetaObject::invokeMethod(this, &Adaptkest::nextAnalysis, Qt::QueuedConnection);
}

void Adaptkest::take(const QVector<AnalysisPoint>& points)
{
    ++m_analysis;
    for (const AnalysisPoint& point : points) {
        m_placing->add(point.frequency, point.impedance);
        m_points[point.frequency] = point;
    }
}

// How many points it takes is not known before; there are never more than the sweep has.
void Adaptkest::printProgress()
{
    const int done = m_placing->count() + m_round.size();
    printer().printPercentage(Marker::Percentage, 100 * done / m_placing->most());
    printer().printPercentage(Marker::TotalPercentage, solvingShare.at(done, m_placing->most()));
}

void Adaptkest::writeResults()
{
    if (!writePoints() || !m_results.commit()) {
        fail(FindingKind::ResultNotWritten, m_results.error());
        reportKept();
        return;
    }
    if (!hasOption("--keep-files")) {
        m_folder->removeFiles(AnalysisFiles::names());
    }
    printer().printPercentage(Marker::Percentage, 100);
    printer().printFiles(m_results.paths());
    printFacts();
    printer().printPercentage(Marker::TotalPercentage, 100);
}

bool Adaptkest::writePoints()
{
    return std::all_of(m_points.begin(), m_points.end(), [this](const auto& entry) {
        return m_results.add(entry.first, entry.second.output());
    });
}

void Adaptkest::printFacts()
{
    const QString most = QString::number(m_placing->most());
    FindingList facts = SweepReport::facts(m_results.points());
    facts.add(FindingKind::AdaptiveDone, 0,
              {QString::number(m_placing->count()), most, QString::number(m_analysis)});
    if (!m_placing->isFine()) {
        facts.add(FindingKind::AdaptiveUsedUp, 0, {most, QString::number(tolerance())});
    }
    component().findingPrinter().print(facts);
}

double Adaptkest::tolerance() const
{
    return component().preprocessor().model().adaptive.tolerance;
}

bool Adaptkest::stopWork()
{
    if (!m_sweep) {
        return false;
    }
    m_sweep->stop();
    return true;
}
