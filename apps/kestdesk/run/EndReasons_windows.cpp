// SPDX-License-Identifier: MIT
#include "EndReasons.h"

#include <algorithm>
#include <csignal>
#include <iterator>

namespace {

constexpr int status(unsigned value)
{
    return static_cast<int>(value);
}

// clang-format off
// Components that clean up first end with the code that shells give for a signal.
constexpr EndReasons::Reason reasons[] = {
    {"STATUS_CONTROL_C_EXIT",         "somebody interrupted it, as Ctrl+C does",                               status(0xC000013A), true,  true},
    {"STATUS_CONTROL_C_EXIT",         "somebody interrupted it, as Ctrl+C does",                               status(0xC000013A), false, true},
    {"",                              "somebody interrupted it, as Ctrl+C does",                               128 + SIGINT,       false, true},
    {"",                              "somebody interrupted it, as Ctrl+C does",                               128 + SIGTERM,      false, true},
    {"killed",                        "another program killed it",                                             status(0x0000F291), true,  false, true},
    {"STATUS_ACCESS_VIOLATION",       "it used memory that it does not have, which is a fault of the program", status(0xC0000005), true,  false},
    {"STATUS_STACK_OVERFLOW",         "its stack overflowed, which is a fault of the program",                 status(0xC00000FD), true,  false},
    {"STATUS_NO_MEMORY",              "the system ran out of memory",                                          status(0xC0000017), true,  false},
    {"STATUS_COMMITMENT_LIMIT",       "the system ran out of memory",                                          status(0xC000012D), true,  false},
    {"STATUS_INTEGER_DIVIDE_BY_ZERO", "a calculation was impossible: a division of an integer by zero",        status(0xC0000094), true,  false},
    {"STATUS_ILLEGAL_INSTRUCTION",    "usually it was built for another processor",                            status(0xC000001D), true,  false},
    {"STATUS_DLL_NOT_FOUND",          "a library that it needs was not found",                                 status(0xC0000135), true,  false},
    {"STATUS_DLL_NOT_FOUND",          "a library that it needs was not found",                                 status(0xC0000135), false, false},
};
// clang-format on

} // namespace

const EndReasons::Reason* EndReasons::find(bool isCrash, int code)
{
    const auto* const found =
        std::find_if(std::cbegin(reasons), std::cend(reasons), [isCrash, code](const Reason& row) {
            return row.isCrash == isCrash && row.code == code;
        });
    return found == std::cend(reasons) ? nullptr : found;
}

QString EndReasons::crashNumber(int code)
{
    constexpr int width = 8;
    return QStringLiteral("exception 0x%1")
        .arg(static_cast<unsigned>(code), width, 16, QLatin1Char('0'));
}
