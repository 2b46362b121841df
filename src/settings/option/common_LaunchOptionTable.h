#pragma once

#include <common_PropertyMetaData.h>

#include <QStringList>
#include <QVector>

/// One launch option: what is registered, what it is when the settings file does not say, and
/// whether the settings file ever says.
struct common_LaunchOption
{
    const char* key;
    common_PropertyMetaData::Type type;
    const char* label;
    int defaultValue; ///< of booleans and integers; texts are empty
    int flags;
    bool persisted;
    QVector<EnumType> members; ///< of an enumerated option
};

namespace common_LaunchOptionTable {

/// All options, in the order of registration.
const QVector<common_LaunchOption>& options();

/// The option of that key, which must be one.
const common_LaunchOption& option(const QString& key);

/// The keys that the settings file holds, in the order of writing.
const QStringList& writeOrder();

/// The same keys in the order of reading, in which observers hear of them.
const QStringList& readOrder();

/// Registers all options and their members with the property factory.
void registerOptions();

} // namespace common_LaunchOptionTable
