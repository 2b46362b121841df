#include "EnvironmentRule.h"

#include <QRegularExpression>
#include <QSet>
#include <QStringList>

namespace {

bool isName(const QString& text)
{
    static const QRegularExpression name(QStringLiteral("\\A[A-Za-z_][A-Za-z0-9_]*\\z"));
    return name.match(text).hasMatch();
}

// As part of a sentence. An assignment with a second equals sign would be dropped on the way to the
// process, and blanks would be put together.
QString lineError(const QString& line, QSet<QString>& names)
{
    const QString name = line.section(QLatin1Char('='), 0, 0);
    const QString value = line.section(QLatin1Char('='), 1);
    if (!line.contains(QLatin1Char('=')) || !isName(name)) {
        return QStringLiteral("is not NAME=VALUE");
    }
    if (value.contains(QLatin1Char('='))) {
        return QStringLiteral("has more than one \"=\", and such a variable is not set");
    }
    if (value != value.simplified()) {
        return QStringLiteral(
            "has blanks around its value or several in a row, which are not kept");
    }
    if (names.contains(name)) {
        return QStringLiteral("sets %1 a second time").arg(name);
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
        const QString error = lines[i].isEmpty() ? QString() : lineError(lines[i], names);
        if (!error.isEmpty()) {
            return QStringLiteral("Line %1 %2.").arg(i + 1).arg(error);
        }
    }
    return QString();
}
