#pragma once

#include <QObject>
#include <QPointer>
#include <QVector>

class KestdeskSettings;
class QMessageBox;
class QPushButton;
class QWidget;
class Run;

/// The question before runs are stopped, with their names. Enter and Escape keep the runs. The
/// question closes by itself as soon as the last of the runs has ended.
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

    /// Shows the question and returns the answer. Runs an event loop, in which the window and the
    /// runs may be destroyed: the answer is Keep then.
    static Answer ask(Deed deed, const QVector<Run*>& runs, QWidget* window);

    /// Whether the settings ask for a question before this run is stopped. Never for a run that has
    /// just started, with little to lose, or that has already been asked to stop.
    static bool isWanted(const Run& run, const KestdeskSettings& settings);

private:
    StopQuestion(Deed deed, const QVector<Run*>& runs, QWidget* window);

    Answer answer();
    void addButtons();
    void update();
    QVector<const Run*> runningRuns() const;

    Deed m_deed;
    QVector<QPointer<Run>> m_runs;
    QPointer<QMessageBox> m_box; ///< owned by the window
    QPushButton* m_stop = nullptr;
};
