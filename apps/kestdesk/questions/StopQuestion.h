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

/// A question to the user before runs are stopped, which names them and says how far they are. The
/// Enter and the Escape key leave them alone. It goes away by itself as soon as the last of the
/// runs has ended.
class StopQuestion : public QObject
{
    Q_OBJECT

public:
    /// What the user is asked about.
    enum class Deed {
        Stop,     ///< stop the run
        StopAll,  ///< stop the runs, and quit
        ForceAll, ///< end by force the runs that did not stop yet, and quit
    };

    enum class Answer {
        Keep,
        Stop,
        Ended, ///< the runs have ended before there was an answer
    };

    /// A run to be stopped, and how long it still takes.
    struct Subject
    {
        QPointer<Run> run;
        QPointer<const RunForecast> forecast;
    };

    /// Shows the question and waits for the answer. The window may be destroyed meanwhile, and the
    /// runs with it, which means to keep them.
    static Answer ask(Deed deed, const QVector<Subject>& runs, QWidget* window);

    /// Whether the user wants to be asked before this run is stopped: not when it has just started,
    /// so that little is lost, or has been asked to stop already.
    static bool isWanted(const Run& run, const KestdeskSettings& settings);

private:
    StopQuestion(Deed deed, QVector<Subject> runs, QWidget* window);

    Answer answer();
    void addButtons();
    void update();
    QVector<Subject> runningRuns() const;

    Deed m_deed;
    QVector<Subject> m_runs;
    QPointer<QMessageBox> m_box; ///< the window's child
    QPushButton* m_stop = nullptr;
};
