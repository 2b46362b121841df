#ifndef LAUNCHOPTIONSFILE_H
#define LAUNCHOPTIONSFILE_H

#include <common_ComponentsLaunchOptions.h>

#include <QStringList>

/// The launch options as the settings file keeps them.
namespace LaunchOptionsFile {

/// The options that the file keeps: others would be forgotten at once.
QStringList keptNames(const common_ComponentsLaunchOptions& options);

/// The value as text.
QString value(const common_ComponentsLaunchOptions& options, const QString& name);

/// Writes the options and reads them again, for a disk may be full or a folder read-only. The names
/// of those that the file does not hold now; empty when all is well.
QStringList save(common_ComponentsLaunchOptions& options);

/// Whether somebody holds the file.
bool isOwned();

/// Who holds the file, in words.
QString owner();

} // namespace LaunchOptionsFile

#endif
