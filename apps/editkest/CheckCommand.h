// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

/// Checks the models as prekest does and prints what it would print. Returns the exit code: 0, or 1
/// when one of them has errors.
int checkModels(const QStringList& models);
