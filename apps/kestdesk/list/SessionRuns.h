#pragma once

#include "RunTitles.h"
#include "WindowRun.h"

#include <QObject>
#include <QTimer>

#include <functional>

class QWidget;
class RunTableModel;
class Shutdown;

/// The runs that the window starts, from their start until their records are whole.
class SessionRuns : public QObject
{
    Q_OBJECT

public:
    /// All must outlive this.
    SessionRuns(RunTableModel* list, Shutdown& shutdown, QWidget* window);

    /// Ends the recording of runs that are left.
    ~SessionRuns() override;

    /// Adds a run to the list and starts it. Null when it did not start, which the user has been
    /// shown then.
    WindowRun* start(const Component& component, const QString& model,
                     common_RunWrapper::RunOptions options, common_CommonSettingsSet& settings);

    /// The same for a run that repeats a recorded one, on that model.
    bool startAgain(const RunRecord& record, const QString& model,
                    common_CommonSettingsSet& settings);

    /// Takes those that have ended out of this session; their records stay.
    void removeEnded();

    /// The archive has deleted those records: runs that have ended go with them.
    void removeDeleted(const QVector<int>& numbers);

    /// Emits allRecorded() when nothing is left to be written into the records, or when that takes
    /// too long; at once where nothing is.
    void finishRecords();

Q_SIGNALS:
    /// A run is new, and the one that the user will want to see.
    void added(WindowRun* run);

    /// What is shown of a run has changed.
    void changed();

    void ended(const WindowRun& run);
    void recordFailed(const WindowRun& run);
    void allRecorded();

    /// The archive has something new.
    void archiveChanged();

private:
    WindowRun* add(const Component& component, const QString& model,
                   const std::function<bool(WindowRun& run)>& start);
    void remove(WindowRun* run);
    void checkRecords();

    RunTableModel* m_list;
    Shutdown& m_shutdown;
    QWidget* m_window;
    RunTitles m_titles;
    bool m_isFinishing = false;
    QTimer m_finishTime;
};
