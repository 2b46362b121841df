// SPDX-License-Identifier: MIT
#include "PercentageText.h"

#include "Quoted.h"

#include <QCoreApplication>
#include <QRegularExpression>

namespace {

constexpr int complete = 100;

QString written(const QString& body)
{
    return body.trimmed().isEmpty() ? QCoreApplication::translate("Remark", "no number")
                                    : quoted(body);
}

} // namespace

QVector<Remark> PercentageText::remarks(const QString& body, const QString& number)
{
    static const QRegularExpression whole(
        QStringLiteral("^\\s*\\+?[0-9]+\\s*$|^[^0-9%]*?(?<![-+.,0-9eE])[0-9]{1,3}%"));
    if (!whole.match(body).hasMatch()) {
        return {{Remark::Kind::PercentageMisread,
                 QCoreApplication::translate(
                     "Remark", "%1 is read as %2: only whole numbers of up to three digits "
                               "directly in front of \"%\" count")
                     .arg(written(body), number)}};
    }
    if (number.toInt() > complete) {
        return {{Remark::Kind::OutOfRange,
                 QCoreApplication::translate("Remark", "%1 % is ignored: it is more than 100")
                     .arg(number)}};
    }
    return {};
}
