#pragma once

#include <kest_common_export.h>

/// What common_ProcessRunnerMediator passes on of a QProcess's signals.
class KEST_COMMON_EXPORT common_IProcessRunnerMediatorObserver
{
public:
    virtual ~common_IProcessRunnerMediatorObserver();

    /// There is something to read on standard output.
    virtual void onReadPipe() = 0;

    /// There is something to read on standard error.
    virtual void onReadErrorPipe() = 0;

    /// The child has ended.
    virtual void onProcessDone() = 0;

protected:
    common_IProcessRunnerMediatorObserver() = default;
    common_IProcessRunnerMediatorObserver(const common_IProcessRunnerMediatorObserver&) = default;
    common_IProcessRunnerMediatorObserver&
    operator=(const common_IProcessRunnerMediatorObserver&) = default;
};
