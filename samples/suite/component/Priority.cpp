// SPDX-License-Identifier: MIT
#include "Priority.h"

#include <NiceValue.h>

namespace suite {

namespace {

constexpr int niceValues[] = {19, 10, 0, -5, -10}; // by level

} // namespace

bool Priority::isAllowed() const
{
    return m_level <= normalLevel || NiceValue::isAllowed(niceValues[m_level]);
}

std::optional<int> Priority::niceValue() const
{
    return m_level == normalLevel ? std::nullopt : std::make_optional(niceValues[m_level]);
}

} // namespace suite
