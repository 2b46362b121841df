// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Checks the environment variables for the solver's process: one NAME=VALUE per line, in a form
/// that can be passed on unchanged.
namespace EnvironmentRule {

/// The error in the text as a sentence; empty if the text is valid.
QString problem(const QString& text);

} // namespace EnvironmentRule
