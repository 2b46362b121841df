// SPDX-License-Identifier: MIT
#include "SshProgram.h"

#include <ParentProcess.h>
#include <ProgramStart.h>
#include <RemoteShell.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>

#include <sys/wait.h>

namespace {

// What the parallel runtime gives: options of ssh, the host, the words of the command.
int hostPlace(int argc, char* argv[])
{
    int place = 1;
    while (place < argc && argv[place][0] == '-') {
        ++place;
    }
    return place;
}

QVector<QByteArray> sshWords(int argc, char* argv[])
{
    QVector<QByteArray> result = {suite::RemoteShell::program().toLocal8Bit()};
    const QStringList options = suite::SshProgram::options();
    for (const QString& option : options) {
        result.append(option.toUtf8());
    }
    result.append("--");
    for (int i = hostPlace(argc, argv); i < argc; ++i) {
        result.append(argv[i]);
    }
    return result;
}

// Whether the guard that started mpiexec is still above this process: if mpiexec ended first, some
// other process has taken its place.
bool isUnderGuard()
{
    const int guard = qEnvironmentVariableIntValue("KEST_GUARD");
    return guard == 0 || ParentProcess::isBelow(guard);
}

// As waitpid() gives it, however often signals interrupt the wait; none when the end of the process
// cannot be known.
std::optional<int> statusOf(qint64 process)
{
    int status = 0;
    pid_t ended = -1;
    do {
        ended = ::waitpid(static_cast<pid_t>(process), &status, 0);
    } while (ended < 0 && errno == EINTR);
    return ended == process ? std::make_optional(status) : std::nullopt;
}

int exitCodeOf(std::optional<int> status)
{
    return status && WIFEXITED(*status) ? WEXITSTATUS(*status) : EXIT_FAILURE;
}

} // namespace

// sshkest is what mpiexec starts a program on another host with: ssh, which asks nothing, notices
// when the host is gone, and leaves nothing behind when mpiexec is killed. mpiexec does not notice
// when ssh fails: a line on standard error says so, with the host's name.
int main(int argc, char* argv[])
{
    const int place = hostPlace(argc, argv);
    if (place >= argc) {
        std::fputs("usage: sshkest [options] HOST COMMAND\n", stderr);
        return EXIT_FAILURE;
    }
    ParentProcess::endWithIt();
    if (!isUnderGuard()) {
        return EXIT_FAILURE;
    }
    ProgramStart ssh;
    ssh.words = sshWords(argc, argv);
    ssh.group = ProgramStart::Group::Same;
    const ProgramStart::Result started = ssh.start();
    if (started.error != 0) {
        std::fprintf(stderr, "sshkest: '%s' cannot be reached, '%s' cannot be started, %s\n",
                     argv[place], ssh.words.constFirst().constData(), std::strerror(started.error));
        return EXIT_FAILURE;
    }
    const int code = exitCodeOf(statusOf(started.process));
    if (code != EXIT_SUCCESS) {
        std::fprintf(stderr, "sshkest: '%s' cannot be reached any more by ssh (code %d)%s\n",
                     argv[place], code, qPrintable(suite::SshProgram::advice(code)));
    }
    return code;
}
