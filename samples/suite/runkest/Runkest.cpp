#include "Runkest.h"

#include "OptionWords.h"
#include "Progress.h"
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
    startSweep();
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

void Runkest::passOn(const MarkerLine& line)
{
    if (line.marker == Marker::Error) {
        markFailed();
    }
    printer().printAgain(line);
}

void Runkest::endAdaptive()
{
    if (isGood() && !m_adaptive->isSuccess()) {
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
    return true;
}

void Runkest::startSweep()
{
    printer().printText(m_plan->description(m_deck->count()));
    printer().printPercentage(Marker::Percentage, 0);
    printer().printPercentage(Marker::TotalPercentage, preparedPercentage);
    printer().printText(SweepReport::tableHeader());
    m_sweep = m_plan->makeRunner(*m_deck, component().preprocessor().model().hasVoltageSource);
    connect(m_sweep.get(), &SweepRunner::solved, this, &Runkest::takeResult);
    connect(m_sweep.get(), &SweepRunner::failed, this,
            [this](const QString& reason) { fail(FindingKind::EngineFailed, reason); });
    connect(m_sweep.get(), &SweepRunner::warned, this, [this](const QString& text) {
        component().findingPrinter().print(FindingKind::SweepRemark, {text});
    });
    connect(m_sweep.get(), &SweepRunner::ended, this, &Runkest::endSweep);
    m_sweep->start();
}

void Runkest::takeResult(int index, const EngineOutput& output)
{
    if (!m_results.add(m_deck->frequency(index), output)) {
        fail(FindingKind::ResultNotWritten, m_results.error());
        m_sweep->stop();
        return;
    }
    printer().printText(SweepReport::tableLine(m_results.points().last()));
    printProgress(index);
    checkReader();
}

void Runkest::printProgress(int index)
{
    const int done = index + 1;
    printer().printPercentage(Marker::Percentage, 100 * done / m_deck->count());
    printer().printPercentage(Marker::TotalPercentage, solvingShare.at(done, m_deck->count()));
}

void Runkest::endSweep(bool isComplete)
{
    if (isComplete && isGood()) {
        writeResults();
    }
    finish();
}

void Runkest::writeResults()
{
    if (!m_results.commit()) {
        fail(FindingKind::ResultNotWritten, m_results.error());
        return;
    }
    printer().printFiles(m_results.paths());
    component().findingPrinter().print(SweepReport::facts(m_results.points()));
    printer().printPercentage(Marker::TotalPercentage, 100);
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
