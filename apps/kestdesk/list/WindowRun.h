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

/// A run as the window shows it: with a dialog of its own, with texts for the list of runs, and
/// with a record in the archive.
class WindowRun : public QObject
{
    Q_OBJECT

public:
    /// The component must outlive the run.
    WindowRun(const Component& component, const QString& model, QObject* parent);

    /// Of the dialog; to be set before the start.
    void setTitle(const QString& title) { m_title = title; }

    /// Sets the run up and starts it. The dialog gets the window as its parent. False when it did
    /// not start, which the user has been shown then.
    bool start(common_RunWrapper::RunOptions options, common_CommonSettingsSet& settings,
               QWidget* window);

    /// The same for a run that repeats a recorded one exactly. The record is a whole one.
    bool startAgain(const RunRecord& record, common_CommonSettingsSet& settings, QWidget* window);

    /// Brings the dialog to the front. False when the user has closed it.
    bool showDialog();

    Run& run() { return m_run; }
    const Run& run() const { return m_run; }

    /// The state in a few words; of a fault also what ended the run: "fault, SIGKILL".
    QString stateText() const;

    /// The state as a sentence or two, with what the end usually means.
    QString explanation() const;

    /// Of the run's record; 0 as long as it has none.
    int number() const { return m_recorder.number(); }

    /// Whether nothing is left to be written into the record.
    bool isRecorded() const;

    /// Why the record is not complete, as a sentence; empty when nothing is wrong with it.
    QString recordProblem() const { return m_recordProblem; }

    /// When it was made.
    QDateTime started() const { return m_started; }

    /// How many errors and warnings the component has reported.
    int errors() const { return m_errors; }
    int warnings() const { return m_warnings; }

    const RunForecast& forecast() const { return m_forecast; }

    /// How long the run still takes: "about 3:40"; empty while that cannot be said.
    QString remainingText() const { return m_forecast.shortText(); }

    /// The same in milliseconds.
    std::optional<qint64> remaining() const { return m_forecast.remaining(); }

    /// The tables that the results viewer shows, once the component has ended.
    QStringList results() const { return m_results; }

Q_SIGNALS:
    /// What the list shows has changed.
    void changed();

    /// The run has ended.
    void ended();

    /// The archive has the run's record now.
    void recordMade();

    /// The record is not complete; recordProblem() says why.
    void recordFailed();

    /// Nothing is left to be written into the record.
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
