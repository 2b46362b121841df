#pragma once

#include <kest_foundation_export.h>

/// A counted object of the applications' domain that scripts can refer to.
class KEST_FOUNDATION_EXPORT common_DomainEntity
{
public:
    virtual void reference() = 0;
    virtual void dereference() = 0;
    virtual int getRefCount() const = 0;
    virtual ~common_DomainEntity();

    /// A copy with a count of its own, for the caller to take the first reference on.
    virtual common_DomainEntity* clone() const = 0;

protected:
    common_DomainEntity() = default;
    common_DomainEntity(const common_DomainEntity&) = default;
    common_DomainEntity& operator=(const common_DomainEntity&) = default;
};
