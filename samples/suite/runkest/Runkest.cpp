#include "Runkest.h"

#include <QDir>

using namespace suite;

namespace {

constexpr int OutputFile = 0;
constexpr int TableFile = 1;

// The shares of the whole run: pre-processing up to the first, solving up to the second.
constexpr int PreparedPercentage = 5;
constexpr int SolvedPercentage = 95;

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
    printer().printPercentage(Marker::TotalPercentage, PreparedPercentage);
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
    if (!m_results.write(OutputFile, bytes)) {
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
    const int share = SolvedPercentage - PreparedPercentage;
    const int done = index + 1;
    printer().printPercentage(Marker::Percentage, 100 * done / m_deck->count());
    printer().printPercentage(Marker::TotalPercentage,
                              PreparedPercentage + share * done / m_deck->count());
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
    if (!m_results.write(TableFile, m_report.csv()) || !m_results.commit()) {
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
    if (!m_sweep) {
        return false;
    }
    m_sweep->stop();
    return true;
}
