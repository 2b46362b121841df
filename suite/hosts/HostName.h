// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <string_view>

/// The names and addresses of hosts that the suite accepts: none can be taken for an option of a
/// program, and none has a special meaning in a shell. A text with a colon is an IPv6 address,
/// without brackets.
namespace suite::HostName {

/// What is wrong with the text in UTF-8, as part of a sentence; empty when it can be a host.
QString error(std::string_view text);
QString error(const QString& text);

bool isAddress(const QString& host);

/// The host as in a machines file: IPv6 addresses in brackets.
QString withBrackets(const QString& host);

} // namespace suite::HostName
