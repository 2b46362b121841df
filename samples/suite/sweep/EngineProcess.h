// SPDX-License-Identifier: MIT
#pragma once

#include "Priority.h"

#include <ChildProcess.h>

namespace suite {

/// One run of the engine.
class EngineProcess : public ChildProcess
{
    Q_OBJECT

public:
    explicit EngineProcess(QObject* parent = nullptr);

    /// Starts the program with the names of two files in its working folder.
    void startEngine(const QString& program, const QString& deckFile, const QString& outputFile);

    /// Sets the engine's priority. To be called before the start.
    void setPriority(Priority priority);

    /// The engine's output on its standard channels, up to a limit.
    [[nodiscard]] QString printedText() const;

private:
    QByteArray m_printed;
};

} // namespace suite
