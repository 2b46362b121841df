// SPDX-License-Identifier: MIT
#include "RemoteHost.h"

#include "HostName.h"

#include <algorithm>
#include <iterator>

namespace suite {

namespace {

constexpr int largestPort = 65535;
constexpr int longestShownWord = 100;

// An address of IPv6 has no brackets here, because nothing follows it.
QString hostError(const QString& host)
{
    return host.startsWith(QLatin1Char('[')) ? QStringLiteral("an address has no brackets here")
                                             : HostName::error(host);
}

QString userError(const QString& user)
{
    return HostName::isAddress(user) || !HostName::error(user).isEmpty()
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

struct WordRow
{
    const char* name;
    QString (*error)(const QString& value);
};

constexpr WordRow wordTable[] = {
    {"user", userError},
    {"port", portError},
    {"home", homeError},
};

} // namespace

RemoteHost::RemoteHost(const QString& text)
{
    const QStringList words = text.simplified().split(QLatin1Char(' '));
    for (int i = 0; i < words.size() && m_error.isEmpty(); ++i) {
        const QString error = i == 0 ? readHost(words[i]) : readWord(words[i]);
        if (!error.isEmpty()) {
            m_error = QStringLiteral("\"%1\" cannot be used: %2")
                          .arg(words[i].left(longestShownWord), error);
        }
    }
}

QString RemoteHost::readHost(const QString& word)
{
    const int at = word.indexOf(QLatin1Char('@'));
    m_name = word.mid(at + 1);
    const QString error = at < 0 ? QString() : readWord(QStringLiteral("user=") + word.left(at));
    return error.isEmpty() ? hostError(m_name) : error;
}

QString RemoteHost::readWord(const QString& word)
{
    const int split = word.indexOf(QLatin1Char('='));
    const QString name = word.left(split);
    const QString value = word.mid(split + 1);
    const auto* const row =
        std::find_if(std::cbegin(wordTable), std::cend(wordTable),
                     [&name](const WordRow& each) { return name == QLatin1String(each.name); });
    if (split < 0 || row == std::cend(wordTable)) {
        return QStringLiteral(
            "behind the host there may be user=NAME, port=NUMBER and home=FOLDER");
    }
    m_words.insert(name, value);
    return row->error(value);
}

QStringList RemoteHost::sshWords() const
{
    QStringList result;
    if (m_words.contains(QStringLiteral("port"))) {
        result += {QStringLiteral("-p"), m_words.value(QStringLiteral("port"))};
    }
    if (m_words.contains(QStringLiteral("user"))) {
        result += {QStringLiteral("-l"), m_words.value(QStringLiteral("user"))};
    }
    return result + QStringList{QStringLiteral("--"), m_name};
}

} // namespace suite
