#include "ChildProcess.h"

#include <pthread.h>
#include <unistd.h>
#ifdef Q_OS_LINUX
#include <sys/prctl.h>
#endif

namespace suite {

namespace {

// Of this process, once it starts others; the new one has it from the fork.
pid_t forkingProcess = 0;

// QProcess makes a new process wait for its parent before setupChildProcess() is called: a parent
// that is killed in between would leave it waiting for ever. So this runs within the fork.
void endWithParent()
{
#ifdef Q_OS_LINUX
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (forkingProcess != 0 && ::getppid() != forkingProcess) {
        ::_exit(1);
    }
#endif
}

} // namespace

ChildProcess::ChildProcess(QObject* parent) : QProcess(parent)
{
    static const int registered = ::pthread_atfork(nullptr, nullptr, endWithParent);
    Q_UNUSED(registered)
}

void ChildProcess::startInGroup(const QString& program, const QStringList& arguments)
{
    m_parent = ::getpid();
    forkingProcess = static_cast<pid_t>(m_parent);
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
