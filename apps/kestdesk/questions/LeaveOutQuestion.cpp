// SPDX-License-Identifier: MIT
#include "LeaveOutQuestion.h"

#include <VisibleText.h>

#include <common_UserQuery.h>

#include <QCoreApplication>
#include <QMessageBox>
#include <QWidget>

namespace {

/// Translates the texts of this file.
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(LeaveOutQuestion)
};

} // namespace

LeaveOutQuestion::Answer LeaveOutQuestion::ask(int run, const QString& host,
                                               const QStringList& lines, QWidget* window)
{
    common_UserQuery query(
        Texts::tr("Run again without a host"),
        Texts::tr("Run %1 is run again exactly, but without the host %2: in the copy of its "
                  "machines file that the run gets, this is a comment.\n\n# %3\n\nYour "
                  "machines file stays as it is.")
            .arg(run)
            .arg(suite::visibleText(host), suite::visibleLines(lines.join(QStringLiteral("\n# ")))),
        common_UserQuery::Warning, window, QString());
    query.addOption(Texts::tr("&Run again"), QMessageBox::AcceptRole,
                    common_UserQuery::EnterDefault);
    query.addOption(Texts::tr("Edit the &machines file..."), QMessageBox::ActionRole);
    query.addOption(Texts::tr("Cancel"), QMessageBox::RejectRole, common_UserQuery::EscapeDefault);
    switch (query.display()) {
    case QMessageBox::AcceptRole:
        return Answer::RunAgain;
    case QMessageBox::ActionRole:
        return Answer::EditFile;
    default:
        return Answer::Cancel;
    }
}
