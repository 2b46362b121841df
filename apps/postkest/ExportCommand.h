// SPDX-License-Identifier: MIT
#pragma once

#include <QSize>
#include <QStringList>

/// Writes the charts or the table of the results into a file and prints its name. The size is in
/// pixels. Returns the exit code: 0, or 1 with the reason on standard error.
int exportResults(const QStringList& files, const QString& output, const QSize& size);
