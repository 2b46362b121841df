// SPDX-License-Identifier: MIT
#pragma once

#include <QVector>

class QWidget;
class Shutdown;
class WindowRun;

/// Stops runs for the user of a window, after a question if much work would be lost.
class RunStops
{
public:
    /// The arguments must outlive this object.
    RunStops(Shutdown& shutdown, QWidget& window) : m_shutdown(shutdown), m_window(window) {}

    /// Stops one run. The window may be destroyed while the question is shown.
    static void stop(WindowRun& run, QWidget& window);

    /// To be called when the user closes the window. Depending on the user's answer, takes the next
    /// step of the shutdown or cancels it. If the runs end by themselves before the answer, the
    /// shutdown continues. Returns whether the window may close now. The window and this object may
    /// be destroyed during the call.
    bool close(const QVector<WindowRun*>& running);

private:
    Shutdown& m_shutdown;
    QWidget& m_window;
};
