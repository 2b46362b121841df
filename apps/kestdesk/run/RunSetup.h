#ifndef RUNSETUP_H
#define RUNSETUP_H

#include "Component.h"

#include <QString>

class BatchRunner;
class QFileInfo;
class common_CommonSettingsSet;

/// Makes runners ready to run components.
namespace RunSetup {

/// Whether a run can start.
struct Readiness
{
    bool isReady = false;
    QString complaint; ///< why not; empty where the user has been told already
};

/// Sets a fresh runner up as the user's launch options say. Temporary files that were made belong
/// to the runner, ready or not.
Readiness apply(BatchRunner& runner, const Component& component,
                common_RunWrapper::RunOptions options, const QFileInfo& model,
                common_CommonSettingsSet& settings);

} // namespace RunSetup

#endif
