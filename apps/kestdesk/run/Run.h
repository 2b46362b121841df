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

/// One run of a component on one model, from its set-up to its end. The terminal and the window
/// show it; it knows neither of them.
///
/// A run is set up, again if need be, and then started or refused. It ends once: as valid, as a
/// fault, as stopped, or as one that did not start. Each signal comes after the change that it
/// reports. In a slot the run must not be deleted, except by deleteLater().
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
        Stopped     ///< ended: somebody asked for it
    };
    Q_ENUM(State)

    /// The component must outlive the run. The model's path may be relative. The runner is for this
    /// run alone.
    Run(const Component& component, QString model, common_ActivePtr<ComponentRunner> runner,
        QObject* parent = nullptr);
    ~Run() override;

    /// Makes a waiting run ready to start, as the user's launch options say. Where it is not ready,
    /// nothing that was made for it is left, and it may be set up again. While another run has the
    /// model, a run is not ready.
    RunSetup::Readiness setUp(common_RunWrapper::RunOptions options,
                              common_CommonSettingsSet& settings);

    /// The same for a run that is made ready in another way, by that function.
    RunSetup::Readiness setUpBy(const std::function<RunSetup::Readiness()>& makeReady);

    /// Starts a run that is ready. False when the system cannot start the component: then the run
    /// has ended, and problem() says why.
    bool start();

    /// Ends a waiting run as one that was not started, because of that problem.
    void refuse(const QString& problem);

    /// Who asked a run to stop.
    enum class Stopper { User, Shutdown };

    /// Asks the component to stop; it may take its time, or not listen. Nothing when it does not
    /// run.
    void stop(Stopper stopper = Stopper::User);

    /// Ends the run as stopped, though its component, which cannot be killed, still runs. Nothing
    /// when it does not run.
    void giveUp();

    QString model() const { return m_model; }
    QString componentName() const { return QLatin1String(m_component.name); }
    common_ActivePtr<ComponentRunner> runner() const { return m_runner; }

    State state() const { return m_state; }

    /// Whether the component runs, asked to stop or not.
    bool isRunning() const { return m_state == State::Running || m_state == State::Stopping; }

    /// Percentages (0 to 100) that the component has reported: of the phase that it is in, and of
    /// all of its work.
    int percentage() const { return m_percentage; }
    int totalPercentage() const { return m_totalPercentage; }

    /// The files that the component says it has written, each once, as it names them.
    const QStringList& files() const { return m_files; }

    /// Milliseconds from the start to now, or to the end; 0 for a run that was not started.
    qint64 elapsed() const;

    /// What became of the run, once it has ended.
    const RunOutcome& outcome() const { return m_outcome; }

    /// Who asked the component to stop, in words; empty when it was not asked from here.
    QString stoppedBy() const { return m_stoppedBy; }

    /// Why the run could not be started, or its component not be ended, as a clause; empty where
    /// there was no such problem, or where the user has been shown it already.
    QString problem() const { return m_problem; }

Q_SIGNALS:
    void stateChanged(Run::State state);

    /// totalPercentage() has changed.
    void progressed();

    /// The component has reported something, which percentages and files take into account.
    void messageReceived(const common_IProcessMessage& message);

    /// The run has ended. It comes once, as the last signal.
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
