// SPDX-License-Identifier: MIT
#include <common_PropertyMetaData.h>

common_PropertyMetaData::common_PropertyMetaData(const QString& name, const QString& label,
                                                 Type type, Cardinality cardinality, int flags)
    : m_name(name), m_label(label), m_type(type), m_cardinality(cardinality), m_flags(flags)
{}
