#pragma once

#include <common_ProcessRunner.h>

/// A runner of solver components that can let go of a run that never began.
class BatchRunner : public common_ProcessRunner<common_KestProcessMessage>
{
public:
    /// Deletes the temporary files, as the end of a run does, when no child was started. Observers
    /// would hear of an end: there must be none.
    void discardTemporaryFiles() { onProcessDone(); }

    /// Deletes the temporary files at once and tells nobody. The runner keeps their names.
    void deleteTemporaryFiles();

    /// Lets the child go on alone: nothing waits for it when this runner is released, which then
    /// stays in memory. For a child that cannot be ended, before the program ends. The temporary
    /// files go.
    void abandon();
};
