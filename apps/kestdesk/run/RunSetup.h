#ifndef RUNSETUP_H
#define RUNSETUP_H

#include "Component.h"

class BatchRunner;
class QFileInfo;
class common_CommonSettingsSet;

/// Makes runners ready to run components.
namespace RunSetup {

/// Sets a fresh runner up as the user's launch options say. Returns why the run cannot start, empty
/// when it can. Temporary files that were made belong to the runner in either case.
QString apply(BatchRunner& runner, const Component& component,
              common_RunWrapper::RunOptions options, const QFileInfo& model,
              common_CommonSettingsSet& settings);

} // namespace RunSetup

#endif
