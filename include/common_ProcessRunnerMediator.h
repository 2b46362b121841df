#pragma once

#include <kest_common_export.h>

#include <QObject>
#include <QProcess>

class common_IProcessRunnerMediatorObserver;

/// Receives a QProcess's signals in place of the process runner, which is no QObject.
class KEST_COMMON_EXPORT common_ProcessRunnerMediator : public QObject
{
    Q_OBJECT

public:
    /// The observer is not owned and must outlive the mediator.
    explicit common_ProcessRunnerMediator(common_IProcessRunnerMediatorObserver* pObserver);

    /// Passes on the end of the process and what there is to read from now on.
    void setProcess(QProcess* pProcess);

private Q_SLOTS:
    void onProcessFinished(int exitCode, QProcess::ExitStatus exitStatus);
    void onPipeReady();
    void onErrorPipeReady();

private:
    common_IProcessRunnerMediatorObserver* m_pObserver;
};
