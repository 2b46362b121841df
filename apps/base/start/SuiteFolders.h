// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// The folders that KEST_HOME and KEST_USER_HOME name.
namespace SuiteFolders {

/// Why they cannot be used, as a sentence without full stop; empty if they can. A name that is
/// invalid in the encoding of the session would be mistaken for another folder, which would even be
/// created. Needs the application object.
QString problem();

} // namespace SuiteFolders
