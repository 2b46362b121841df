// SPDX-License-Identifier: MIT
#include "DescendantsEnding.h"

#include "Descendants.h"

namespace {

constexpr int killLimit = 2000; // ms; a process that waits for a device cannot be killed

} // namespace

DescendantsEnding::DescendantsEnding() : m_end({&Descendants::areAlive, {}, &Descendants::killAll})
{
    connect(&m_end, &StagedEnd::ended, this, &DescendantsEnding::ended);
}

void DescendantsEnding::start(int graceTime)
{
    m_end.start({graceTime, graceTime + killLimit});
}

void DescendantsEnding::hurry()
{
    start(0);
}
