// SPDX-License-Identifier: MIT
#include "Runkest.h"

#include "OptionWords.h"
#include "Progress.h"
#include "StopReason.h"
#include "StopTimes.h"
#include "SweepReport.h"

using namespace suite;

namespace {

// So few frequencies are the coarse grid already.
constexpr int leastAdaptiveFrequencies = 6;

} // namespace

Runkest::Runkest() : ComponentProgram(QStringLiteral("runkest"), OptionGroup::Runkest)
{}

Runkest::~Runkest() = default;

void Runkest::work()
{
    if (finishAfterCheck()) {
        return;
    }
    const Model& model = component().preprocessor().model();
    if (model.adaptive.isWanted && model.frequencies.count >= leastAdaptiveFrequencies) {
        startAdaptive();
        return;
    }
    m_plan = std::make_unique<SweepPlan>(commandLine());
    if (!report(m_plan->findings()) || !prepare()) {
        finish();
        return;
    }
    solve();
}

// Another component takes the place of the sweep; what it prints is printed again.
void Runkest::startAdaptive()
{
    const CommandLine& line = commandLine();
    QStringList arguments = {component().modelFile().path(), QStringLiteral("--run-from-runkest")};
    arguments += optionWords(line, OptionGroup::Adaptkest);
    arguments += QStringLiteral("--runkest-options");
    arguments += optionWords(line, OptionGroup::Runkest);
    arguments += ignoreErrorsWords(line);
    m_adaptive = std::make_unique<ComponentStage>(adaptkestStopTimes);
    connect(m_adaptive.get(), &ComponentStage::printed, this, &Runkest::passOn);
    connect(m_adaptive.get(), &ComponentStage::ended, this, &Runkest::endAdaptive);
    m_adaptive->start(QStringLiteral("adaptkest"), arguments);
}

// After a stop only what was kept is of interest: the stop itself has been reported here.
void Runkest::passOn(const MarkerLine& line)
{
    if (isStopped()) {
        if (line.body.startsWith(FindingPrinter::head(FindingKind::AnalysesKept))) {
            printer().printAgain(line);
        }
        return;
    }
    if (line.marker == Marker::Error) {
        markFailed();
    }
    printer().printAgain(line);
}

void Runkest::endAdaptive()
{
    const std::optional<int> signal = StopReason::signalOf(m_adaptive->exitCode());
    if (isGood() && signal) {
        markStopped(*signal);
    } else if (isGood() && !m_adaptive->isSuccess()) {
        fail(FindingKind::EngineFailed, m_adaptive->error());
    }
    finish();
}

bool Runkest::prepare()
{
    m_deck = std::make_unique<SweepDeck>(component().preprocessor().model());
    if (m_deck->count() == 0) {
        // Only with errors ignored.
        markFailed();
        return false;
    }
    if (!m_results.open(component().modelFile())) {
        fail(FindingKind::ResultNotWritten, m_results.error());
        return false;
    }
    m_partial = std::make_unique<PartialResults>(
        component().modelFile().resultPath(QStringLiteral("partial")), *m_deck);
    return report(hasOption("--resume") ? m_partial->resume() : m_partial->begin());
}

void Runkest::solve()
{
    m_missing = m_partial->missing();
    if (!m_missing.isEmpty()) {
        startSweep();
        return;
    }
    printer().printText(SweepReport::tableHeader());
    endSweep(takeOverBefore(m_deck->count()));
}

void Runkest::startSweep()
{
    printer().printText(m_plan->description(m_missing.size()));
    printer().printPercentage(Marker::Percentage, 0);
    printer().printPercentage(Marker::TotalPercentage, preparedPercentage);
    printer().printText(SweepReport::tableHeader());
    m_sweep = m_plan->makeRunner(m_deck->part(m_missing),
                                 component().preprocessor().model().hasVoltageSource);
    connect(m_sweep.get(), &SweepRunner::arrived, this, &Runkest::keepResult);
    connect(m_sweep.get(), &SweepRunner::solved, this,
            [this](int index, const EngineOutput& output) {
                if (!takeOverBefore(m_missing.at(index)) || !takeResult(output)) {
                    m_sweep->stop();
                }
            });
    connect(m_sweep.get(), &SweepRunner::failed, this,
            [this](const QString& reason) { fail(FindingKind::EngineFailed, reason); });
    connect(m_sweep.get(), &SweepRunner::warned, this, [this](const QString& text) {
        component().findingPrinter().print(FindingKind::SweepRemark, {text});
    });
    connect(m_sweep.get(), &SweepRunner::ended, this, &Runkest::endSweep);
    m_sweep->start();
}

void Runkest::keepResult(int index, const EngineOutput& output)
{
    component().findingPrinter().print(m_partial->add(m_missing.at(index), output));
}

// The results before this frequency that an earlier run has kept.
bool Runkest::takeOverBefore(int index)
{
    while (m_next < index) {
        const std::optional<EngineOutput> output = m_partial->takenOver(m_next);
        if (!output) {
            fail(FindingKind::ResumeRefused,
                 {m_partial->name(), QStringLiteral("it was changed meanwhile")});
            return false;
        }
        if (!takeResult(*output)) {
            return false;
        }
    }
    return true;
}

bool Runkest::takeResult(const EngineOutput& output)
{
    if (!m_results.add(m_deck->frequency(m_next), output)) {
        fail(FindingKind::ResultNotWritten, m_results.error());
        return false;
    }
    ++m_next;
    printer().printText(SweepReport::tableLine(m_results.points().last()));
    printProgress();
    checkReader();
    return true;
}

void Runkest::printProgress()
{
    printer().printPercentage(Marker::Percentage, 100 * m_next / m_deck->count());
    printer().printPercentage(Marker::TotalPercentage, solvingShare.at(m_next, m_deck->count()));
}

void Runkest::endSweep(bool isComplete)
{
    if (isComplete && isGood() && takeOverBefore(m_deck->count())) {
        writeResults();
    }
    if (!isGood()) {
        reportKept();
    }
    finish();
}

void Runkest::writeResults()
{
    if (!m_results.commit()) {
        fail(FindingKind::ResultNotWritten, m_results.error());
        return;
    }
    m_partial->remove();
    printer().printFiles(m_results.paths());
    component().findingPrinter().print(SweepReport::facts(m_results.points()));
    printer().printPercentage(Marker::TotalPercentage, 100);
}

// What another run can continue from.
void Runkest::reportKept()
{
    const FindingList kept = m_partial->kept();
    if (!kept.isEmpty()) {
        printer().printFiles({m_partial->path()});
        component().findingPrinter().print(kept);
    }
}

bool Runkest::stopWork()
{
    if (m_adaptive) {
        m_adaptive->stop();
    } else if (m_sweep) {
        m_sweep->stop();
    }
    return m_adaptive || m_sweep;
}
