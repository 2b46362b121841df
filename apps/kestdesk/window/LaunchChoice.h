#pragma once

#include <common_RunWrapper.h>

#include <QObject>

class MainMenu;
class RunPanel;

/// Parallel, remote, farmed out, as the user has ticked them in the window. What is ticked is kept
/// among the launch options; where that is not possible it counts for this session all the same.
class LaunchChoice : public QObject
{
    Q_OBJECT

public:
    /// The parent owns it. Panel and menu must outlive it.
    LaunchChoice(RunPanel* panel, MainMenu* menu, QObject* parent);

    /// Shows what is kept.
    void restore();

    [[nodiscard]] common_RunWrapper::RunOptions options() const;

    /// Lets the user change the launch options, and shows what is kept if that has changed.
    void editLaunchOptions(QWidget* window);

Q_SIGNALS:
    /// The user's new choice was kept, or could not be.
    void saved(bool isKept);

private:
    void show(common_RunWrapper::RunOptions options);
    void save();

    RunPanel* m_panel;
    MainMenu* m_menu;
    bool m_isLockShown = false; ///< that another program holds the launch options
};
