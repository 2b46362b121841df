// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Versions of the application and its parts, for users and support.
namespace Versions {

/// "NAME VERSION" of this program.
QString program();

/// The engine and the libraries that the program uses, with their licences, a line each. The
/// argument is EngineVersion::text().
QString parts(const QString& engine);

} // namespace Versions
