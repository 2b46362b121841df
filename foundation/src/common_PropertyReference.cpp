// SPDX-License-Identifier: MIT
#include <common_PropertyReference.h>

#include <common_IPropertyContainer.h>
#include <common_Property.h>

common_PropertyReference::common_PropertyReference(common_IPropertyContainer& container,
                                                   common_Property& property)
    : m_container(&container), m_property(&property)
{}

bool common_PropertyReference::castToBool() const
{
    return m_property->castToBool();
}

int common_PropertyReference::castToInt() const
{
    return m_property->castToInt();
}

double common_PropertyReference::castToDouble() const
{
    return m_property->castToDouble();
}

QString common_PropertyReference::castToQString() const
{
    return m_property->castToQString();
}

void common_PropertyReference::assignFromBool(bool value)
{
    m_property->assignFromBool(value);
}

void common_PropertyReference::assignFromInt(int value)
{
    m_property->assignFromInt(value);
}

void common_PropertyReference::assignFromDouble(double value)
{
    m_property->assignFromDouble(value);
}

void common_PropertyReference::assignFromQString(const QString& value)
{
    m_property->assignFromQString(value);
}

void common_PropertyReference::notify()
{
    m_container->propertyValueChanged(*m_property);
}
