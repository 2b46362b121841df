// SPDX-License-Identifier: MIT
#pragma once

#include "RunTitles.h"
#include "WindowRun.h"

#include <QObject>
#include <QTimer>

#include <functional>

class QWidget;
class RunTableModel;
class Shutdown;

/// The runs that the window starts, from their start until their records are complete.
class SessionRuns : public QObject
{
    Q_OBJECT

public:
    /// The arguments must outlive this object.
    SessionRuns(RunTableModel* list, Shutdown& shutdown, QWidget* window);

    /// Ends the recording of the remaining runs.
    ~SessionRuns() override;

    /// Adds a run to the list and starts it. The run is owned by this object; null if it did not
    /// start, after the user has been shown why.
    WindowRun* start(const Component& component, const QString& model,
                     common_RunWrapper::RunOptions options, common_CommonSettingsSet& settings);

    /// The same for a run that repeats a recorded one on that model. False if it did not start.
    bool startAgain(const RunRecord& record, const QString& model,
                    common_CommonSettingsSet& settings);

    /// Removes the ended runs from this session; their records stay.
    void removeEnded();

    /// Removes the ended runs whose records have been deleted from the archive.
    void removeDeleted(const QVector<int>& numbers);

    /// Emits allRecorded() when all records are written, at once if they already are, or after some
    /// seconds in any case.
    void finishRecords();

Q_SIGNALS:
    /// A run has been added; the list should select it.
    void added(WindowRun* run);

    /// The shown data of a run have changed.
    void changed();

    void ended(const WindowRun& run);
    void recordFailed(const WindowRun& run);
    void allRecorded();

    /// A record has been added to the archive or changed.
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
