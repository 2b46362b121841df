#pragma once

#include <QVector>

class QWidget;
class Shutdown;
class WindowRun;

/// Stops runs as the user of a window wants it, whom it asks where much may be lost.
class RunStops
{
public:
    /// Both must outlive this.
    RunStops(Shutdown& shutdown, QWidget& window) : m_shutdown(shutdown), m_window(window) {}

    /// Stops one run. The window may be destroyed while the user is asked.
    static void stop(WindowRun& run, QWidget& window);

    /// The user closes the window: takes the next step of the shutdown, or takes the steps back, as
    /// the user answers. Where the runs end by themselves before there is an answer, the shutdown
    /// goes on. Whether the window may close now. The window, and this, may be destroyed meanwhile.
    bool close(const QVector<WindowRun*>& running);

private:
    Shutdown& m_shutdown;
    QWidget& m_window;
};
