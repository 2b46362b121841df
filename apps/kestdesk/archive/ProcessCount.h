// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

/// The number of processes that solve a model at once, from the arguments of the component.
namespace ProcessCount {

/// If the arguments ask for all processors, reads and counts those of the machines file, whose path
/// may be empty. 1 if the arguments give no number.
int of(const QStringList& arguments, const QString& machinesFile);

} // namespace ProcessCount
