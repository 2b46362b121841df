// SPDX-License-Identifier: MIT
#pragma once

#include <kest_foundation_export.h>

#include <QString>

class common_IPropertyContainer;
class common_Property;

/// A property in its container. Must not outlive the container.
class KEST_FOUNDATION_EXPORT common_PropertyReference
{
public:
    /// Neither is owned, and both must outlive the reference.
    common_PropertyReference(common_IPropertyContainer& container, common_Property& property);

    /// The value as common_Property converts it; so do the others.
    bool castToBool() const;
    /// The value as an integer; 0 when it is not a number.
    int castToInt() const;
    /// The value as a floating-point number; 0 when it is not a number.
    double castToDouble() const;
    /// The value as text.
    QString castToQString() const;

    /// These change the value without notifying the container's observers; see notify().
    void assignFromBool(bool value);
    /// See assignFromBool().
    void assignFromInt(int value);
    /// See assignFromBool().
    void assignFromDouble(double value);
    /// See assignFromBool().
    void assignFromQString(const QString& value);

    /// Notifies the container's observers of the value.
    void notify();

private:
    common_IPropertyContainer* m_container;
    common_Property* m_property;
};
