// SPDX-License-Identifier: MIT
#include "NamedValues.h"

namespace suite {

void NamedValues::add(const NamedValue& value)
{
    m_places.insert(value.name.toUpper(), m_values.size());
    m_values.append(value);
}

const NamedValue* NamedValues::find(const QString& name) const
{
    const int place = m_places.value(name.toUpper(), -1);
    return place < 0 ? nullptr : &m_values.at(place);
}

} // namespace suite
