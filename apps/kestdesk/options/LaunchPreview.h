#pragma once

#include <QString>

class common_ComponentsLaunchOptions;

/// What the options result in.
namespace LaunchPreview {

/// The parts of the command lines, or of the environment, that the tab's options make.
QString line(const QString& tab, const common_ComponentsLaunchOptions& options);

} // namespace LaunchPreview
