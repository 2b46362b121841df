// SPDX-License-Identifier: MIT
#include "StopReason.h"

#include <algorithm>

#include <csignal>

namespace suite::StopReason {

namespace {

constexpr int signalBase = 128;
constexpr int hangUp = 1; // SIGHUP, which not every system has

struct Row
{
    int signal;
    const char* text;
};

constexpr Row table[] = {
    {SIGTERM, "SIGTERM, a request to end"},
    {SIGINT, "SIGINT, an interrupt from the keyboard"},
    {hangUp, "SIGHUP, the end of its terminal or connection"},
};

const Row* rowOf(int signal)
{
    const auto* row = std::find_if(std::begin(table), std::end(table),
                                   [signal](const Row& each) { return each.signal == signal; });
    return row == std::end(table) ? nullptr : row;
}

} // namespace

QString text(int signal)
{
    const Row* row = rowOf(signal);
    return row == nullptr ? QStringLiteral("signal %1").arg(signal) : QLatin1String(row->text);
}

int exitCode(int signal)
{
    return signalBase + signal;
}

std::optional<int> signalOf(int exitCode)
{
    const int signal = exitCode - signalBase;
    return rowOf(signal) == nullptr ? std::nullopt : std::make_optional(signal);
}

} // namespace suite::StopReason
