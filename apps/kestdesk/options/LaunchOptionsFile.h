#pragma once

#include <common_ComponentsLaunchOptions.h>

#include <QStringList>

class common_PropertyMetaData;

/// The launch options as the settings file keeps them.
namespace LaunchOptionsFile {

struct Saving
{
    QStringList lost; ///< the options that the file does not hold now; empty when all is well
    QString reason;   ///< as part of a sentence; may be empty
};

/// The user's settings file.
QString name();

/// Why the options cannot be read, as a sentence without its end that names the file; empty when
/// they can. They would take their defaults, and a run would not be the one that was asked for.
QString problem();

/// The same for the installation's defaults.
QString defaultsProblem();

/// Why the file cannot be locked, in the same way. The library would write without a lock
/// then, and scripts that run at once would undo each other's changes.
QString lockProblem();

/// Whether the file keeps the option: any other would be forgotten at once.
bool isKept(const common_PropertyMetaData& metaData);

/// The options that the file keeps.
QStringList keptNames(const common_ComponentsLaunchOptions& options);

/// The value as text.
QString value(const common_ComponentsLaunchOptions& options, const QString& name);

/// Writes the options and reads them again, for a disk may be full or a folder read-only.
Saving save(common_ComponentsLaunchOptions& options);

/// Whether a program holds the file.
bool isOwned();

/// What holds the file, in words; never empty.
QString owner();

} // namespace LaunchOptionsFile
