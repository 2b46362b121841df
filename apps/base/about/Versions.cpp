// SPDX-License-Identifier: MIT
#include "Versions.h"

#include <QCoreApplication>
#include <QStringList>

namespace {

// Those of Qt have Qt's version.
// clang-format off
const struct { const char* application; const char* library; const char* licence; } libraries[] = {
    {"",         "Qt",        QT_TRANSLATE_NOOP("Versions", "LGPL version 3")},
    {"postkest", "Qt Charts", QT_TRANSLATE_NOOP("Versions", "GPL version 3")},
};
// clang-format on

} // namespace

QString Versions::program()
{
    return QStringLiteral("%1 %2").arg(QCoreApplication::applicationName(),
                                       QCoreApplication::applicationVersion());
}

QString Versions::parts(const QString& engine)
{
    QStringList lines = {QCoreApplication::translate("Versions", "Engine: %1").arg(engine)};
    for (const auto& row : libraries) {
        const QString application = QLatin1String(row.application);
        if (application.isEmpty() || application == QCoreApplication::applicationName()) {
            lines.append(QStringLiteral("%1 %2, %3")
                             .arg(QLatin1String(row.library), QLatin1String(qVersion()),
                                  QCoreApplication::translate("Versions", row.licence)));
        }
    }
    return lines.join(QLatin1Char('\n'));
}
