// SPDX-License-Identifier: MIT
#pragma once

#include "SessionRuns.h"

#include <QObject>

#include <memory>

class MainMenu;
class RecordWindows;
class RunAgain;
class RunListPart;
class RunListView;
class RunTableModel;
class Shutdown;
class common_CommonSettingsSet;

/// The parts of the window that deal with runs: their list with its actions, the runs of this
/// session, and the windows of their records.
class RunDesk : public QObject
{
    Q_OBJECT

public:
    /// The arguments must outlive this object. The window owns the list.
    RunDesk(Shutdown& shutdown, common_CommonSettingsSet& settings, QWidget* window);

    /// Also ends the recording of the runs of this session.
    ~RunDesk() override;

    /// Adds the actions on runs to the menu and to the list.
    void addActions(MainMenu* menu);

    /// Starts to follow the archive.
    void start();

    RunTableModel* runs() const { return m_runs; }
    RunListPart* listPart() const { return m_listPart; }
    RunListView* list() const;
    SessionRuns& session() const { return *m_session; }

    /// Shows the current run: its dialog, if it has one in this session, or else its record.
    void showRun();

    /// Removes the ended runs from the list; their records stay.
    void clearEnded();

Q_SIGNALS:
    /// The shown data of runs or the selection have changed.
    void changed();

    /// A recorded run is about to be repeated.
    void aboutToRun();

    /// A sentence for the status line.
    void reported(const QString& text);

private:
    void connectParts();
    void makeCureBar();
    void editHost(const RunRecord& record, const QString& host, const QString& problem);
    void runAgain(const RunRecord& record, const QString& model);
    void resume(const RunRecord& record);
    void repeat(const RunRecord& record, const QString& model, const QString& report);

    common_CommonSettingsSet& m_settings;
    RunTableModel* m_runs;
    RunListPart* m_listPart;
    RunAgain* m_again;
    RecordWindows* m_records;
    QWidget* m_window;
    std::unique_ptr<SessionRuns> m_session; ///< destroyed first: it reports to the list
};
