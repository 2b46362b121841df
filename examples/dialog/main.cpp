// Runs a solver component, or another program that prints its markers, in the process dialog.

#include <common_ActivePtr.h>
#include <common_DefaultServices.h>
#include <common_KestProcessDialog.h>
#include <common_ProcessRunner.h>
#include <common_ProcessRunnerObserver.h>
#include <common_ServiceCheck.h>

#include <QApplication>
#include <QPointer>
#include <QPushButton>
#include <QStringList>

#include <cstdio>

namespace {

constexpr auto services = common_ServiceCheck::ProcessDialog;

// "valid" or "fault", as the dialog shows on its button.
QByteArray outcomeOf(const common_KestProcessDialog& dialog)
{
    const auto* const ok = dialog.findChild<QPushButton*>(QStringLiteral("buttonOk"));
    return ok->property("squishValue").toByteArray();
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QStringList command = QApplication::arguments().mid(1);
    const bool closes = command.removeOne(QStringLiteral("--close")); // by itself, at the end
    if (command.isEmpty()) {
        std::fputs("Usage: dialog [--close] PROGRAM [ARGUMENT...]\n", stderr);
        return 2;
    }

    const common_DefaultServices defaultServices(QStringLiteral("Dialog example"));
    const QString problem = common_ServiceCheck::problem(services); // if you set your own
    if (!problem.isEmpty()) {
        qFatal("%s", qPrintable(problem));
    }

    using Runner = common_ProcessRunner<common_KestProcessMessage>;
    const common_ActivePtr<Runner> runner(new Runner);
    const QPointer<common_KestProcessDialog> dialog = new common_KestProcessDialog(runner, nullptr);
    common_ProcessRunnerObserver observer(runner.get());
    observer.setDoneFunction([dialog, closes] { // after the dialog, which observed first
        if (dialog) {                           // the user may have closed it, which deletes it
            std::printf("%s\n", outcomeOf(*dialog).constData());
            std::fflush(stdout);
            if (closes) {
                dialog->close();
            }
        }
    });
    runner->setExecutable(command.first());
    runner->setArguments(command.mid(1));
    const int result = runner->run() ? QApplication::exec() : 2;
    delete dialog;
    return result;
}
