// SPDX-License-Identifier: MIT
#include "Dealer.h"
#include "Worker.h"

#include <StopSignals.h>
#include <WriteFailures.h>

#include <QCoreApplication>

#include <csignal>

#include <fcntl.h>
#include <mpi.h>
#include <unistd.h>

namespace {

constexpr int lastMessageTime = 50; // ms

// Standard output is for frames only: what libraries print goes to standard error.
int takeStandardOutput()
{
    const int own = ::fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    ::dup2(STDERR_FILENO, STDOUT_FILENO);
    return own;
}

// The messages are small and few. Plain sockets are fast enough for them, work between any hosts
// and leave nothing behind when a process is killed; shared memory would. The user may choose
// otherwise.
void chooseTransport()
{
    struct Row
    {
        const char* variable;
        const char* value;
    };
    static constexpr Row table[] = {{"UCX_TLS", "tcp,self"}, {"MPIR_CVAR_NOLOCAL", "1"}};
    for (const Row& row : table) {
        if (qEnvironmentVariableIsEmpty(row.variable)) {
            qputenv(row.variable, row.value);
        }
    }
}

// The processes part without MPI_Finalize(): it waits for all the others, one that is lost
// included, and over a network, with the last messages on their way, even when none is.
void leave(int exitCode)
{
    QTimer::singleShot(lastMessageTime, QCoreApplication::instance(),
                       [exitCode] { std::_Exit(exitCode); });
}

// On a host that was cut off the process that started this one may wait for ever to get rid of the
// last output.
void endStarter()
{
    if (::getppid() > 1) {
        ::kill(::getppid(), SIGKILL);
    }
}

void connectEnds(SweepRank& rank)
{
    QObject::connect(&rank, &SweepRank::finished, &rank, [] { leave(EXIT_SUCCESS); });
    QObject::connect(&rank, &SweepRank::stopped, &rank, [&rank] {
        if (rank.isAbandoned()) {
            endStarter();
        }
        leave(EXIT_FAILURE);
    });
    StopSignals::watch(&rank, [&rank] { rank.stop(); });
}

} // namespace

// sweepkest is one of the processes of a parallel sweep. It is started by mpiexec and speaks with
// the component that started mpiexec.
int main(int argc, char* argv[])
{
    WriteFailures::report();
    // The parallel runtime's way to say that another process has failed.
    std::signal(SIGUSR1, SIG_IGN);
    const int output = takeStandardOutput();
    chooseTransport();
    MPI_Init(&argc, &argv);
    const QCoreApplication application(argc, argv);
    MpiLink link;
    std::unique_ptr<SweepRank> rank;
    if (link.rank() == 0) {
        rank = std::make_unique<Dealer>(link, output);
    } else {
        rank = std::make_unique<Worker>(link);
    }
    connectEnds(*rank);
    return QCoreApplication::exec();
}
