// SPDX-License-Identifier: MIT
#pragma once

#include "EngineProcess.h"

namespace suite {

/// One deck, solved by one run of the engine in a folder that several jobs may share.
class EngineJob : public EngineProcess
{
    Q_OBJECT

public:
    /// The number distinguishes the job's files from those of others in the folder.
    EngineJob(QString engine, const QString& folder, int number);

    /// Writes the deck and starts the engine.
    void solve(const QByteArray& deck);

    /// Why the job failed; empty if the output can be used.
    [[nodiscard]] QString error() const { return m_error; }
    [[nodiscard]] QByteArray output() const { return m_output; }

Q_SIGNALS:
    /// The engine has ended, or could not be started. Emitted once, from the event loop.
    void done();

private:
    void readOutput();
    void end();
    [[nodiscard]] QString exitError() const;
    [[nodiscard]] QString filePath(const QString& suffix) const;

    QString m_engine;
    int m_number;
    QByteArray m_output;
    QString m_error;
};

} // namespace suite
