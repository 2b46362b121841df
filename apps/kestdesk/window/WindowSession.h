// SPDX-License-Identifier: MIT
#pragma once

#include "SessionSettings.h"

#include <common_CommonSettingsSet.h>

class QWidget;
class RunPanel;
class common_recent_file_settings;

/// The state that the window keeps between sessions: its geometry, the model, the component and the
/// recent files.
class WindowSession
{
public:
    /// The model of the last session.
    struct Model
    {
        QString path;    ///< absolute; empty if there is none to show
        QString problem; ///< why the model cannot be opened again; empty if there is no problem
    };

    WindowSession();

    /// Reads the settings, and restores the window and the component.
    void restore(QWidget& window, RunPanel& panel);

    /// The last model from the settings that restore() has read.
    Model lastModel();

    /// Stores the state. If lastModel() was not called and no model was chosen, the last model is
    /// kept.
    void save(const QWidget& window, const RunPanel& panel);

    /// The settings for the set-up of runs.
    common_CommonSettingsSet& settings() { return m_settings; }

    /// Owned by this object.
    common_recent_file_settings* recentFiles() const { return m_settings.recentFiles(); }

private:
    common_CommonSettingsSet m_settings;
    SessionSettings m_session;
    bool m_isLastModelUsed = false;
};
