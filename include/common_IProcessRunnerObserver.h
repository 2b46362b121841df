// SPDX-License-Identifier: MIT
#pragma once

#include <common_MultiObserverOf.h>
#include <common_ObservableVia.h>
#include <common_ObserverConnection.h>
#include <common_ObserverOf.h>
#include <kest_common_export.h>

#include <QStringList>

class common_IProcessMessage;

/// Receives the notifications of a process runner. Derive observers from
/// common_ObserverOf<common_IProcessRunnerObserver>, or use common_ProcessRunnerObserver, which
/// calls functions.
class KEST_COMMON_EXPORT common_IProcessRunnerObserver
{
public:
    /// The child has started.
    virtual void onProcessStarted(const QString& executable, const QStringList& arguments) = 0;

    /// The child could not be started; errorString says why. Called after onExitCodeChanged().
    virtual void onFailedProcessStarted(const QString& executable, const QStringList& arguments,
                                        const QString& errorString) = 0;

    /// The child printed something. The message is valid during this call only.
    virtual void onProcessMessageReceived(const common_IProcessMessage& message) = 0;

    /// The child has ended, and all its complete lines were delivered; text behind the last line
    /// end is not. Called after onExitCodeChanged(); the run's temporary files still exist.
    virtual void onProcessDone() = 0;

    /// The exit code, just before onProcessDone() or onFailedProcessStarted(). Before the latter it
    /// means nothing: usually 0 or 255. The observer must not be destroyed in this call, because
    /// the other one follows.
    virtual void onExitCodeChanged(int exitCode) = 0;

    virtual ~common_IProcessRunnerObserver();

protected:
    common_IProcessRunnerObserver() = default;
    common_IProcessRunnerObserver(const common_IProcessRunnerObserver&) = default;
    common_IProcessRunnerObserver& operator=(const common_IProcessRunnerObserver&) = default;
};

// Declared here, so that every user of the interface takes the library's instantiations. A library
// that is made by mingw-w64 does not export what is defined within these classes: there, each user
// has instantiations of its own, and types are the same by their names.
#ifndef __MINGW32__
extern template class KEST_COMMON_EXPORT common_ObserverConnection<common_IProcessRunnerObserver>;
extern template class KEST_COMMON_EXPORT common_ObservableVia<common_IProcessRunnerObserver>;
extern template class KEST_COMMON_EXPORT common_ObserverOf<common_IProcessRunnerObserver>;
extern template class KEST_COMMON_EXPORT common_MultiObserverOf<common_IProcessRunnerObserver>;
#endif
