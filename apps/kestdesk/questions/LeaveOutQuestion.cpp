// SPDX-License-Identifier: MIT
#include "LeaveOutQuestion.h"

#include <VisibleText.h>

#include <QCoreApplication>

namespace {

/// Translates the texts of this file.
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(LeaveOutQuestion)
};

} // namespace

TwoWayQuestion::Answer LeaveOutQuestion::ask(int run, const QString& host, const QStringList& lines,
                                             QWidget* window)
{
    const TwoWayQuestion question = {
        Texts::tr("Run again without a host"),
        Texts::tr("Run %1 is run again exactly, but without the host %2: in the copy of its "
                  "machines file that the run gets, this is a comment.\n\n# %3\n\nYour "
                  "machines file stays as it is.")
            .arg(run)
            .arg(suite::visibleText(host), suite::visibleLines(lines.join(QStringLiteral("\n# ")))),
        Texts::tr("&Run again"), Texts::tr("Edit the &machines file...")};
    return question.ask(window);
}
