#pragma once

#include <QStringList>

#include <optional>

class common_PropertyMetaData;

/// What a launch option accepts when a person types it: stricter than the settings file, which
/// takes what is there.
namespace OptionValue {

/// What the option accepts, in words.
QString accepted(const common_PropertyMetaData& metaData);

/// The words that the option accepts, for a shell to complete; empty when there are too many.
QStringList words(const common_PropertyMetaData& metaData);

/// The typed value as the option stores it; nothing when it is not accepted.
std::optional<QString> parse(const common_PropertyMetaData& metaData, const QString& typed);

} // namespace OptionValue
