// SPDX-License-Identifier: MIT
#include "HostName.h"

#include <algorithm>

namespace suite {

namespace {

constexpr int longestHost = 255; // what the domain name system allows
constexpr int leastColons = 2;   // that an address of IPv6 has

bool isDigit(char character)
{
    return character >= '0' && character <= '9';
}

bool isNameCharacter(char character)
{
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
           isDigit(character) || character == '.' || character == '-' || character == '_';
}

bool isAddressCharacter(char character)
{
    return (character >= 'a' && character <= 'f') || (character >= 'A' && character <= 'F') ||
           isDigit(character) || character == '.' || character == ':';
}

// The first character as a message shows it.
QString shownCharacter(std::string_view text)
{
    const auto code = static_cast<unsigned char>(text.front());
    if (code >= 0x80) {
        const QByteArray bytes(text.data(), static_cast<int>(std::min<size_t>(text.size(), 4)));
        if (bytes.startsWith("\xef\xbb\xbf")) { // of which nothing is left when it is decoded
            return QStringLiteral("a byte order mark");
        }
        const QString rest = QString::fromUtf8(bytes);
        return QStringLiteral("\"%1\"").arg(rest.left(rest.at(0).isSurrogate() ? 2 : 1));
    }
    if (code < 0x20 || code == 0x7f) {
        return QStringLiteral("the control character %1").arg(code);
    }
    return code == ' ' ? QStringLiteral("a blank")
                       : QStringLiteral("\"%1\"").arg(QLatin1Char(text.front()));
}

} // namespace

QString HostName::error(std::string_view text)
{
    if (text.empty()) {
        return QStringLiteral("the name of the host is missing");
    }
    if (text.front() == '-') {
        return QStringLiteral("the name of a host does not begin with \"-\"");
    }
    if (text.size() > longestHost) {
        return QStringLiteral("the name of the host is longer than %1 characters").arg(longestHost);
    }
    const auto colons = std::count(text.cbegin(), text.cend(), ':');
    const char* const end = text.data() + text.size();
    const char* const wrong =
        std::find_if_not(text.data(), end, colons > 0 ? isAddressCharacter : isNameCharacter);
    if (wrong != end) {
        return QStringLiteral("%1 is not allowed in %2")
            .arg(shownCharacter(text.substr(static_cast<size_t>(wrong - text.data()))),
                 colons > 0 ? QStringLiteral("an address of IPv6")
                            : QStringLiteral("the name of a host"));
    }
    return colons > 0 && colons < leastColons
               ? QStringLiteral("an address of IPv6 has more than one colon")
               : QString();
}

QString HostName::error(const QString& text)
{
    return error(std::string_view(text.toStdString()));
}

bool HostName::isAddress(const QString& host)
{
    return host.contains(QLatin1Char(':'));
}

QString HostName::withBrackets(const QString& host)
{
    return isAddress(host) ? QLatin1Char('[') + host + QLatin1Char(']') : host;
}

} // namespace suite
