// SPDX-License-Identifier: MIT
#include "ProgramStart.h"

#include "Pipe.h"

#include <cerrno>
#include <cstdlib>

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

// Where children are ignored nobody learns how they end.
void keepEndsOfChildren()
{
    struct sigaction action = {};
    if (::sigaction(SIGCHLD, nullptr, &action) == 0 && action.sa_handler == SIG_IGN) {
        std::signal(SIGCHLD, SIG_DFL);
    }
}

// All below runs in the new process: only calls that are safe between fork and exec.

void enterGroup(ProgramStart::Group group)
{
    if (group == ProgramStart::Group::Session) {
        ::setsid();
    } else if (group == ProgramStart::Group::Own) {
        ::setpgid(0, 0);
    }
}

// One may stand where another shall be, so all are put out of the way first.
bool connectChannels(std::array<int, 3> channels)
{
    for (int& channel : channels) {
        if (channel != ProgramStart::inherited) {
            channel = ::fcntl(channel, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
            if (channel < 0) {
                return false;
            }
        }
    }
    for (int number = STDIN_FILENO; number <= STDERR_FILENO; ++number) {
        const int channel = channels[static_cast<std::size_t>(number)];
        if (channel != ProgramStart::inherited && ::dup2(channel, number) < 0) {
            return false;
        }
    }
    return true;
}

bool becomeProgram(const ProgramStart& start, char* const* words)
{
    enterGroup(start.group);
    for (const int number : {SIGPIPE, SIGXFSZ}) {
        std::signal(number, SIG_DFL);
    }
    if (start.niceValue) {
        ::setpriority(PRIO_PROCESS, 0, *start.niceValue);
    }
    if (!connectChannels(start.channels) ||
        (!start.folder.isEmpty() && ::chdir(start.folder.constData()) != 0)) {
        return false;
    }
    ::execvp(words[0], words);
    return false;
}

// The signal first: a parent that ends behind it is noticed by the system, one that ended before
// is not the parent any more. Nothing in between waits for the parent.
void endWithParent(int signal, pid_t parent)
{
    ::prctl(PR_SET_PDEATHSIG, signal);
    if (::getppid() != parent) {
        ::_exit(EXIT_FAILURE);
    }
}

[[noreturn]] void run(const ProgramStart& start, char* const* words, pid_t parent, int report)
{
    endWithParent(start.deathSignal, parent);
    becomeProgram(start, words);
    const int error = errno;
    [[maybe_unused]] const ssize_t written = ::write(report, &error, sizeof error);
    ::_exit(EXIT_FAILURE);
}

// 0 when the pipe was closed by the program's start.
int errorFrom(const Descriptor& report)
{
    int error = 0;
    ssize_t size = -1;
    do {
        size = ::read(report.number(), &error, sizeof error);
    } while (size < 0 && errno == EINTR);
    return size == sizeof error ? error : 0;
}

} // namespace

ProgramStart::Result ProgramStart::start() const
{
    QVector<char*> pointers;
    for (const QByteArray& word : words) {
        pointers.append(const_cast<char*>(word.constData()));
    }
    pointers.append(nullptr);
    std::optional<Pipe> report = Pipe::make();
    if (!report) {
        return {0, errno};
    }
    keepEndsOfChildren();
    char* const* const list = pointers.constData();
    const pid_t parent = ::getpid();
    const pid_t process = ::fork();
    if (process < 0) {
        return {0, errno};
    }
    if (process == 0) {
        run(*this, list, parent, report->writeEnd.number());
    }
    report->writeEnd.close();
    const int error = errorFrom(report->readEnd);
    if (error != 0) {
        ::waitpid(process, nullptr, 0);
        return {0, error};
    }
    return {process, 0};
}
