// SPDX-License-Identifier: MIT
#pragma once

#include <common_RunWrapper.h>

#include <QObject>

class MainMenu;
class RunPanel;

/// The run options (parallel, remote, farm out) that the user has ticked in the window. They are
/// stored with the launch options; if that fails, they are still used in this session.
class LaunchChoice : public QObject
{
    Q_OBJECT

public:
    /// Panel and menu must outlive this object.
    LaunchChoice(RunPanel* panel, MainMenu* menu, QObject* parent);

    /// Shows the stored options.
    void restore();

    [[nodiscard]] common_RunWrapper::RunOptions options() const;

    /// Opens the dialog for the launch options, and shows the stored run options if they have
    /// changed.
    void editLaunchOptions(QWidget* window);

Q_SIGNALS:
    /// The new choice was stored, or storing it has failed.
    void saved(bool isKept);

private:
    void show(common_RunWrapper::RunOptions options);
    void save();

    RunPanel* m_panel;
    MainMenu* m_menu;
    bool m_isLockShown = false; ///< the message that another program has locked the launch options
};
