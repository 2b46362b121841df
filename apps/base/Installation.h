// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// The suite's installation folder.
namespace Installation {

/// KEST_HOME; where that is not set the installation that this program is in, or else the one
/// beside it.
QString directory();

/// The folder of the help pages, which comes with the installation.
QString helpDirectory();

/// The component's program, or empty when the installation has none that can be executed.
QString program(const QString& component);

} // namespace Installation
