// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

#include <optional>

class common_PropertyMetaData;

/// Parses values of launch options that users type. Stricter than the reading of the settings
/// file, which accepts any value.
namespace OptionValue {

/// A description of the values that the option accepts.
QString accepted(const common_PropertyMetaData& metaData);

/// The words that the option accepts, for completion in shells; empty if there are too many.
QStringList words(const common_PropertyMetaData& metaData);

/// The typed value as the option stores it; nothing if it is not accepted.
std::optional<QString> parse(const common_PropertyMetaData& metaData, const QString& typed);

} // namespace OptionValue
