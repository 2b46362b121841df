#include "SshProgram.h"

#include <RemoteShell.h>

#include <QFile>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <string>
#include <vector>

#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

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

std::vector<std::string> sshWords(int argc, char* argv[])
{
    std::vector<std::string> result = {suite::RemoteShell::program().toLocal8Bit().toStdString()};
    const QStringList options = suite::SshProgram::options();
    for (const QString& option : options) {
        result.push_back(option.toStdString());
    }
    result.emplace_back("--");
    for (int i = hostPlace(argc, argv); i < argc; ++i) {
        result.emplace_back(argv[i]);
    }
    return result;
}

pid_t parentOf(pid_t process)
{
    QFile file(QStringLiteral("/proc/%1/stat").arg(process));
    const QByteArray text = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    // The program's name in brackets may hold anything.
    return text.mid(text.lastIndexOf(')') + 2).split(' ').value(1).toInt();
}

// Whether the guard that started mpiexec is still above this process: if mpiexec ended first, some
// other process has taken its place.
bool isUnderGuard()
{
    const int guard = qEnvironmentVariableIntValue("KEST_GUARD");
    pid_t process = ::getppid();
    while (guard != 0 && process > 1 && process != guard) {
        process = parentOf(process);
    }
    return process > 1;
}

// As waitpid() gives it, however often signals interrupt the wait; none when the end of the process
// cannot be known.
std::optional<int> statusOf(pid_t process)
{
    int status = 0;
    pid_t ended = -1;
    do {
        ended = ::waitpid(process, &status, 0);
    } while (ended < 0 && errno == EINTR);
    return ended == process ? std::make_optional(status) : std::nullopt;
}

int exitCodeOf(std::optional<int> status)
{
    return status && WIFEXITED(*status) ? WEXITSTATUS(*status) : EXIT_FAILURE;
}

void endWithParent()
{
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
}

[[noreturn]] void becomeSsh(std::vector<std::string> words)
{
    std::vector<char*> pointers;
    pointers.reserve(words.size() + 1);
    for (std::string& word : words) {
        pointers.push_back(word.data());
    }
    pointers.push_back(nullptr);
    ::execvp(pointers.front(), pointers.data());
    std::perror(pointers.front());
    std::_Exit(EXIT_FAILURE);
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
    endWithParent();
    if (!isUnderGuard()) {
        return EXIT_FAILURE;
    }
    // Where children are ignored nobody knows how they end.
    std::signal(SIGCHLD, SIG_DFL);
    const pid_t parent = ::getpid();
    const pid_t child = ::fork();
    if (child < 0) {
        std::fprintf(stderr, "sshkest: '%s' cannot be reached, no process can be started, %s\n",
                     argv[place], std::strerror(errno));
        return EXIT_FAILURE;
    }
    if (child == 0) {
        endWithParent();
        if (::getppid() != parent) {
            std::_Exit(EXIT_FAILURE);
        }
        becomeSsh(sshWords(argc, argv));
    }
    const int code = exitCodeOf(statusOf(child));
    if (code != EXIT_SUCCESS) {
        std::fprintf(stderr, "sshkest: '%s' cannot be reached any more by ssh (code %d)\n",
                     argv[place], code);
    }
    return code;
}
