// SPDX-License-Identifier: MIT
#include "MachinesOffer.h"

#include "LocalMachines.h"
#include "MachinesDialog.h"
#include "ReasonText.h"
#include "TwoWayQuestion.h"

#include <common_UserQuery.h>

#include <QCoreApplication>
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
    const TwoWayQuestion question = {
        title(),
        sentence + Texts::tr("\n\nUse this machine, with the line \"%1\", or name others?")
                       .arg(LocalMachines::line()),
        Texts::tr("&Use this machine"), Texts::tr("&Configure...")};
    switch (question.ask(window)) {
    case TwoWayQuestion::Answer::First:
        return useThisMachine(window);
    case TwoWayQuestion::Answer::Second:
        return MachinesDialog::edit(window);
    default:
        return false;
    }
}
