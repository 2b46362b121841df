// SPDX-License-Identifier: MIT
#include "MachinesOffer.h"

#include "LocalMachines.h"
#include "MachinesDialog.h"
#include "ReasonText.h"

#include <common_UserQuery.h>

#include <QCoreApplication>
#include <QMessageBox>
#include <QWidget>

namespace {

/// Translates the texts of this file.
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(MachinesOffer)
};

QString title()
{
    return Texts::tr("No machines");
}

bool useThisMachine(QWidget* window)
{
    LocalMachines machines;
    const QString error = machines.save();
    if (!error.isEmpty()) {
        common_UserQuery(title(), error, common_UserQuery::Error, window, QString()).display();
    }
    return error.isEmpty();
}

} // namespace

bool MachinesOffer::ask(const QString& problem, QWidget* window)
{
    QString sentence = ReasonText::shown(problem) + QLatin1Char('.');
    sentence[0] = sentence.at(0).toUpper();
    common_UserQuery query(title(),
                           sentence + Texts::tr("\n\nUse this machine, with the line \"%1\", "
                                                "or name others?")
                                          .arg(LocalMachines::line()),
                           common_UserQuery::Warning, window, QString());
    query.addOption(Texts::tr("&Use this machine"), QMessageBox::AcceptRole,
                    common_UserQuery::EnterDefault);
    query.addOption(Texts::tr("&Configure..."), QMessageBox::ActionRole);
    query.addOption(Texts::tr("Cancel"), QMessageBox::RejectRole, common_UserQuery::EscapeDefault);
    switch (query.display()) {
    case QMessageBox::AcceptRole:
        return useThisMachine(window);
    case QMessageBox::ActionRole:
        return MachinesDialog::edit(window);
    default:
        return false;
    }
}
