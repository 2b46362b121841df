#pragma once

#include "RecordWriter.h"
#include "Run.h"

#include <QObject>

#include <optional>

/// Makes the record of a run while it runs, whatever becomes of the run.
class RunRecorder : public QObject
{
    Q_OBJECT

public:
    /// The face that shows the run.
    enum class Face { Window, Terminal };

    /// To be made before the run is started. The recorder stays usable when the run is gone.
    RunRecorder(Run& run, Face face, RunArchive archive, const RunArchive::Limits& limits,
                QObject* parent = nullptr);

    /// What the run is set up with: to be called before it is started, and only then of use.
    void setRunOptions(common_RunWrapper::RunOptions options) { m_options = options; }

    /// That the run repeats a recorded one (RecordedRun): to be called before it is started, in
    /// place of setRunOptions().
    void setRepeated(const RunRecord& record);

    /// Of the record in the archive; 0 as long as there is none.
    int number() const { return m_number; }

    /// Whether the record is complete, or never will be.
    bool isFinished() const { return m_isFinished; }

Q_SIGNALS:
    /// The archive has the record now.
    void created(int number);

    /// The record is not complete, for that reason, a clause.
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
