#include "MachinesLine.h"

#include <algorithm>

namespace {

constexpr int longestHost = 255;    // what the domain name system allows
constexpr int mostProcesses = 4096; // more than that is a slip: no host has so many cores

bool isNameCharacter(char character)
{
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
           (character >= '0' && character <= '9') || character == '.' || character == '-' ||
           character == '_';
}

bool isAddressCharacter(char character)
{
    return isNameCharacter(character) || character == ':';
}

// How a character is shown in a message.
QString shown(const QByteArray& text, int position)
{
    const auto code = static_cast<unsigned char>(text[position]);
    if (code >= 0x80) {
        const QByteArray bytes = text.mid(position, 4);
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
                       : QStringLiteral("\"%1\"").arg(QLatin1Char(text[position]));
}

bool isNumber(const QByteArray& text)
{
    const int sign = text.startsWith('-') ? 1 : 0;
    return text.size() > sign && std::all_of(text.cbegin() + sign, text.cend(), [](char character) {
               return character >= '0' && character <= '9';
           });
}

QString countError(const QByteArray& count)
{
    if (!isNumber(count)) {
        return count.contains(':')
                   ? QStringLiteral("more than one \":\"; an address of IPv6 stands in brackets")
                   : QStringLiteral("\"%1\" is no number of processes")
                         .arg(QString::fromUtf8(count.left(40)));
    }
    bool fits = false;
    const int processes = count.toInt(&fits);
    if (count.startsWith('-')) {
        return QStringLiteral("the number of processes is negative");
    }
    if (fits && processes == 0) {
        return QStringLiteral("the number of processes is 0");
    }
    return fits && processes <= mostProcesses
               ? QString()
               : QStringLiteral("more than %1 processes on one host").arg(mostProcesses);
}

} // namespace

QString MachinesLine::hostError(const QByteArray& host)
{
    const bool isAddress = host.startsWith('[') && host.endsWith(']');
    const QByteArray name = isAddress ? host.mid(1, host.size() - 2) : host;
    if (name.isEmpty()) {
        return QStringLiteral("the name of the host is missing");
    }
    if (name.startsWith('-')) {
        return QStringLiteral("the name of a host does not begin with \"-\"");
    }
    if (name.size() > longestHost) {
        return QStringLiteral("the name of the host is longer than %1 characters").arg(longestHost);
    }
    const auto* const wrong = std::find_if_not(name.cbegin(), name.cend(),
                                               isAddress ? isAddressCharacter : isNameCharacter);
    if (wrong != name.cend()) {
        return QStringLiteral("%1 is not allowed in the name of a host")
            .arg(shown(name, static_cast<int>(wrong - name.cbegin())));
    }
    return QString();
}

MachinesLine MachinesLine::parse(const QByteArray& line)
{
    const int comment = line.indexOf('#');
    const QByteArray entry = (comment < 0 ? line : line.left(comment)).trimmed();
    MachinesLine result;
    if (entry.isEmpty()) {
        return result;
    }
    const int bracket = entry.startsWith('[') ? entry.indexOf(']') : -1;
    const int colon = entry.indexOf(':', std::max(bracket, 0));
    const QByteArray host = colon < 0 ? entry : entry.left(colon);
    const QByteArray count = colon < 0 ? QByteArray() : entry.mid(colon + 1);
    result.error = hostError(host);
    if (result.error.isEmpty() && !count.isEmpty()) {
        result.error = countError(count);
    }
    if (result.error.isEmpty()) {
        result.host = host;
        result.processes = count.isEmpty() ? 1 : count.toInt();
    }
    return result;
}
