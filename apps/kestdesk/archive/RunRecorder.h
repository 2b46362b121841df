// SPDX-License-Identifier: MIT
#pragma once

#include "RecordWriter.h"
#include "Run.h"

#include <QObject>

#include <optional>

/// Writes the record of a run while it runs, as an observer of the run.
class RunRecorder : public QObject
{
    Q_OBJECT

public:
    /// The face that shows the run.
    enum class Face { Window, Terminal };

    /// To be created before the run is started. The recorder may outlive the run.
    RunRecorder(Run& run, Face face, RunArchive archive, const RunArchive::Limits& limits,
                QObject* parent = nullptr);

    /// Sets the options that the run is set up with. Has an effect only before the start.
    void setRunOptions(common_RunWrapper::RunOptions options) { m_options = options; }

    /// Says that the run repeats a recorded one (RecordedRun). To be called before the start,
    /// instead of setRunOptions().
    void setRepeated(const RunRecord& record);

    /// Number of the record in the archive; 0 while there is none.
    int number() const { return m_number; }

    /// Whether nothing more will be written: the record is complete, or has failed.
    bool isFinished() const { return m_isFinished; }

Q_SIGNALS:
    /// The archive has the record now.
    void created(int number);

    /// The record is not complete. The reason is a clause.
    void failed(const QString& reason);

    /// Nothing more is written.
    void finished();

private:
    void onStateChanged(const Run& run);
    void begin(const Run& run);
    void add(const Run& run, const common_IProcessMessage& message);
    void end(const Run& run);

    Face m_face;
    RunArchive::Limits m_limits;
    common_RunWrapper::RunOptions m_options;
    std::optional<RunRecord> m_repeated;
    RecordWriter m_writer;
    bool m_hasBegun = false;
    bool m_isFinished = false;
    int m_number = 0;
    QString m_percentage;      ///< last recorded
    QString m_totalPercentage; ///< last recorded
};
