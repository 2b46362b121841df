#include "HostRule.h"

#include "MachinesLine.h"

#include <QStringList>

#include <algorithm>
#include <iterator>

namespace {

constexpr int largestPort = 65535;

// An address of IPv6 has no brackets here, because nothing follows it.
QString hostError(const QString& host)
{
    if (host.startsWith(QLatin1Char('['))) {
        return QStringLiteral("an address has no brackets here");
    }
    const bool isAddress = host.contains(QLatin1Char(':'));
    return MachinesLine::hostError(
        (isAddress ? QLatin1Char('[') + host + QLatin1Char(']') : host).toUtf8());
}

QString userError(const QString& user)
{
    return user.contains(QLatin1Char(':')) || !MachinesLine::hostError(user.toUtf8()).isEmpty()
               ? QStringLiteral(
                     "a user's name has letters, digits, \".\", \"-\" and \"_\", and does "
                     "not begin with \"-\"")
               : QString();
}

QString portError(const QString& port)
{
    bool isNumber = false;
    const int number = port.toInt(&isNumber);
    return isNumber && number > 0 && number <= largestPort && port.at(0).isDigit()
               ? QString()
               : QStringLiteral("a port is a number from 1 to %1").arg(largestPort);
}

QString homeError(const QString& folder)
{
    const bool isPath =
        folder.startsWith(QLatin1Char('/')) &&
        std::all_of(folder.cbegin(), folder.cend(), [](QChar each) { return each.isPrint(); });
    return isPath ? QString() : QStringLiteral("a folder is given by its absolute path");
}

struct Word
{
    const char* name;
    QString (*error)(const QString& value);
};

constexpr Word words[] = {
    {"user", userError},
    {"port", portError},
    {"home", homeError},
};

QString wordError(const QString& text)
{
    const int sign = text.indexOf(QLatin1Char('='));
    const QString name = text.left(sign);
    const auto* const word =
        std::find_if(std::cbegin(words), std::cend(words),
                     [&name](const Word& row) { return name == QLatin1String(row.name); });
    return sign < 0 || word == std::cend(words)
               ? QStringLiteral(
                     "behind the host there may be user=NAME, port=NUMBER and home=FOLDER")
               : word->error(text.mid(sign + 1));
}

QString firstWordError(const QString& text)
{
    const int at = text.indexOf(QLatin1Char('@'));
    const QString error = at < 0 ? QString() : userError(text.left(at));
    return error.isEmpty() ? hostError(text.mid(at + 1)) : error;
}

} // namespace

QString HostRule::complaint(const QString& text)
{
    if (text.isEmpty()) {
        return QString();
    }
    const QStringList parts = text.split(QLatin1Char(' '));
    if (parts.contains(QString())) {
        return QStringLiteral("There must be one blank between two words, and none around them.");
    }
    for (int i = 0; i < parts.size(); ++i) {
        const QString error = i == 0 ? firstWordError(parts[i]) : wordError(parts[i]);
        if (!error.isEmpty()) {
            return QStringLiteral("\"%1\" cannot be used: %2.").arg(parts[i].left(100), error);
        }
    }
    return QString();
}
