#pragma once

#include <common_MultiObserverOf.h>
#include <common_ObservableVia.h>
#include <common_ObserverConnection.h>
#include <common_ObserverOf.h>
#include <kest_common_export.h>

class common_IProcessMessage;
class QString;
class QStringList;

/// What a process runner tells its observers. Derive observers from
/// common_ObserverOf<common_IProcessRunnerObserver>.
class KEST_COMMON_EXPORT common_IProcessRunnerObserver
{
public:
    /// The child runs.
    virtual void onProcessStarted(const QString& executable, const QStringList& arguments) = 0;

    /// The child could not be started; errorString says why. The exit code was told before.
    virtual void onFailedProcessStarted(const QString& executable, const QStringList& arguments,
                                        const QString& errorString) = 0;

    /// The child printed something. The message lives for this call only.
    virtual void onProcessMessageReceived(const common_IProcessMessage& message) = 0;

    /// The child has ended and every line that it completed was told. The exit code was told
    /// before; the run's temporary files are still there.
    virtual void onProcessDone() = 0;

    /// The exit code, just before onProcessDone() or onFailedProcessStarted().
    virtual void onExitCodeChanged(int exitCode) = 0;

    virtual ~common_IProcessRunnerObserver();

protected:
    common_IProcessRunnerObserver() = default;
    common_IProcessRunnerObserver(const common_IProcessRunnerObserver&) = default;
    common_IProcessRunnerObserver& operator=(const common_IProcessRunnerObserver&) = default;
};

/// Here, so that nobody instantiates them before they are declared to be in the library.
extern template class KEST_COMMON_EXPORT common_ObserverConnection<common_IProcessRunnerObserver>;
extern template class KEST_COMMON_EXPORT common_ObservableVia<common_IProcessRunnerObserver>;
extern template class KEST_COMMON_EXPORT common_ObserverOf<common_IProcessRunnerObserver>;
extern template class KEST_COMMON_EXPORT common_MultiObserverOf<common_IProcessRunnerObserver>;
