// SPDX-License-Identifier: MIT
#include "MpiSweep.h"

#include "StopTimes.h"

#include <QCoreApplication>
#include <QSysInfo>

#include <utility>

namespace suite {

namespace {

constexpr int largestPart = 32 << 10;

// Start-up may take this many times the silence limit: each host is logged in to first.
constexpr int startFactor = 4;

// When all results are there the processes have nothing to do but end.
constexpr int patienceAtEnd = 3000; // ms

QString besideThisProgram(const QString& name)
{
    return QCoreApplication::applicationDirPath() + QLatin1Char('/') + name;
}

QString mpiexec()
{
    const QString chosen = qEnvironmentVariable("KEST_MPIEXEC");
    return chosen.isEmpty() ? QStringLiteral("mpiexec.hydra") : chosen;
}

} // namespace

MpiSweep::MpiSweep(SweepDeck deck, ParallelSetup setup, bool needsImpedance)
    : m_deck(std::move(deck))
    , m_setup(std::move(setup))
    , m_needsImpedance(needsImpedance)
    , m_processEnd({[this] { return m_process.isRunning() || m_process.isGroupAlive(); },
                    {},
                    [this] { m_process.killGroup(); }})
{
    // The guard sees by itself when this component is gone, and ends the others in good order.
    m_process.setLeftRunningAtExit();
    connect(&m_processEnd, &StagedEnd::ended, this, &MpiSweep::end);
    connect(&m_process, &FramedProcess::received, this, &MpiSweep::take);
    connect(&m_process, &FramedProcess::errorLineRead, this, &MpiSweep::takeErrorLine);
    connect(&m_process, &FramedProcess::silent, this, &MpiSweep::failSilent);
    connect(&m_process, &FramedProcess::broken, this, &MpiSweep::failBroken);
    connect(&m_process, &FramedProcess::ended, this, &MpiSweep::endProcess);
}

MpiSweep::~MpiSweep()
{
    m_process.killGroup();
}

void MpiSweep::start()
{
    m_process.startFramed(besideThisProgram(QStringLiteral("mpikest")), arguments(),
                          startFactor * Heartbeat::silenceLimit());
    m_setupBytes = Frame::of(Frame::Type::Setup, frameProtocol, m_deck,
                             static_cast<qint32>(m_setup.priority.level()))
                       .payload;
}

// mpiexec ends the run when the first process does not take its input as fast as it comes, so it
// gets no more than it asks for.
void MpiSweep::sendPart()
{
    const QByteArray part = m_setupBytes.left(largestPart);
    m_setupBytes.remove(0, part.size());
    m_process.send(Frame::of(Frame::Type::Part, m_setupBytes.isEmpty(), part));
}

// One process that fails must not have the others killed: they have folders to clear.
QStringList MpiSweep::arguments() const
{
    QStringList result = {mpiexec(), QStringLiteral("-disable-auto-cleanup"),
                          QStringLiteral("-launcher")};
    if (m_setup.machines) {
        result += {QStringLiteral("ssh"), QStringLiteral("-launcher-exec"),
                   besideThisProgram(QStringLiteral("sshkest")), QStringLiteral("-hosts"),
                   m_setup.machines->hostList()};
    } else {
        result += QStringLiteral("fork");
    }
    return result + QStringList{QStringLiteral("-n"), QString::number(m_setup.processes),
                                besideThisProgram(QStringLiteral("sweepkest"))};
}

void MpiSweep::stop()
{
    if (m_isStopping) {
        return;
    }
    m_isStopping = true;
    m_process.stopWatching();
    m_process.closeInput();
    m_processEnd.start(parallelRuntimeStopTimes);
}

void MpiSweep::take(const Frame& frame)
{
    QString text;
    qint32 rank = 0;
    switch (frame.type) {
    case Frame::Type::Hello:
    case Frame::Type::Next:
        sendPart();
        break;
    case Frame::Type::Result:
        takeResult(frame);
        break;
    case Frame::Type::Warning:
        if (frame.read(rank, text) && !m_isStopping) {
            Q_EMIT warned(QStringLiteral("on the host '%1' %2").arg(hostOf(rank), text));
        }
        break;
    case Frame::Type::Failure:
        frame.read(rank, text);
        fail(QStringLiteral("the host '%1' %2").arg(hostOf(rank), text));
        break;
    default:
        break;
    }
}

void MpiSweep::takeResult(const Frame& frame)
{
    qint32 index = 0;
    qint32 rank = 0;
    QString error;
    QByteArray bytes;
    const bool isRead = frame.read(index, rank, error, bytes);
    if (m_isStopping || !isRead || index < m_nextResult || index >= m_deck.count()) {
        return;
    }
    const EngineOutput output(bytes);
    if (error.isEmpty() && m_needsImpedance && !output.hasImpedance()) {
        error = noImpedanceError();
    }
    if (!error.isEmpty()) {
        fail(frequencyError(m_deck.frequency(index), error) +
             QStringLiteral(", on the host '%1'").arg(hostOf(rank)));
        return;
    }
    Q_EMIT arrived(index, output);
    m_waiting.emplace(index, output);
    reportResults();
}

void MpiSweep::reportResults()
{
    while (!m_isStopping && m_waiting.count(m_nextResult) != 0) {
        const EngineOutput output = m_waiting.at(m_nextResult);
        m_waiting.erase(m_nextResult);
        Q_EMIT solved(m_nextResult++, output);
    }
    if (!m_isStopping && m_nextResult == m_deck.count()) {
        m_process.stopWatching();
        QTimer::singleShot(patienceAtEnd, this, &MpiSweep::stop);
    }
}

// What the helpers say: mpiexec itself would wait for ever for a host that cannot be reached.
void MpiSweep::takeErrorLine(const QString& line)
{
    static const QString host = QStringLiteral("sshkest: ");
    static const QString runtime = QStringLiteral("mpikest: ");
    if (m_nextResult == m_deck.count()) {
        return;
    }
    if (line.startsWith(host)) {
        fail(QStringLiteral("the host ") + line.mid(host.size()));
    } else if (line.startsWith(runtime)) {
        fail(QStringLiteral("the parallel runtime %1, install the package mpich or name another "
                            "program in KEST_MPIEXEC")
                 .arg(line.mid(runtime.size())));
    }
}

// At the end mpiexec may have a word to say about processes that left.
void MpiSweep::failBroken(const QString& reason)
{
    if (m_nextResult < m_deck.count()) {
        fail(QStringLiteral("the parallel runtime says '%1'").arg(reason));
    }
}

void MpiSweep::failSilent()
{
    if (m_process.hasAnswered()) {
        fail(QStringLiteral("the host '%1' does not answer any more").arg(hostOf(0)));
        return;
    }
    const QString words = m_process.lastWords();
    fail(QStringLiteral("the parallel processes did not start on %1").arg(hostNames()) +
         (words.isEmpty() ? QString() : QStringLiteral(", ") + words));
}

void MpiSweep::fail(const QString& reason)
{
    if (!m_isStopping) {
        Q_EMIT failed(reason);
    }
    stop();
}

void MpiSweep::endProcess()
{
    if (m_isStopping || m_nextResult == m_deck.count()) {
        end();
        return;
    }
    const QString words = m_process.lastWords();
    fail(QStringLiteral("the parallel runtime ended early") +
         (words.isEmpty() ? QString() : QStringLiteral(", ") + words));
}

void MpiSweep::end()
{
    if (m_isEnded) {
        return;
    }
    m_isEnded = true;
    m_processEnd.cancel();
    Q_EMIT ended(m_nextResult == m_deck.count());
}

QString MpiSweep::hostOf(int rank) const
{
    return m_setup.machines ? m_setup.machines->hostOf(rank) : QSysInfo::machineHostName();
}

QString MpiSweep::hostNames() const
{
    if (!m_setup.machines) {
        return QStringLiteral("'%1'").arg(hostOf(0));
    }
    QStringList names;
    for (const MachinesFile::Entry& entry : m_setup.machines->hosts()) {
        names.append(QStringLiteral("'%1'").arg(entry.host));
    }
    return names.mid(0, 5).join(QStringLiteral(", ")) +
           (names.size() > 5 ? QStringLiteral(" and others") : QString());
}

} // namespace suite
