// SPDX-License-Identifier: MIT
#pragma once

#include "Run.h"
#include "RunForecast.h"
#include "RunRecorder.h"

#include <QDateTime>
#include <QObject>
#include <QPointer>
#include <QStringList>

#include <functional>

class common_CommonSettingsSet;
class common_KestProcessDialog;

/// A run of the window, with its process dialog, its texts for the list of runs and its record in
/// the archive.
class WindowRun : public QObject
{
    Q_OBJECT

public:
    /// The component must outlive the run.
    WindowRun(const Component& component, const QString& model, QObject* parent);

    /// Sets the title of the dialog. To be called before the start.
    void setTitle(const QString& title) { m_title = title; }

    /// Sets the run up and starts it. The dialog becomes a child of the window. False if it did not
    /// start, after the user has been shown why.
    bool start(common_RunWrapper::RunOptions options, common_CommonSettingsSet& settings,
               QWidget* window);

    /// The same for a run that repeats a recorded one exactly. The record must be complete, with
    /// launch options.
    bool startAgain(const RunRecord& record, common_CommonSettingsSet& settings, QWidget* window);

    /// Brings the dialog to the front. False if the user has closed it.
    bool showDialog();

    Run& run() { return m_run; }
    const Run& run() const { return m_run; }

    /// The state in a few words; for a fault with the cause: "fault, SIGKILL".
    QString stateText() const;

    /// The state in a sentence or two, with the usual meaning of the end.
    QString explanation() const;

    /// Number of the run's record; 0 while there is none.
    int number() const { return m_recorder.number(); }

    /// Whether the record is completely written.
    bool isRecorded() const;

    /// Why the record is not complete, as a sentence; empty if there is no problem.
    QString recordProblem() const { return m_recordProblem; }

    /// When this object was created.
    QDateTime started() const { return m_started; }

    /// The numbers of errors and warnings that the component has reported.
    int errors() const { return m_errors; }
    int warnings() const { return m_warnings; }

    const RunForecast& forecast() const { return m_forecast; }

    /// The remaining time: "about 3:40"; empty while there is no estimate.
    QString remainingText() const { return m_forecast.shortText(); }

    /// The same in milliseconds.
    std::optional<qint64> remaining() const { return m_forecast.remaining(); }

    /// Paths of the tables that the results viewer shows; empty until the component has ended.
    QStringList results() const { return m_results; }

Q_SIGNALS:
    /// The texts for the list have changed.
    void changed();

    /// The run has ended.
    void ended();

    /// The archive has the run's record now.
    void recordMade();

    /// The record is not complete; recordProblem() says why.
    void recordFailed();

    /// The record is completely written.
    void recorded();

private:
    using SetUp = std::function<RunSetup::Readiness()>;

    bool start(const SetUp& setUp, QWidget* window);
    void makeDialog(QWidget* window);
    void onStateChanged();
    void onMessageReceived(const common_IProcessMessage& message);
    void onRecordFailed(const QString& reason);

    Run m_run;
    QString m_title;
    RunRecorder m_recorder;
    QString m_recordProblem;
    QDateTime m_started = QDateTime::currentDateTimeUtc();
    int m_errors = 0;
    int m_warnings = 0;
    RunForecast m_forecast;
    QPointer<common_KestProcessDialog> m_dialog;
    QStringList m_results;
};
