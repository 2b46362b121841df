// SPDX-License-Identifier: MIT
#include "EnvironmentRule.h"

#include <QCoreApplication>
#include <QRegularExpression>
#include <QSet>
#include <QStringList>

namespace {

/// Translates the texts of this file.
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(EnvironmentRule)
};

bool isName(const QString& text)
{
    static const QRegularExpression name(QStringLiteral("\\A[A-Za-z_][A-Za-z0-9_]*\\z"));
    return name.match(text).hasMatch();
}

// Returns a sentence. On the way to the process, an assignment with a second equals sign would be
// dropped, and runs of blanks would be merged.
QString lineError(const QString& line, int number, QSet<QString>& names)
{
    const QString name = line.section(QLatin1Char('='), 0, 0);
    const QString value = line.section(QLatin1Char('='), 1);
    if (!line.contains(QLatin1Char('=')) || !isName(name)) {
        return Texts::tr("Line %1 is not NAME=VALUE.").arg(number);
    }
    if (value.contains(QLatin1Char('='))) {
        return Texts::tr("Line %1 has more than one \"=\", and such a variable is not set.")
            .arg(number);
    }
    if (value != value.simplified()) {
        return Texts::tr("Line %1 has blanks around its value or several in a row, which are not "
                         "kept.")
            .arg(number);
    }
    if (names.contains(name)) {
        return Texts::tr("Line %1 sets %2 a second time.").arg(number).arg(name);
    }
    names.insert(name);
    return QString();
}

} // namespace

QString EnvironmentRule::problem(const QString& text)
{
    QSet<QString> names;
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (int i = 0; i < lines.size(); ++i) {
        QString error = lines[i].isEmpty() ? QString() : lineError(lines[i], i + 1, names);
        if (!error.isEmpty()) {
            return error;
        }
    }
    return QString();
}
