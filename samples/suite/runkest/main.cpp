#include "ComponentSetup.h"
#include "Runkest.h"

#include <KSignalHandler>

#include <QCoreApplication>

#include <csignal>

// runkest checks a model, solves it over its frequencies and writes the results beside it.
int main(int argc, char* argv[])
{
    suite::setupComponent();
    const QCoreApplication application(argc, argv);
    Runkest runkest;
    const std::optional<int> done = runkest.readCommandLine(QCoreApplication::arguments().mid(1));
    if (done) {
        return *done;
    }
    QObject::connect(&runkest, &Runkest::finished, &application, &QCoreApplication::exit,
                     Qt::QueuedConnection);
    QObject::connect(KSignalHandler::self(), &KSignalHandler::signalReceived, &runkest,
                     &Runkest::stop);
    for (const int signal : {SIGTERM, SIGINT}) {
        KSignalHandler::self()->watchSignal(signal);
    }
    QMetaObject::invokeMethod(&runkest, &Runkest::run, Qt::QueuedConnection);
    return QCoreApplication::exec();
}
