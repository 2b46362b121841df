// SPDX-License-Identifier: MIT
#pragma once

#include <kest_common_export.h>

#include <QObject>
#include <QProcess>

class common_IProcessRunnerMediatorObserver;

/// Receives a QProcess's signals for the process runner, which is not a QObject.
class KEST_COMMON_EXPORT common_ProcessRunnerMediator : public QObject
{
    Q_OBJECT

public:
    /// The observer is not owned and must outlive the mediator.
    explicit common_ProcessRunnerMediator(common_IProcessRunnerMediatorObserver* pObserver);

    /// Connects to the process: from now on its output and its end are passed on to the observer.
    void setProcess(QProcess* pProcess);

private Q_SLOTS:
    void onProcessFinished(int exitCode, QProcess::ExitStatus exitStatus);
    void onPipeReady();
    void onErrorPipeReady();

private:
    common_IProcessRunnerMediatorObserver* m_pObserver;
};
