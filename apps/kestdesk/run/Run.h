// SPDX-License-Identifier: MIT
#pragma once

#include "Component.h"
#include "ComponentRunner.h"
#include "ModelLock.h"
#include "RunOutcome.h"
#include "RunSetup.h"

#include <common_ActivePtr.h>
#include <common_ObserverOf.h>

#include <QElapsedTimer>
#include <QObject>
#include <QSet>
#include <QStringList>

#include <functional>

class common_CommonSettingsSet;

/// One run of a component on one model, from its set-up to its end. It depends neither on the
/// terminal nor on the window, which observe it.
///
/// A run is set up, more than once if necessary, and then started or refused. It ends once: valid,
/// with a fault, stopped, or not started. Each signal is emitted after the change that it reports.
/// A slot must not delete the run, except by deleteLater().
class Run : public QObject, public common_ObserverOf<common_IProcessRunnerObserver>
{
    Q_OBJECT

public:
    enum class State {
        Waiting,    ///< has not been started yet
        Running,    ///< the component runs
        Stopping,   ///< the component runs, but has been asked to stop
        Valid,      ///< ended: all of the work was done
        Fault,      ///< ended: something is missing
        NotStarted, ///< ended: could not be started
        Stopped     ///< ended: it was asked to stop
    };
    Q_ENUM(State)

    /// The component must outlive the run. The model's path may be relative. The runner must not be
    /// used by other runs.
    Run(const Component& component, QString model, common_ActivePtr<ComponentRunner> runner,
        QObject* parent = nullptr);
    ~Run() override;

    /// Makes a waiting run ready to start, with the user's launch options. If it is not ready, all
    /// temporary files are deleted, and it may be set up again. A run is not ready while another
    /// run has locked the model.
    RunSetup::Readiness setUp(common_RunWrapper::RunOptions options,
                              common_CommonSettingsSet& settings);

    /// Like setUp(), for a run that the function makes ready in another way.
    RunSetup::Readiness setUpBy(const std::function<RunSetup::Readiness()>& makeReady);

    /// Starts a run that is ready. False if the system cannot start the component: then the run has
    /// ended, and problem() gives the reason.
    bool start();

    /// Ends a waiting run in the state NotStarted. The problem is a clause.
    void refuse(const QString& problem);

    /// Who asked a run to stop.
    enum class Stopper { User, Shutdown };

    /// Asks the component to stop, which it may do later or not at all. Does nothing if it does not
    /// run.
    void stop(Stopper stopper = Stopper::User);

    /// Ends the run in the state Stopped although its component still runs, because it cannot be
    /// killed. Does nothing if the component does not run.
    void giveUp();

    QString model() const { return m_model; }
    QString componentName() const { return QLatin1String(m_component.name); }
    common_ActivePtr<ComponentRunner> runner() const { return m_runner; }

    State state() const { return m_state; }

    /// Whether the component runs, also after a request to stop.
    bool isRunning() const { return m_state == State::Running || m_state == State::Stopping; }

    /// Percentages (0 to 100) that the component has reported: of its current phase, and of all of
    /// its work.
    int percentage() const { return m_percentage; }
    int totalPercentage() const { return m_totalPercentage; }

    /// The files that the component says it has written, each once, as it names them.
    const QStringList& files() const { return m_files; }

    /// Milliseconds from the start until now, or until the end; 0 for a run that was not started.
    qint64 elapsed() const;

    /// How the run ended; valid only after the end.
    const RunOutcome& outcome() const { return m_outcome; }

    /// Who asked the component to stop, in words; empty if kestdesk did not ask.
    QString stoppedBy() const { return m_stoppedBy; }

    /// Why the run could not be started or its component could not be killed, as a clause; empty if
    /// there was no such problem, or if the user has already seen it.
    QString problem() const { return m_problem; }

Q_SIGNALS:
    void stateChanged(Run::State state);

    /// totalPercentage() has changed.
    void progressed();

    /// The component has reported something. The percentages and the files are already up to date.
    void messageReceived(const common_IProcessMessage& message);

    /// The run has ended. Emitted once, as the last signal.
    void ended();

private:
    void onProcessStarted(const QString& executable, const QStringList& arguments) override;
    void onFailedProcessStarted(const QString& executable, const QStringList& arguments,
                                const QString& errorString) override;
    void onProcessMessageReceived(const common_IProcessMessage& message) override;
    void onProcessDone() override;
    void onExitCodeChanged(int exitCode) override;

    void releaseRunner();
    void addFile(const QString& file);
    void setTotalPercentage(int percentage);
    void onStopRequested();
    void setState(State state);
    void end(const RunOutcome& outcome);

    const Component& m_component;
    QString m_model;
    ModelLock m_lock; ///< from the set-up to the end
    common_ActivePtr<ComponentRunner> m_runner;
    State m_state = State::Waiting;
    int m_percentage = 0;
    int m_totalPercentage = 0;
    QStringList m_files;
    QSet<QString> m_knownFiles; ///< those in m_files
    QElapsedTimer m_clock;
    qint64 m_duration = 0; ///< milliseconds
    RunOutcome m_outcome = RunOutcome::notStarted();
    QString m_problem;
    QString m_stoppedBy;
};
