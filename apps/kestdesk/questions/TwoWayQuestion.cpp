// SPDX-License-Identifier: MIT
#include "TwoWayQuestion.h"

#include <common_UserQuery.h>

#include <QCoreApplication>
#include <QMessageBox>
#include <QWidget>

namespace {

/// Translates the texts of this file.
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(TwoWayQuestion)
};

} // namespace

TwoWayQuestion::Answer TwoWayQuestion::ask(QWidget* window) const
{
    common_UserQuery query(title, text, common_UserQuery::Warning, window, QString());
    if (!first.isEmpty()) {
        query.addOption(first, QMessageBox::AcceptRole, common_UserQuery::EnterDefault);
    }
    if (!second.isEmpty()) {
        query.addOption(second, QMessageBox::ActionRole);
    }
    query.addOption(Texts::tr("Cancel"), QMessageBox::RejectRole, common_UserQuery::EscapeDefault);
    switch (query.display()) {
    case QMessageBox::AcceptRole:
        return Answer::First;
    case QMessageBox::ActionRole:
        return Answer::Second;
    default:
        return Answer::Cancel;
    }
}
