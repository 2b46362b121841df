#include "StopQuestion.h"

#include "Run.h"

#include <VisibleText.h>

#include <common_UserQuery.h>

#include <QMessageBox>

namespace {

bool isYes(const QString& title, const QString& question, QWidget* window)
{
    common_UserQuery query(title, question, common_UserQuery::Warning, window, QString());
    query.addOption(QStringLiteral("Yes"), QMessageBox::YesRole, common_UserQuery::EnterDefault);
    query.addOption(QStringLiteral("No"), QMessageBox::NoRole, common_UserQuery::EscapeDefault);
    return query.display() == QMessageBox::YesRole;
}

bool isYesOnClose(const QString& question, QWidget* window)
{
    return isYes(QStringLiteral("Runs are still going"), question, window);
}

} // namespace

bool StopQuestion::agreesToStop(const Run& run, QWidget* window)
{
    return isYes(QStringLiteral("Stop a run"),
                 QStringLiteral("Are you sure you want to stop %1 of %2?")
                     .arg(run.componentName(), suite::visibleFileName(run.model())),
                 window);
}

bool StopQuestion::agreesToQuit(int runs, QWidget* window)
{
    return isYesOnClose(
        QStringLiteral("Runs that are still going: %1. Stop them and quit?").arg(runs), window);
}

bool StopQuestion::agreesToForce(int runs, QWidget* window)
{
    return isYesOnClose(
        QStringLiteral("Runs that did not stop yet: %1. End them by force and quit?").arg(runs),
        window);
}
