// SPDX-License-Identifier: MIT
#pragma once

#include <kest_foundation_export.h>

/// An object whose values can be checked before they are used.
class KEST_FOUNDATION_EXPORT common_IValidatable
{
public:
    virtual ~common_IValidatable();

    /// Whether each value is acceptable by itself.
    virtual bool validateMembers() = 0;

    /// Whether the values are consistent with each other.
    virtual bool validateDomainRules() = 0;

    /// Accepts the values as they are.
    virtual void setIgnoreValues() = 0;

protected:
    common_IValidatable() = default;
    common_IValidatable(const common_IValidatable&) = default;
    common_IValidatable& operator=(const common_IValidatable&) = default;
};
