// SPDX-License-Identifier: MIT
#include "ComponentRunner.h"

#include <common_ActivePtr.h>

#include <QFile>

#include <utility>
#include <vector>

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

void ComponentRunner::onStopRequested()
{
    if (m_stopListener) {
        m_stopListener();
    }
}

void ComponentRunner::removeFiles() const
{
    const QStringList files = getTemporaryFilenames();
    for (const QString& file : files) {
        QFile::remove(file);
    }
}
