#pragma once

#include "Component.h"

#include <QString>

class BatchRunner;
class QFileInfo;
class common_CommonSettingsSet;

/// Makes runners ready to run components.
namespace RunSetup {

/// What keeps a run from starting.
enum class Obstacle {
    None,
    Told,      ///< the user has been told already
    Complaint, ///< the user is to be told
    NoFile,    ///< there is no machines file, of which the user has been told
    NoHost     ///< the machines file names no host
};

/// Whether a run can start.
struct Readiness
{
    Obstacle obstacle = Obstacle::None;
    QString complaint; ///< why not; empty where the user has been told already

    bool isReady() const { return obstacle == Obstacle::None; }
};

/// Sets a runner up as the user's launch options say; arguments and temporary files of an earlier
/// set-up are forgotten. Temporary files that were made belong to the runner, ready or not, and to
/// no other run.
Readiness apply(BatchRunner& runner, const Component& component,
                common_RunWrapper::RunOptions options, const QFileInfo& model,
                common_CommonSettingsSet& settings);

} // namespace RunSetup
