#pragma once

#include "SessionSettings.h"

#include <common_CommonSettingsSet.h>

class QWidget;
class RunPanel;
class common_recent_file_settings;

/// What the window keeps from one session to the next: its place, the model, the component and the
/// recent files.
class WindowSession
{
public:
    /// The model of the last session; no path when there is none to show.
    struct Model
    {
        QString path;    ///< absolute
        QString problem; ///< why the model cannot be shown again; empty where nothing is wrong
    };

    WindowSession();

    /// Reads the settings, and puts the window and the component back as they were.
    void restore(QWidget& window, RunPanel& panel);

    /// Of the settings that restore() has read.
    Model lastModel();

    /// Where the last model was not asked for and no other was chosen, it stays the last one.
    void save(const QWidget& window, const RunPanel& panel);

    /// What runs are set up with.
    common_CommonSettingsSet& settings() { return m_settings; }

    /// Owned by this object.
    common_recent_file_settings* recentFiles() const { return m_settings.recentFiles(); }

private:
    common_CommonSettingsSet m_settings;
    SessionSettings m_session;
    bool m_isLastModelUsed = false;
};
