#pragma once

#include "Component.h"
#include "RunOutcome.h"
#include "RunSetup.h"
#include "WindowRunner.h"

#include <common_ActivePtr.h>
#include <common_ObserverOf.h>

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>

class common_CommonSettingsSet;
class common_KestProcessDialog;

/// One run that was started in the window: its runner, its dialog, and what the list of runs shows.
class WindowRun : public QObject, public common_ObserverOf<common_IProcessRunnerObserver>
{
    Q_OBJECT

public:
    enum class State { NotStarted, Running, Stopping, Valid, Fault, Stopped };

    WindowRun(const Component& component, QString model, QObject* parent);
    ~WindowRun() override;

    /// Sets the run up and starts it. The dialog gets the window as its parent. False when it did
    /// not start, of which the user has been told.
    bool start(common_RunWrapper::RunOptions options, common_CommonSettingsSet& settings,
               QWidget* window);

    /// Asks the component to stop.
    void stop();

    /// Shows a component that cannot be killed as stopped and waits for it no longer. Nothing when
    /// none is running.
    void giveUp();

    /// Brings the dialog to the front. False when the user has closed it.
    bool showDialog();

    QString model() const { return m_model; }
    QString componentName() const { return QLatin1String(m_component.name); }
    State state() const;
    bool isRunning() const { return m_state == State::Running; }
    int totalPercentage() const { return m_totalPercentage; }

    /// Milliseconds since the start, until the end.
    qint64 elapsed() const;

    /// The state in a few words; of a fault also what ended the run: "fault, SIGKILL".
    QString stateText() const;

    /// The state as a sentence or two, with what the end usually means.
    QString explanation() const;

    /// The tables that the results viewer shows, once the component has ended.
    QStringList results() const { return m_results; }

    void onProcessStarted(const QString& executable, const QStringList& arguments) override;
    void onFailedProcessStarted(const QString& executable, const QStringList& arguments,
                                const QString& errorString) override;
    void onProcessMessageReceived(const common_IProcessMessage& message) override;
    void onProcessDone() override;
    void onExitCodeChanged(int exitCode) override;

Q_SIGNALS:
    /// What the list shows has changed.
    void changed();

    /// The component has ended.
    void ended();

private:
    RunSetup::Readiness setUp(common_RunWrapper::RunOptions options,
                              common_CommonSettingsSet& settings, QWidget* window);
    void setState(State state);
    void end(const RunOutcome& outcome);

    const Component& m_component;
    QString m_model;
    common_ActivePtr<WindowRunner> m_runner;
    QPointer<common_KestProcessDialog> m_dialog;
    State m_state = State::NotStarted; ///< never Stopping, which is asked of the runner
    RunOutcome m_outcome = RunOutcome::notStarted();
    int m_totalPercentage = 0;
    QStringList m_files; ///< that the component has told of
    QStringList m_results;
    QElapsedTimer m_clock;
    qint64 m_duration = 0;
};
