#include "EngineProcess.h"

#include <csignal>

#include <unistd.h>
#ifdef Q_OS_LINUX
#include <sys/prctl.h>
#endif

namespace suite {

namespace {

constexpr int MostPrintedBytes = 4096;

} // namespace

EngineProcess::EngineProcess(QObject* parent) : QProcess(parent)
{
    setProcessChannelMode(QProcess::MergedChannels);
    setStandardInputFile(QProcess::nullDevice());
    connect(this, &QProcess::readyReadStandardOutput, this, &EngineProcess::drain);
}

void EngineProcess::startEngine(const QString& program, const QString& deckFile,
                                const QString& outputFile)
{
    m_parent = ::getpid();
    start(program, {QStringLiteral("-i"), deckFile, QStringLiteral("-o"), outputFile});
    m_group = processId();
    if (m_group > 0) {
        // The child does the same; whoever comes first, the group is there from now on.
        ::setpgid(static_cast<pid_t>(m_group), static_cast<pid_t>(m_group));
    }
}

void EngineProcess::signalGroup(int signal) const
{
    if (m_group > 0) {
        ::kill(static_cast<pid_t>(-m_group), signal);
    }
}

bool EngineProcess::isGroupAlive() const
{
    return m_group > 0 && ::kill(static_cast<pid_t>(-m_group), 0) == 0;
}

QString EngineProcess::printedText() const
{
    return QString::fromUtf8(m_printed).simplified();
}

// Runs in the child: only calls that are safe between fork and exec.
void EngineProcess::setupChildProcess()
{
    ::setpgid(0, 0);
    std::signal(SIGXFSZ, SIG_DFL);
#ifdef Q_OS_LINUX
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (::getppid() != static_cast<pid_t>(m_parent)) {
        // The parent was killed before the line above could take effect.
        ::_exit(1);
    }
#endif
}

void EngineProcess::drain()
{
    const QByteArray bytes = readAllStandardOutput();
    m_printed += bytes.left(MostPrintedBytes - m_printed.size());
}

} // namespace suite
