#pragma once

#include <QString>

/// What an application is made of, for its users and for those who help them.
namespace Versions {

/// "NAME VERSION" of this program.
QString program();

/// The engine and the libraries that the program uses, with their licences, a line each. The engine
/// is as EngineVersion gives it.
QString parts(const QString& engine);

} // namespace Versions
