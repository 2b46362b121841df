#pragma once

#include <QString>

/// The folders that KEST_HOME and KEST_USER_HOME name.
namespace SuiteFolders {

/// Why they cannot be used, as a sentence without its end; empty when they can. A folder whose name
/// is no text in the encoding of the session would be mistaken for another one, which would even be
/// made. Needs the application object.
QString problem();

} // namespace SuiteFolders
