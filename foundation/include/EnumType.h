// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <utility>

/// One member of an enumerated property.
struct EnumType
{
    EnumType() = default;
    /// Text for the user, stored value, and key for scripts.
    EnumType(QString memberText, int memberValue, QString memberKey)
        : text(std::move(memberText)), value(memberValue), key(std::move(memberKey))
    {}

    QString text;  ///< what the user sees
    int value = 0; ///< what is stored
    QString key;   ///< what scripts write
};
