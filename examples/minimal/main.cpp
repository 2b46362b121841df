// Runs a program and prints each of its messages: the number of its type, and its text.

#include <common_ActivePtr.h>
#include <common_IProcessMessage.h>
#include <common_ProcessRunner.h>
#include <common_ProcessRunnerObserver.h>

#include <QCoreApplication>
#include <QStringList>

#include <cstdio>

int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    const QStringList command = QCoreApplication::arguments().mid(1);
    if (command.isEmpty()) {
        std::fputs("Usage: minimal PROGRAM [ARGUMENT...]\n", stderr);
        return 2;
    }

    using Runner = common_ProcessRunner<common_KestProcessMessage>;
    const common_ActivePtr<Runner> runner(new Runner);
    common_ProcessRunnerObserver observer(runner.get());
    observer.setMessageFunction([](const common_IProcessMessage& message) {
        std::printf("%d %s\n", message.getType(), qPrintable(message.getText()));
    });
    observer.setFailedFunction([](const QString& program, const QStringList&, const QString& why) {
        std::fprintf(stderr, "%s: %s\n", qPrintable(program), qPrintable(why));
    });
    observer.setDoneFunction([&runner] { QCoreApplication::exit(runner->normalExit() ? 0 : 1); });

    runner->setExecutable(command.first()); // without a folder, it is searched for in the PATH
    runner->setArguments(command.mid(1));
    return runner->run() ? QCoreApplication::exec() : 2;
}
