// SPDX-License-Identifier: MIT
#pragma once

#include <kest_foundation_export.h>

/// A reference-counted object of the applications' domain that scripts can refer to.
class KEST_FOUNDATION_EXPORT common_DomainEntity
{
public:
    virtual void reference() = 0;
    virtual void dereference() = 0;
    virtual int getRefCount() const = 0;
    virtual ~common_DomainEntity();

    /// A new copy with a reference count of 0. The caller owns it by taking the first reference.
    virtual common_DomainEntity* clone() const = 0;

protected:
    common_DomainEntity() = default;
    common_DomainEntity(const common_DomainEntity&) = default;
    common_DomainEntity& operator=(const common_DomainEntity&) = default;
};
