#include "Sweep.h"

#include "EngineProcess.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <utility>

namespace suite {

namespace {

constexpr StopTimes EngineStopTimes = {300, 700};
constexpr qint64 LargestOutput = 256 << 20;

// Results that wait for an earlier frequency take memory: no more of them than this many a process.
constexpr int MostWaitingPerProcess = 16;

} // namespace

Sweep::Sweep(SweepDeck deck, QString engine, int atOnce, bool needsImpedance)
    : m_deck(std::move(deck))
    , m_engine(std::move(engine))
    , m_atOnce(atOnce)
    , m_needsImpedance(needsImpedance)
    , m_folder(QDir::tempPath() + QStringLiteral("/kest-sweep-XXXXXX"))
    , m_processes(EngineStopTimes)
{
    connect(&m_processes, &ChildProcesses::allEnded, this, &Sweep::endStopped);
}

void Sweep::start()
{
    if (!m_folder.isValid()) {
        Q_EMIT failed(QStringLiteral("no temporary folder can be made in '%1', %2")
                          .arg(QDir::tempPath(), m_folder.errorString()));
        stop();
        return;
    }
    startJobs();
}

void Sweep::stop()
{
    if (m_stopping) {
        return;
    }
    m_stopping = true;
    m_processes.stop();
}

void Sweep::startJobs()
{
    const int horizon = m_nextResult + m_atOnce * MostWaitingPerProcess;
    while (!m_stopping && m_nextStart < qMin(m_deck.count(), horizon) &&
           m_processes.count() < m_atOnce) {
        startJob(m_nextStart++);
    }
}

void Sweep::startJob(int index)
{
    QFile file(filePath(index, QStringLiteral("nec")));
    const QByteArray deck = m_deck.deck(index);
    if (!file.open(QIODevice::WriteOnly) || file.write(deck) != deck.size() || !file.flush()) {
        fail(index, QStringLiteral("the deck '%1' cannot be written, %2")
                        .arg(file.fileName(), file.errorString()));
        return;
    }
    auto process = std::make_unique<EngineProcess>();
    process->setWorkingDirectory(m_folder.path());
    connect(process.get(), qOverload<int, QProcess::ExitStatus>(&QProcess::finished), this,
            [this, index] { finishJob(index); });
    connect(
        process.get(), &QProcess::errorOccurred, this,
        [this, index](QProcess::ProcessError error) { checkStart(index, error); },
        Qt::QueuedConnection);
    EngineProcess& started = *process;
    m_processes.add(index, std::move(process));
    started.startEngine(m_engine, QFileInfo(file).fileName(),
                        QFileInfo(filePath(index, QStringLiteral("out"))).fileName());
}

void Sweep::checkStart(int index, QProcess::ProcessError error)
{
    if (error == QProcess::FailedToStart && !m_stopping) {
        fail(index, QStringLiteral("the engine '%1' cannot be started").arg(m_engine));
    }
}

void Sweep::finishJob(int index)
{
    if (m_stopping) {
        return;
    }
    const auto* process = static_cast<EngineProcess*>(m_processes.release(index));
    QString error;
    const EngineOutput output(readOutput(index, error));
    const QString exitProblem = exitError(*process, output);
    if (!exitProblem.isEmpty() || !error.isEmpty()) {
        fail(index, exitProblem.isEmpty() ? error : exitProblem);
        return;
    }
    if (m_needsImpedance && !output.hasImpedance()) {
        fail(index, QStringLiteral("the engine gave no input impedance that is a number"));
        return;
    }
    m_waiting.emplace(index, output);
    tellResults();
}

void Sweep::tellResults()
{
    while (!m_stopping && m_waiting.count(m_nextResult) != 0) {
        const EngineOutput output = m_waiting.at(m_nextResult);
        m_waiting.erase(m_nextResult);
        Q_EMIT solved(m_nextResult++, output);
    }
    if (m_stopping) {
        return;
    }
    if (m_nextResult == m_deck.count()) {
        m_stopping = true;
        Q_EMIT ended(true);
        return;
    }
    startJobs();
}

void Sweep::fail(int index, const QString& reason)
{
    if (!m_stopping) {
        Q_EMIT failed(QStringLiteral("at %1 MHz %2")
                          .arg(QString::number(m_deck.frequency(index), 'g', 10), reason));
    }
    stop();
}

QByteArray Sweep::readOutput(int index, QString& error) const
{
    const QString path = filePath(index, QStringLiteral("out"));
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        error = QStringLiteral("the engine wrote no output");
        return {};
    }
    QByteArray bytes = file.read(LargestOutput + 1);
    if (bytes.size() > LargestOutput) {
        error = QStringLiteral("the engine's output is too large");
    }
    file.close();
    QFile::remove(path);
    QFile::remove(filePath(index, QStringLiteral("nec")));
    return bytes;
}

// Empty when the engine ended well.
QString Sweep::exitError(const EngineProcess& process, const EngineOutput& output) const
{
    QString how;
    if (process.exitStatus() == QProcess::CrashExit) {
        how = QStringLiteral("the engine crashed");
    } else if (process.exitCode() != 0) {
        how = QStringLiteral("the engine ended with code %1").arg(process.exitCode());
    } else {
        return {};
    }
    QStringList parts = {how};
    parts += output.complaints();
    if (!process.printedText().isEmpty()) {
        parts += process.printedText();
    }
    return parts.join(QStringLiteral(", "));
}

QString Sweep::filePath(int index, const QString& suffix) const
{
    return m_folder.filePath(QStringLiteral("f%1.%2").arg(index + 1).arg(suffix));
}

void Sweep::endStopped()
{
    m_folder.remove();
    Q_EMIT ended(false);
}

} // namespace suite
