#include "LeaveOutQuestion.h"

#include <VisibleText.h>

#include <common_UserQuery.h>

#include <QMessageBox>
#include <QWidget>

LeaveOutQuestion::Answer LeaveOutQuestion::ask(int run, const QString& host,
                                               const QStringList& lines, QWidget* window)
{
    common_UserQuery query(
        QStringLiteral("Run again without a host"),
        QStringLiteral("Run %1 is run again exactly, but without the host %2: in the copy of its "
                       "machines file that the run gets, this is a comment.\n\n# %3\n\nYour "
                       "machines file stays as it is.")
            .arg(run)
            .arg(suite::visibleText(host), suite::visibleLines(lines.join(QStringLiteral("\n# ")))),
        common_UserQuery::Warning, window, QString());
    query.addOption(QStringLiteral("&Run again"), QMessageBox::AcceptRole,
                    common_UserQuery::EnterDefault);
    query.addOption(QStringLiteral("Edit the &machines file..."), QMessageBox::ActionRole);
    query.addOption(QStringLiteral("Cancel"), QMessageBox::RejectRole,
                    common_UserQuery::EscapeDefault);
    switch (query.display()) {
    case QMessageBox::AcceptRole:
        return Answer::RunAgain;
    case QMessageBox::ActionRole:
        return Answer::EditFile;
    default:
        return Answer::Cancel;
    }
}
