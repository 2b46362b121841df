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
    Shown,   ///< what the user has been shown already
    Problem, ///< what the user has not been shown yet
    Busy,    ///< another run has the model, which the user has not been shown yet
    NoFile,  ///< there is no machines file, which the user has been shown already
    NoHost   ///< the machines file names no host, which the user has not been shown yet
};

/// Whether a run can start.
struct Readiness
{
    Obstacle obstacle = Obstacle::None;
    QString problem; ///< why not, as a clause; empty where the user has been shown it already

    bool isReady() const { return obstacle == Obstacle::None; }
};

/// Sets a runner up as the user's launch options say; arguments and temporary files of an earlier
/// set-up are forgotten. Temporary files that were made belong to the runner, ready or not, and to
/// no other run: where it is not ready, the caller has to delete them.
Readiness apply(ComponentRunner& runner, const Component& component,
                common_RunWrapper::RunOptions options, const QFileInfo& model,
                common_CommonSettingsSet& settings);

} // namespace RunSetup
