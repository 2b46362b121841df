#pragma once

#include <kest_foundation_export.h>

#include <QString>

class common_IPropertyContainer;
class common_Property;

/// A property in its container. Must not outlive the container.
class KEST_FOUNDATION_EXPORT common_PropertyReference
{
public:
    common_PropertyReference(common_IPropertyContainer& container, common_Property& property);

    bool castToBool() const;
    int castToInt() const;
    double castToDouble() const;
    QString castToQString() const;

    /// These change the value without notifying the container's observers; see notify().
    void assignFromBool(bool value);
    void assignFromInt(int value);
    void assignFromDouble(double value);
    void assignFromQString(const QString& value);

    /// Notifies the container's observers of the value.
    void notify();

private:
    common_IPropertyContainer* m_container;
    common_Property* m_property;
};
