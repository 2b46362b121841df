// SPDX-License-Identifier: MIT
#include "RemoteRun.h"
#include "RemoteServer.h"
#include "Runkest.h"

#include <ProgramArguments.h>
#include <WriteFailures.h>

#include <QCoreApplication>

// runkest checks a model, solves it over its frequencies and writes the results beside it, here or
// on another host.
int main(int argc, char* argv[])
{
    WriteFailures::report();
    const QCoreApplication application(argc, argv);
    const QStringList arguments = suite::ProgramArguments::given(argc, argv);
    if (arguments == QStringList(QStringLiteral("--remote-session"))) {
        return RemoteServer::serve();
    }
    if (RemoteRun::isAskedFor(arguments)) {
        RemoteRun run;
        return suite::runComponent(run, arguments);
    }
    Runkest runkest;
    return suite::runComponent(runkest, arguments);
}
