// Follows a solver that prints no markers: its lines become messages of a class of our own.

#include "IterationMessage.h"

#include <common_ActivePtr.h>
#include <common_ProcessRunner.h>
#include <common_ProcessRunnerObserver.h>

#include <QCoreApplication>
#include <QStringList>

#include <cstdio>

namespace {

void print(const common_IProcessMessage& message)
{
    const QByteArray text = message.getText().toLocal8Bit();
    switch (message.getType()) {
    case common_IProcessMessage::TotalPercentage:
        std::printf("    %s %% done\n", text.constData());
        break;
    case common_IProcessMessage::Warning:
        std::printf("Warning: %s\n", text.constData());
        break;
    case common_IProcessMessage::Error:
        std::printf("Error: %s\n", text.constData());
        break;
    default:
        std::printf("%s\n", text.constData());
    }
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    const QStringList command = QCoreApplication::arguments().mid(1);
    if (command.isEmpty()) {
        std::fputs("Usage: own-solver PROGRAM [ARGUMENT...]\n", stderr);
        return 2;
    }

    const common_ActivePtr<common_ProcessRunner<IterationMessage>> runner(
        new common_ProcessRunner<IterationMessage>);
    common_ProcessRunnerObserver observer(runner.get());
    observer.setMessageFunction(print);
    observer.setDoneFunction([&runner] { QCoreApplication::exit(runner->exitCode()); });
    observer.setFailedFunction([](const QString& program, const QStringList&, const QString& why) {
        std::fprintf(stderr, "%s: %s\n", qPrintable(program), qPrintable(why));
    });
    runner->setExecutable(command.first());
    runner->setArguments(command.mid(1));
    return runner->run() ? QCoreApplication::exec() : 2;
}
