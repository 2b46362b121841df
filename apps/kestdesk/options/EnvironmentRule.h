#pragma once

#include <QString>

/// What the variables for the solver's process may be: NAME=VALUE, one a line, as they can be
/// passed on unchanged.
namespace EnvironmentRule {

/// What is wrong with the text, as a sentence; empty when it is right.
QString problem(const QString& text);

} // namespace EnvironmentRule
