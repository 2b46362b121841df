// SPDX-License-Identifier: MIT
#pragma once

#include <common_PropertyMetaData.h>
#include <kest_foundation_export.h>

#include <QString>
#include <QVariant>

/// A property's value, of the type that its metadata names. A value class: copies are independent.
///
/// Assigning and casting convert as QVariant does: text that is not a number becomes 0, a number is
/// true unless it is 0, and a boolean becomes the text "true" or "false".
class KEST_FOUNDATION_EXPORT common_Property
{
public:
    /// False, 0 or empty.
    explicit common_Property(const common_PropertyMetaData& metaData);

    /// The name that the metadata had.
    QString name() const { return m_name; }

    /// The value as a boolean; see the class for conversions, here and below.
    bool castToBool() const;
    /// The value as an integer; 0 when it is not a number.
    int castToInt() const;
    /// The value as a floating-point number; 0 when it is not a number.
    double castToDouble() const;
    /// The value as text.
    QString castToQString() const;

    /// Converts to the type of the property; so do the others.
    void assignFromBool(bool value);
    /// Converts to the type of the property.
    void assignFromInt(int value);
    /// Converts to the type of the property.
    void assignFromDouble(double value);
    /// Converts to the type of the property; text that is not a number becomes 0.
    void assignFromQString(const QString& value);

private:
    void assign(const QVariant& value);

    QString m_name;
    QVariant m_value;
};
