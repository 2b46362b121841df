#pragma once

#include <QString>

#include <string_view>

/// The names and addresses of hosts that the suite accepts: none is an option to a program, and
/// none means anything to a shell. What contains a colon is an address of IPv6, without brackets.
namespace suite::HostName {

/// What is wrong with the text in UTF-8, as part of a sentence; empty when it can be a host.
QString error(std::string_view text);
QString error(const QString& text);

bool isAddress(const QString& host);

/// As a machines file has it: an address of IPv6 in brackets.
QString withBrackets(const QString& host);

} // namespace suite::HostName
