// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

/// Runs a program in place of this one, with its channels. On Windows this one waits for it and
/// ends with its exit code, elsewhere it becomes the other. An exit code comes back when that
/// fails.
int runInPlace(const QString& program, const QStringList& arguments);
