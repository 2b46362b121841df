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

    QString name() const { return m_name; }

    bool castToBool() const;
    int castToInt() const;
    double castToDouble() const;
    QString castToQString() const;

    void assignFromBool(bool value);
    void assignFromInt(int value);
    void assignFromDouble(double value);
    void assignFromQString(const QString& value);

private:
    void assign(const QVariant& value);

    QString m_name;
    QVariant m_value;
};
