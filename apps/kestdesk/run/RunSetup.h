// SPDX-License-Identifier: MIT
#pragma once

#include "Component.h"

#include <QString>

class ComponentRunner;
class QFileInfo;
class common_CommonSettingsSet;

/// Makes runners ready to run components.
namespace RunSetup {

/// What keeps a run from starting.
enum class Obstacle {
    None,
    Shown,   ///< the user has already been shown the problem
    Problem, ///< the user has not been shown the problem yet
    Busy,    ///< another run has locked the model; not shown yet
    NoFile,  ///< there is no machines file; already shown
    NoHost   ///< the machines file names no host; not shown yet
};

/// Whether a run can start.
struct Readiness
{
    Obstacle obstacle = Obstacle::None;
    QString problem; ///< why not, as a clause; empty if the user has already been shown it

    bool isReady() const { return obstacle == Obstacle::None; }
};

/// Sets a runner up with the user's launch options; arguments and temporary files of an earlier
/// set-up are cleared. New temporary files belong to this runner alone. If it is not ready, the
/// caller has to delete them.
Readiness apply(ComponentRunner& runner, const Component& component,
                common_RunWrapper::RunOptions options, const QFileInfo& model,
                common_CommonSettingsSet& settings);

} // namespace RunSetup
