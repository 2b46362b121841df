// SPDX-License-Identifier: MIT
#pragma once

#include <common_Property.h>
#include <common_PropertyReference.h>
#include <kest_foundation_export.h>

#include <QStringList>

/// A reference-counted object that holds properties by name.
class KEST_FOUNDATION_EXPORT common_IPropertyContainer
{
public:
    virtual void reference() = 0;
    virtual void dereference() = 0;
    virtual int getRefCount() const = 0;
    virtual ~common_IPropertyContainer();

    /// Whether the container holds a property of that name. A registered one that was never
    /// referred to is not held.
    virtual bool hasProperty(const QString& name) const = 0;

    /// The names of the properties held, in the order of their registration.
    virtual QStringList getProperties() const = 0;

    /// The property's value; asserts that a property of that name is registered.
    virtual common_Property operator[](const QString& name) const = 0;

    /// A reference to assign to. A property that the container does not hold yet is created from
    /// its registered metadata; asserts that there is some.
    virtual common_PropertyReference operator[](const QString& name) = 0;

    /// Notifies the observers that the property has this value.
    virtual void propertyValueChanged(const common_Property& property) = 0;

protected:
    common_IPropertyContainer() = default;
    common_IPropertyContainer(const common_IPropertyContainer&) = default;
    common_IPropertyContainer& operator=(const common_IPropertyContainer&) = default;
};
