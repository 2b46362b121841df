// SPDX-License-Identifier: MIT
#include "RunChoice.h"

#include "LaunchOptionsFile.h"

#include <common_ComponentsLaunchOptions.h>

namespace {

using Wrapper = common_RunWrapper;

// clang-format off
const struct { Wrapper::RunOption option; const char* property; } choiceRows[] = {
    {Wrapper::Parallel, "RunParallel"},
    {Wrapper::Remote,   "RunRemote"},
    {Wrapper::FarmOut,  "FarmOut"},
};
// clang-format on

} // namespace

Wrapper::RunOptions RunChoice::load()
{
    Wrapper::RunOptions result;
    const auto options = common_ComponentsLaunchOptions::create(ReadOnlyAccess);
    for (const auto& row : choiceRows) {
        result.setFlag(row.option, (*options)[QLatin1String(row.property)].castToBool());
    }
    return result;
}

bool RunChoice::isLocked()
{
    return LaunchOptionsFile::isOwned();
}

bool RunChoice::save(Wrapper::RunOptions options)
{
    const auto stored = common_ComponentsLaunchOptions::create(ReadWriteAccess);
    if (stored.isNull()) {
        return false;
    }
    for (const auto& row : choiceRows) {
        (*stored)[QLatin1String(row.property)].assignFromBool(options.testFlag(row.option));
    }
    return LaunchOptionsFile::save(*stored).lost.isEmpty();
}
