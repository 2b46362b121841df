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

    /// Starts the program on two files of its working folder.
    void startEngine(const QString& program, const QString& deckFile, const QString& outputFile);

    /// The engine's priority; before its start.
    void setPriority(Priority priority);

    /// What the engine printed on its channels, up to a limit.
    [[nodiscard]] QString printedText() const;

private:
    QByteArray m_printed;
};

} // namespace suite
