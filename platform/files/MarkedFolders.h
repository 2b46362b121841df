// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Temporary folders whose names contain the mark of the process that made them, so that another
/// process can remove them after that process was killed.
namespace MarkedFolders {

/// The beginning of a folder's name, before "-XXXXXX" in the template of a QTemporaryDir: the name,
/// which is two lower-case words joined by "-", and the mark of this process.
QString marked(const QString& name);

/// Removes the temporary folders that ended processes of this user on this host have left. Links
/// are not followed; folders that cannot be removed stay.
void removeLeft();

} // namespace MarkedFolders
