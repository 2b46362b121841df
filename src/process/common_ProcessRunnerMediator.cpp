// SPDX-License-Identifier: MIT
#include <common_ProcessRunnerMediator.h>

#include <common_IProcessRunnerMediatorObserver.h>

common_ProcessRunnerMediator::common_ProcessRunnerMediator(
    common_IProcessRunnerMediatorObserver* pObserver)
    : m_pObserver(pObserver)
{}

// Connected by signature, because signal tracers and test tools list these names.
void common_ProcessRunnerMediator::setProcess(QProcess* pProcess)
{
    connect(pProcess, SIGNAL(finished(int, QProcess::ExitStatus)), this,
            SLOT(onProcessFinished(int, QProcess::ExitStatus)));
    connect(pProcess, SIGNAL(readyReadStandardOutput()), this, SLOT(onPipeReady()));
    connect(pProcess, SIGNAL(readyReadStandardError()), this, SLOT(onErrorPipeReady()));
}

void common_ProcessRunnerMediator::onProcessFinished(int /*exitCode*/,
                                                     QProcess::ExitStatus /*exitStatus*/)
{
    m_pObserver->onProcessDone();
}

void common_ProcessRunnerMediator::onPipeReady()
{
    m_pObserver->onReadPipe();
}

void common_ProcessRunnerMediator::onErrorPipeReady()
{
    m_pObserver->onReadErrorPipe();
}
