#include "ParallelGuard.h"

#include <WriteFailures.h>

#include <KSignalHandler>

#include <QCoreApplication>

#include <csignal>

// mpikest PROGRAM ARGUMENTS... starts mpiexec for a component and ends it with the component.
int main(int argc, char* argv[])
{
    WriteFailures::report();
    const QCoreApplication application(argc, argv);
    const QStringList words = QCoreApplication::arguments().mid(1);
    ParallelGuard guard;
    QObject::connect(&guard, &ParallelGuard::finished, QCoreApplication::instance(),
                     &QCoreApplication::exit, Qt::QueuedConnection);
    QObject::connect(KSignalHandler::self(), &KSignalHandler::signalReceived, &guard,
                     &ParallelGuard::stop);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        KSignalHandler::self()->watchSignal(signal);
    }
    // By this sshkest knows its own.
    qputenv("KEST_GUARD", QByteArray::number(QCoreApplication::applicationPid()));
    guard.start(words.value(0), words.mid(1));
    return QCoreApplication::exec();
}
