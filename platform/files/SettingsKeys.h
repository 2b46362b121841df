// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// How QSettings compares keys of settings files.
namespace SettingsKeys {

/// The key in the form in which keys are compared: in small letters where case does not matter.
QString comparable(const QString& key);

} // namespace SettingsKeys
