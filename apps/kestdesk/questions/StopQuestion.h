// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPointer>
#include <QVector>

class KestdeskSettings;
class QMessageBox;
class QPushButton;
class QWidget;
class Run;
class RunForecast;

/// The question before runs are stopped, with their names, percentages and remaining times. Enter
/// and Escape keep the runs. The question closes by itself as soon as the last of the runs has
/// ended.
class StopQuestion : public QObject
{
    Q_OBJECT

public:
    /// The action to confirm.
    enum class Deed {
        Stop,     ///< stop the run
        StopAll,  ///< stop the runs, and quit
        ForceAll, ///< kill the runs that have not stopped yet, and quit
    };

    enum class Answer {
        Keep,
        Stop,
        Ended, ///< the runs have ended before the answer
    };

    /// A run to be stopped, and the estimate of its remaining time.
    struct Subject
    {
        QPointer<Run> run;
        QPointer<const RunForecast> forecast;
    };

    /// Shows the question and returns the answer. Runs an event loop, in which the window and the
    /// runs may be destroyed: the answer is Keep then.
    static Answer ask(Deed deed, const QVector<Subject>& runs, QWidget* window);

    /// Whether the settings ask for a question before this run is stopped. Never for a run that has
    /// just started, with little to lose, or that has already been asked to stop.
    static bool isWanted(const Run& run, const KestdeskSettings& settings);

private:
    StopQuestion(Deed deed, QVector<Subject> runs, QWidget* window);

    Answer answer();
    void addButtons();
    void update();
    QVector<Subject> runningRuns() const;

    Deed m_deed;
    QVector<Subject> m_runs;
    QPointer<QMessageBox> m_box; ///< owned by the window
    QPushButton* m_stop = nullptr;
};
