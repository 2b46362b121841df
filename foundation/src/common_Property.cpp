// SPDX-License-Identifier: MIT
#include <common_Property.h>

namespace {

QVariant initialValue(common_PropertyMetaData::Type type)
{
    switch (type) {
    case common_PropertyMetaData::Boolean:
        return QVariant(false);
    case common_PropertyMetaData::String:
        return QVariant(QString());
    case common_PropertyMetaData::Integer:
        return QVariant(0);
    case common_PropertyMetaData::Double:
        return QVariant(0.0);
    }
    return QVariant();
}

} // namespace

common_Property::common_Property(const common_PropertyMetaData& metaData)
    : m_name(metaData.name()), m_value(initialValue(metaData.type()))
{}

bool common_Property::castToBool() const
{
    return m_value.toBool();
}

int common_Property::castToInt() const
{
    return m_value.toInt();
}

double common_Property::castToDouble() const
{
    return m_value.toDouble();
}

QString common_Property::castToQString() const
{
    return m_value.toString();
}

void common_Property::assignFromBool(bool value)
{
    assign(value);
}

void common_Property::assignFromInt(int value)
{
    assign(value);
}

void common_Property::assignFromDouble(double value)
{
    assign(value);
}

void common_Property::assignFromQString(const QString& value)
{
    assign(value);
}

// A failed conversion leaves the type's initial value.
void common_Property::assign(const QVariant& value)
{
    QVariant converted = value;
    converted.convert(static_cast<int>(m_value.userType()));
    m_value = converted;
}
