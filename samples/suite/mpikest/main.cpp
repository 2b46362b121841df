// SPDX-License-Identifier: MIT
#include "ParallelGuard.h"

#include <StopSignals.h>
#include <WriteFailures.h>

#include <QCoreApplication>

// mpikest PROGRAM ARGUMENTS... starts mpiexec for a component and ends it with the component.
int main(int argc, char* argv[])
{
    WriteFailures::report();
    const QCoreApplication application(argc, argv);
    const QStringList words = QCoreApplication::arguments().mid(1);
    ParallelGuard guard;
    QObject::connect(&guard, &ParallelGuard::finished, QCoreApplication::instance(),
                     &QCoreApplication::exit, Qt::QueuedConnection);
    StopSignals::watch(&guard, [&guard] { guard.stop(); });
    // By this sshkest knows its own.
    qputenv("KEST_GUARD", QByteArray::number(QCoreApplication::applicationPid()));
    guard.start(words.value(0), words.mid(1));
    return QCoreApplication::exec();
}
