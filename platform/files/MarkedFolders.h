#pragma once

#include <QString>

/// Temporary folders whose names say which process made them, so that another one can remove them
/// after that process was killed.
namespace MarkedFolders {

/// The name, two words of small letters with "-" between them, and the mark of this process: what a
/// folder's name begins with, before "-XXXXXX" in the template of a QTemporaryDir.
QString marked(const QString& name);

/// Removes, from the place for temporary files, the folders of processes that have ended without
/// doing so: those of this user and this host. Links are not followed; what cannot be removed
/// stays.
void removeLeft();

} // namespace MarkedFolders
