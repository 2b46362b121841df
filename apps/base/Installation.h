#ifndef INSTALLATION_H
#define INSTALLATION_H

#include <QString>

/// The suite's installation folder.
namespace Installation {

/// KEST_HOME, or the installation beside this program where that is not set.
QString directory();

/// The folder of the help pages, which comes with the installation.
QString helpDirectory();

/// The component's program, or empty when the installation has none that can be executed.
QString program(const QString& component);

} // namespace Installation

#endif
