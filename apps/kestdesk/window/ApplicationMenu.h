// SPDX-License-Identifier: MIT
#pragma once

#include <common_KestGuiLauncher.h>

#include <QMenu>
#include <QStringList>

class WindowRun;

/// The menu that launches the suite's other applications with the model or with results of runs.
/// They may outlive this program.
class ApplicationMenu : public QMenu
{
    Q_OBJECT

public:
    /// The window is the parent of messages.
    explicit ApplicationMenu(QWidget* window);

    /// Sets the files to launch with: the model's path, empty if none is chosen, and the results of
    /// the runs of this session. The selected run may be null.
    void setTargets(const QString& model, const WindowRun* selected,
                    const QVector<WindowRun*>& runs);

    /// Shows the results of the selected run.
    QAction* resultsAction() const { return m_showResults; }

    /// Makes a button for resultsAction(). The parent owns it.
    QWidget* makeResultsButton(QWidget* parent);

Q_SIGNALS:
    /// An application has been launched. The sentence names it and its file.
    void launched(const QString& text);

private:
    using Application = common_KestGuiLauncher::AppType;

    QAction* addLaunch(const char* name, void (ApplicationMenu::*slot)());
    void viewModel();
    void editModel();
    void showResults();
    void showAllResults();
    void openConsole();
    void launchOnModel(Application application);
    void launchOnResults(const QStringList& results);
    void launch(Application application, const QStringList& files);

    QWidget* m_window;
    QString m_model;
    QStringList m_results;
    QStringList m_allResults;
    QAction* m_viewModel;
    QAction* m_editModel;
    QAction* m_showResults;
    QAction* m_showAllResults;
    QAction* m_console;
};
