// SPDX-License-Identifier: MIT
#include "MachinesLine.h"

#include "HostName.h"

#include <algorithm>
#include <charconv>
#include <climits>

namespace suite {

namespace {

constexpr size_t longestShownCount = 40; // bytes
constexpr size_t notFound = std::string_view::npos;

std::string_view trimmed(std::string_view text)
{
    constexpr std::string_view blanks = " \t\n\v\f\r";
    const size_t begin = std::min(text.find_first_not_of(blanks), text.size());
    return text.substr(begin, text.find_last_not_of(blanks) + 1 - begin);
}

QString fromUtf8(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<int>(text.size()));
}

/// The two halves of a line.
struct Halves
{
    std::string_view host;
    std::string_view count;
    bool hasBrackets = false;
};

Halves split(std::string_view entry)
{
    const size_t bracket = entry.front() == '[' ? entry.find(']') : notFound;
    if (bracket != notFound) {
        const std::string_view rest = trimmed(entry.substr(bracket + 1));
        if (rest.empty() || rest.front() == ':') {
            return {entry.substr(1, bracket - 1), trimmed(rest.substr(rest.empty() ? 0 : 1)), true};
        }
    }
    const size_t colon = std::min(entry.find(':'), entry.size());
    return {trimmed(entry.substr(0, colon)),
            trimmed(entry.substr(std::min(colon + 1, entry.size()))), false};
}

QString hostError(const Halves& halves)
{
    const QString error = HostName::error(halves.host);
    const bool isAddress = halves.host.find(':') != notFound;
    return error.isEmpty() && halves.hasBrackets && !isAddress
               ? QStringLiteral("brackets are for an address of IPv6")
               : error;
}

bool isNumber(std::string_view text)
{
    const std::string_view digits = text.substr(text.front() == '-' ? 1 : 0);
    return !digits.empty() && digits.find_first_not_of("0123456789") == notFound;
}

// Of digits; too large a number is the largest.
int numberOf(std::string_view digits)
{
    int result = 0;
    const auto end = std::from_chars(digits.data(), digits.data() + digits.size(), result);
    return end.ec == std::errc() ? result : INT_MAX;
}

QString countError(std::string_view count)
{
    if (!isNumber(count)) {
        return count.find(':') != notFound
                   ? QStringLiteral("more than one colon; an address of IPv6 stands in brackets")
                   : QStringLiteral("\"%1\" is no number of processes")
                         .arg(fromUtf8(count.substr(0, longestShownCount)));
    }
    if (count.front() == '-') {
        return QStringLiteral("the number of processes is negative");
    }
    if (numberOf(count) == 0) {
        return QStringLiteral("the number of processes is 0");
    }
    return numberOf(count) > MachinesLine::mostProcesses
               ? QStringLiteral("more than %1 processes on one host")
                     .arg(MachinesLine::mostProcesses)
               : QString();
}

} // namespace

MachinesLine MachinesLine::parse(std::string_view line)
{
    MachinesLine result;
    result.text = trimmed(line.substr(0, line.find('#')));
    if (result.text.empty()) {
        return result;
    }
    const Halves halves = split(result.text);
    result.error = hostError(halves);
    if (result.error.isEmpty() && !halves.count.empty()) {
        result.error = countError(halves.count);
    }
    if (result.error.isEmpty()) {
        result.host = halves.host;
        result.count = halves.count.empty() ? 1 : numberOf(halves.count);
    }
    return result;
}

} // namespace suite
