#include "ChildProcess.h"

#include <unistd.h>
#ifdef Q_OS_LINUX
#include <sys/prctl.h>
#endif

namespace suite {

ChildProcess::ChildProcess(QObject* parent) : QProcess(parent)
{}

void ChildProcess::startInGroup(const QString& program, const QStringList& arguments)
{
    m_parent = ::getpid();
    start(program, arguments);
    m_group = processId();
    if (m_group > 0) {
        // The child does the same; whoever comes first, the group is there from now on.
        ::setpgid(static_cast<pid_t>(m_group), static_cast<pid_t>(m_group));
    }
}

void ChildProcess::signalGroup(int signal) const
{
    if (m_group > 0) {
        ::kill(static_cast<pid_t>(-m_group), signal);
    }
}

bool ChildProcess::isGroupAlive() const
{
    return m_group > 0 && ::kill(static_cast<pid_t>(-m_group), 0) == 0;
}

// Runs in the child: only calls that are safe between fork and exec.
void ChildProcess::setupChildProcess()
{
    ::setpgid(0, 0);
    for (const int signal : {SIGPIPE, SIGXFSZ}) {
        std::signal(signal, SIG_DFL);
    }
#ifdef Q_OS_LINUX
    ::prctl(PR_SET_PDEATHSIG, m_deathSignal);
    if (::getppid() != static_cast<pid_t>(m_parent)) {
        // The parent was killed before the line above could take effect.
        ::_exit(1);
    }
#endif
}

} // namespace suite
