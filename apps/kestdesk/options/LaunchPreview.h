// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class common_ComponentsLaunchOptions;

/// Shows the effect of the options.
namespace LaunchPreview {

/// The parts of the command lines or of the environment that result from the options of a tab.
QString line(const QString& tab, const common_ComponentsLaunchOptions& options);

} // namespace LaunchPreview
