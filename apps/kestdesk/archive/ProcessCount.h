// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

namespace suite {
class MachinesFile;
}

/// The number of processes that solve a model at once, from the arguments of the component.
namespace ProcessCount {

/// If the arguments ask for all processors, counts those of the machines file. 1 if the arguments
/// give no number.
int of(const QStringList& arguments, const suite::MachinesFile& machines);

} // namespace ProcessCount
