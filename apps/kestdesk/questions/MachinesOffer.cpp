#include "MachinesOffer.h"

#include "LocalMachines.h"
#include "MachinesDialog.h"

#include <common_UserQuery.h>

#include <QMessageBox>
#include <QWidget>

namespace {

const QString title = QStringLiteral("No machines");

bool useThisMachine(QWidget* window)
{
    LocalMachines machines;
    const QString error = machines.save();
    if (!error.isEmpty()) {
        common_UserQuery(title, error, common_UserQuery::Error, window, QString()).display();
    }
    return error.isEmpty();
}

} // namespace

bool MachinesOffer::ask(const QString& problem, QWidget* window)
{
    QString sentence = problem + QLatin1Char('.');
    sentence[0] = sentence.at(0).toUpper();
    common_UserQuery query(title,
                           sentence + QStringLiteral("\n\nUse this machine, with the line \"%1\", "
                                                     "or name others?")
                                          .arg(LocalMachines::line()),
                           common_UserQuery::Warning, window, QString());
    query.addOption(QStringLiteral("&Use this machine"), QMessageBox::AcceptRole,
                    common_UserQuery::EnterDefault);
    query.addOption(QStringLiteral("&Configure..."), QMessageBox::ActionRole);
    query.addOption(QStringLiteral("Cancel"), QMessageBox::RejectRole,
                    common_UserQuery::EscapeDefault);
    switch (query.display()) {
    case QMessageBox::AcceptRole:
        return useThisMachine(window);
    case QMessageBox::ActionRole:
        return MachinesDialog::edit(window);
    default:
        return false;
    }
}
