// SPDX-License-Identifier: MIT
#pragma once

#include <common_PropertyMetaData.h>

#include <QVector>

#include <limits>

/// One launch option: its registered metadata, its built-in default, and its places in the settings
/// file's order of keys.
struct common_LaunchOption
{
    const char* key;
    common_PropertyMetaData::Type type;
    const char* label;
    int defaultValue;          ///< of booleans and integers; texts are empty
    int flags;                 ///< of common_PropertyMetaData::Flag
    int writePosition;         ///< in the order of writing, from 1; 0 when no file keeps the value
    int readPosition;          ///< in the order of reading, in which observers are notified; or 0
    QVector<EnumType> members; ///< of an enumerated option

    /// A smaller integer in the file is read as this one.
    int smallest = std::numeric_limits<int>::min();
};

/// All that is known about each launch option, in one row each.
namespace common_LaunchOptionTable {

/// All options, in the order of registration.
const QVector<common_LaunchOption>& options();

/// The options that the settings file holds, in the order of writing.
const QVector<const common_LaunchOption*>& writeOrder();

/// The same options in the order of reading.
const QVector<const common_LaunchOption*>& readOrder();

/// Registers all options and their members with the property factory.
void registerOptions();

} // namespace common_LaunchOptionTable
