// SPDX-License-Identifier: MIT
#pragma once

#include <common_ComponentsLaunchOptions.h>

#include <QStringList>

class common_PropertyMetaData;

/// The launch options as stored in the settings file.
namespace LaunchOptionsFile {

struct Saving
{
    QStringList lost; ///< the options that the file does not hold now; empty when all is well
    QString reason;   ///< as part of a sentence; may be empty
};

/// The user's settings file.
QString name();

/// Why the options cannot be read, as a clause that names the file; empty if they can be read.
/// With unreadable options a run would silently use the defaults.
QString problem();

/// The same for the installation's defaults.
QString defaultsProblem();

/// Why the file cannot be locked, in the same way. Without this check the library
/// would write without a lock, and scripts that run at the same time would undo each other's
/// changes.
QString lockProblem();

/// Whether the file stores the option. Changes of any other option are lost.
bool isKept(const common_PropertyMetaData& metaData);

/// The options that the file stores.
QStringList keptNames(const common_ComponentsLaunchOptions& options);

/// The value as text.
QString value(const common_ComponentsLaunchOptions& options, const QString& name);

/// Writes the options and reads them again, because a disk may be full or a folder read-only.
Saving save(common_ComponentsLaunchOptions& options);

/// Whether a program holds the file.
bool isOwned();

/// A description of the program that holds the file; never empty.
QString owner();

} // namespace LaunchOptionsFile
