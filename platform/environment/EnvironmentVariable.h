// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// The environment of this process, with names and values of any characters that the system allows.
namespace EnvironmentVariable {

/// Empty if there is no such variable.
QString value(const QString& name);

bool exists(const QString& name);

/// False if the system refuses the variable.
bool set(const QString& name, const QString& value);

/// Whether variables can differ by the case of their names.
Qt::CaseSensitivity caseOfNames();

/// Whether references to variables that do not exist stay in a text as they are; otherwise they
/// count as empty, as in a shell.
bool unknownReferencesStay();

} // namespace EnvironmentVariable
