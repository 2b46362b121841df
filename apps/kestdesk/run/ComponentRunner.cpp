// SPDX-License-Identifier: MIT
#include "ComponentRunner.h"

#include <ConsoleBreak.h>
#include <FileReplacement.h>

#include <common_ActivePtr.h>

#include <QProcess>

#include <utility>
#include <vector>

ComponentRunner::ComponentRunner()
{
    ConsoleBreak::prepare(process());
}

void ComponentRunner::setStopListener(StopListener listener)
{
    m_stopListener = std::move(listener);
}

void ComponentRunner::deleteTemporaryFiles()
{
    removeFiles();
    setTemporaryFilenames({});
}

// The destructor of QProcess would block for half a minute, so the runner is never destroyed.
void ComponentRunner::abandon()
{
    static auto* const abandoned = new std::vector<common_ActivePtr<ComponentRunner>>;
    abandoned->emplace_back(this);
    removeFiles();
}

// Components are console programs, which QProcess::terminate() does not reach on Windows. One that
// cannot be asked in any way is killed; what it has started ends with it.
void ComponentRunner::onStopRequested()
{
    if (!ConsoleBreak::send(process().processId())) {
        process().kill();
    }
    if (m_stopListener) {
        m_stopListener();
    }
}

void ComponentRunner::removeFiles() const
{
    const QStringList files = getTemporaryFilenames();
    for (const QString& file : files) {
        FileReplacement::remove(file);
    }
}
