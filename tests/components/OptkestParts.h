// SPDX-License-Identifier: MIT
#pragma once

#include "OptkestRun.h"
#include "SpiedInstallation.h"

#include <Text.h>

// Where a search without any rounding would end, by the engine itself.
inline constexpr double resonantValue = 0.47412;

inline int evaluationsOf(const SuiteResult& result)
{
    return noticeOf(result, 213).section(QLatin1Char(' '), 3, 3).toInt();
}

inline int roundsOf(const SuiteResult& result)
{
    return noticeOf(result, 213).section(QLatin1Char(' '), 5, 5).toInt();
}

// A copy of optkest whose runs do without the remote host and the options that they get.
inline SpiedInstallation spiedOptkest(StandIn::Plan plan = StandIn::Plan())
{
    plan.passedOn = 1;
    return SpiedInstallation(optkestProgram(), plan);
}
