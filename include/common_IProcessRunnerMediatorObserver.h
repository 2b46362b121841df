// SPDX-License-Identifier: MIT
#pragma once

#include <kest_common_export.h>

/// Receives from common_ProcessRunnerMediator what a QProcess signals.
class KEST_COMMON_EXPORT common_IProcessRunnerMediatorObserver
{
public:
    virtual ~common_IProcessRunnerMediatorObserver();

    /// There is new output on standard output.
    virtual void onReadPipe() = 0;

    /// There is new output on standard error.
    virtual void onReadErrorPipe() = 0;

    /// The child has ended.
    virtual void onProcessDone() = 0;

protected:
    common_IProcessRunnerMediatorObserver() = default;
    common_IProcessRunnerMediatorObserver(const common_IProcessRunnerMediatorObserver&) = default;
    common_IProcessRunnerMediatorObserver&
    operator=(const common_IProcessRunnerMediatorObserver&) = default;
};
