#include "Runkest.h"

#include "EngineProgram.h"

#include <QDir>
#include <QThread>

using namespace suite;

namespace {

constexpr int OutputFile = 0;
constexpr int TableFile = 1;

constexpr int SignalBase = 128;
constexpr int ReaderWatchInterval = 250; // ms

// The shares of the whole run: pre-processing up to the first, solving up to the second.
constexpr int PreparedPercentage = 5;
constexpr int SolvedPercentage = 95;

} // namespace

Runkest::Runkest() : m_component(QStringLiteral("runkest"), OptionGroup::Runkest)
{
    m_readerWatch.setInterval(ReaderWatchInterval);
    connect(&m_readerWatch, &QTimer::timeout, this, &Runkest::checkReader);
}

Runkest::~Runkest() = default;

std::optional<int> Runkest::readCommandLine(const QStringList& arguments)
{
    return m_component.readCommandLine(arguments);
}

void Runkest::run()
{
    if (m_isFinished) {
        return;
    }
    if (!m_component.preprocess()) {
        finish(ExitFailure);
        return;
    }
    if (m_component.commandLine().has(OptionGroup::Kest, QStringLiteral("--check-only"))) {
        m_component.printer().printPercentage(Marker::TotalPercentage, 100);
        finish(ExitSuccess);
        return;
    }
    const EngineProgram engine;
    if (engine.path().isEmpty()) {
        fail(FindingKind::EngineMissing, engine.error());
        finish(m_exitCode);
        return;
    }
    if (!prepare()) {
        finish(m_exitCode);
        return;
    }
    startSweep(engine.path());
}

// Opens the results before the first frequency is solved: hours of work end in a file that can be
// written.
bool Runkest::prepare()
{
    const ModelFile& model = m_component.modelFile();
    m_deck = std::make_unique<SweepDeck>(m_component.preprocessor().model());
    if (m_deck->count() == 0) {
        // Only with errors ignored: they have been told.
        m_exitCode = ExitFailure;
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

void Runkest::startSweep(const QString& engine)
{
    const int atOnce = processCount();
    m_component.printer().printText(
        QStringLiteral("Solving %1 frequencies, %2 at once").arg(m_deck->count()).arg(atOnce));
    m_component.printer().printPercentage(Marker::Percentage, 0);
    m_component.printer().printPercentage(Marker::TotalPercentage, PreparedPercentage);
    m_component.printer().printText(SweepReport::tableHeader());
    m_sweep = std::make_unique<Sweep>(*m_deck, engine, atOnce,
                                      m_component.preprocessor().model().hasVoltageSource);
    connect(m_sweep.get(), &Sweep::solved, this, &Runkest::takeResult);
    connect(m_sweep.get(), &Sweep::failed, this,
            [this](const QString& reason) { fail(FindingKind::EngineFailed, reason); });
    connect(m_sweep.get(), &Sweep::ended, this, &Runkest::endSweep);
    m_readerWatch.start();
    m_sweep->start();
}

int Runkest::processCount() const
{
    const CommandLine& line = m_component.commandLine();
    const QString name = line.has(OptionGroup::Runkest, QStringLiteral("-np"))
                             ? QStringLiteral("-np")
                             : QStringLiteral("-NP");
    bool isNumber = false;
    const int wanted = line.value(OptionGroup::Runkest, name).toInt(&isNumber);
    return qMin(isNumber ? wanted : QThread::idealThreadCount(), m_deck->count());
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
    m_component.printer().printText(SweepReport::tableLine(point));
    printProgress(index);
    checkReader();
}

void Runkest::printProgress(int index)
{
    const int share = SolvedPercentage - PreparedPercentage;
    const int done = index + 1;
    MarkerPrinter& printer = m_component.printer();
    printer.printPercentage(Marker::Percentage, 100 * done / m_deck->count());
    printer.printPercentage(Marker::TotalPercentage,
                            PreparedPercentage + share * done / m_deck->count());
}

void Runkest::endSweep(bool isComplete)
{
    if (isComplete && m_exitCode == ExitSuccess) {
        m_exitCode = writeResults() ? ExitSuccess : ExitFailure;
    }
    finish(m_exitCode);
}

bool Runkest::writeResults()
{
    if (!m_results.write(TableFile, m_report.csv()) || !m_results.commit()) {
        fail(FindingKind::ResultNotWritten, m_results.error());
        return false;
    }
    for (const QString& path : qAsConst(m_resultPaths)) {
        m_component.printer().print(Marker::File, QDir::toNativeSeparators(path));
    }
    m_component.findingPrinter().print(m_report.facts());
    m_component.printer().printPercentage(Marker::TotalPercentage, 100);
    return true;
}

void Runkest::stop(int signal)
{
    if (m_isFinished || m_exitCode != ExitSuccess) {
        return;
    }
    fail(FindingKind::Stopped, QString());
    m_exitCode = SignalBase + signal;
    if (m_sweep) {
        m_sweep->stop();
    } else {
        finish(m_exitCode);
    }
}

// Without a reader nobody wants the results: the run ends, quietly.
void Runkest::checkReader()
{
    if (m_component.printer().isReaderGone() && m_exitCode == ExitSuccess) {
        m_exitCode = ExitFailure;
        m_sweep->stop();
    }
}

void Runkest::fail(FindingKind kind, const QString& reason)
{
    m_component.findingPrinter().print(kind, {reason});
    m_exitCode = ExitFailure;
}

void Runkest::finish(int exitCode)
{
    m_isFinished = true;
    m_readerWatch.stop();
    Q_EMIT finished(exitCode);
}
