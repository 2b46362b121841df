// SPDX-License-Identifier: MIT
#pragma once

#include <EnumType.h>
#include <kest_foundation_export.h>

#include <QString>
#include <QVector>

/// The name, label and type of a property, whatever its value in a container. A value class.
class KEST_FOUNDATION_EXPORT common_PropertyMetaData
{
public:
    /// One member of an enumerated property.
    using EnumType = ::EnumType;

    /// The type of the values. The numbers are fixed.
    enum Type {
        Boolean = 1,
        String = 2,
        Integer = 3, ///< with members, an enumerated property
        Double = 5
    };

    /// How many values a property has.
    enum Cardinality {
        Single = 0 ///< one value
    };

    /// How the value is kept. The numbers are fixed.
    enum Flag {
        Persistent = 1, ///< a settings file keeps the value
        Assigned = 2,   ///< the container gives the property a value by itself
        Transient = 64  ///< no settings file keeps the value
    };

    /// A boolean property without a name.
    common_PropertyMetaData() = default;

    /// The flags are a combination of Flag; other bits are stored for the applications.
    common_PropertyMetaData(const QString& name, const QString& label, Type type,
                            Cardinality cardinality, int flags);

    /// The key in containers and settings files.
    QString name() const { return m_name; }
    /// The text for the user; may be empty.
    QString label() const { return m_label; }
    /// Decides how values are converted.
    Type type() const { return m_type; }
    /// Always Single.
    Cardinality cardinality() const { return m_cardinality; }
    /// A combination of Flag and of bits of the application.
    int flags() const { return m_flags; }

    /// The members of an enumerated property, in order; empty for any other.
    QVector<EnumType> getEnumList() const { return m_enumList; }

    /// Makes the property enumerated: its integer is the value of one of these members.
    void setEnumerated(const QVector<EnumType>& members) { m_enumList = members; }

private:
    QString m_name;
    QString m_label;
    Type m_type = Boolean;
    Cardinality m_cardinality = Single;
    int m_flags = 0;
    QVector<EnumType> m_enumList;
};
