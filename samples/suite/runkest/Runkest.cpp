#include "Runkest.h"

#include "OptionWords.h"

#include <QDir>

using namespace suite;

namespace {

constexpr int outputFile = 0;
constexpr int tableFile = 1;

// The shares of the whole run: pre-processing up to the first, solving up to the second.
constexpr int preparedPercentage = 5;
constexpr int solvedPercentage = 95;

// Of the adaptive sampling, which needs 700 ms to end its engines.
constexpr StopTimes adaptiveStopTimes = {1100, 1300};

// So few frequencies are the coarse grid already.
constexpr int leastAdaptiveFrequencies = 6;

} // namespace

Runkest::Runkest() : ComponentProgram(QStringLiteral("runkest"), OptionGroup::Runkest)
{}

Runkest::~Runkest() = default;

void Runkest::work()
{
    if (commandLine().has(OptionGroup::Kest, QStringLiteral("--check-only"))) {
        printer().printPercentage(Marker::TotalPercentage, 100);
        finish();
        return;
    }
    const Model& model = component().preprocessor().model();
    if (model.adaptive.isWanted && model.frequencies.count >= leastAdaptiveFrequencies) {
        startAdaptive();
        return;
    }
    m_plan = std::make_unique<SweepPlan>(commandLine());
    component().findingPrinter().print(m_plan->findings());
    if (m_plan->findings().hasErrors()) {
        failAsTold();
    }
    if (!isGood() || !prepare()) {
        finish();
        return;
    }
    startSweep();
}

// Another component takes the place of the sweep; what it prints is what there is to say.
void Runkest::startAdaptive()
{
    const CommandLine& line = commandLine();
    QStringList arguments = {component().modelFile().path(), QStringLiteral("--run-from-runkest")};
    arguments += optionWords(line, OptionGroup::Adaptkest);
    arguments += QStringLiteral("--runkest-options");
    arguments += optionWords(line, OptionGroup::Runkest);
    if (line.has(OptionGroup::Prekest, QStringLiteral("--ignore-errors"))) {
        arguments += {QStringLiteral("--prekest-options"), QStringLiteral("--ignore-errors")};
    }
    m_adaptive = std::make_unique<ComponentStage>(adaptiveStopTimes);
    connect(m_adaptive.get(), &ComponentStage::printed, this, &Runkest::passOn);
    connect(m_adaptive.get(), &ComponentStage::ended, this, &Runkest::endAdaptive);
    m_adaptive->start(QStringLiteral("adaptkest"), arguments);
}

void Runkest::passOn(const MarkerLine& line)
{
    if (line.marker == Marker::Error) {
        failAsTold();
    }
    if (line.marker) {
        printer().print(*line.marker, line.body);
    } else {
        printer().printText(line.body);
    }
}

void Runkest::endAdaptive()
{
    if (isGood() && !m_adaptive->isSuccess()) {
        fail(FindingKind::EngineFailed, m_adaptive->error());
    }
    finish();
}

// Opens the results before the first frequency is solved: hours of work end in a file that can be
// written.
bool Runkest::prepare()
{
    const ModelFile& model = component().modelFile();
    m_deck = std::make_unique<SweepDeck>(component().preprocessor().model());
    if (m_deck->count() == 0) {
        // Only with errors ignored.
        failAsTold();
        return false;
    }
    m_resultPaths = QStringList{model.resultPath(QStringLiteral("out")),
                                model.resultPath(QStringLiteral("csv"))};
    if (!m_results.open(m_resultPaths)) {
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
    SweepPoint point;
    point.frequency = m_deck->frequency(index);
    if (output.hasImpedance()) {
        point.impedance = output.impedance();
    }
    m_report.add(point);
    const QByteArray bytes = index == 0 ? output.stableBytes() : output.stableBytesFromFrequency();
    if (!m_results.write(outputFile, bytes)) {
        fail(FindingKind::ResultNotWritten, m_results.error());
        m_sweep->stop();
        return;
    }
    printer().printText(SweepReport::tableLine(point));
    printProgress(index);
    checkReader();
}

void Runkest::printProgress(int index)
{
    const int share = solvedPercentage - preparedPercentage;
    const int done = index + 1;
    printer().printPercentage(Marker::Percentage, 100 * done / m_deck->count());
    printer().printPercentage(Marker::TotalPercentage,
                              preparedPercentage + share * done / m_deck->count());
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
    if (!m_results.write(tableFile, m_report.csv()) || !m_results.commit()) {
        fail(FindingKind::ResultNotWritten, m_results.error());
        return;
    }
    for (const QString& path : qAsConst(m_resultPaths)) {
        printer().print(Marker::File, QDir::toNativeSeparators(path));
    }
    component().findingPrinter().print(m_report.facts());
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
