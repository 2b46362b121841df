// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

namespace suite {

/// The priority that the user chose for the engines, from 0 (lowest) over 2 (normal) to 4
/// (highest).
class Priority
{
public:
    static constexpr int normalLevel = 2;

    explicit Priority(int level = normalLevel) : m_level(level) {}

    [[nodiscard]] int level() const { return m_level; }

    /// Whether this process may give its children the priority. Raising it needs a permission.
    [[nodiscard]] bool isAllowed() const;

    /// The nice value of the priority; nothing for the normal priority, which does not change
    /// processes.
    [[nodiscard]] std::optional<int> niceValue() const;

private:
    int m_level;
};

} // namespace suite
