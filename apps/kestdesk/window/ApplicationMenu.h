#pragma once

#include <common_KestGuiLauncher.h>

#include <QMenu>
#include <QStringList>

class WindowRun;

/// The menu of the suite's other applications, which are launched on the model and on the results
/// of runs, and outlive this program.
class ApplicationMenu : public QMenu
{
    Q_OBJECT

public:
    /// Messages are shown over the window.
    explicit ApplicationMenu(QWidget* window);

    /// What to launch on: the model's path, empty when none is chosen, and the runs of this
    /// session. The selected one may be null.
    void setTargets(const QString& model, const WindowRun* selected,
                    const QVector<WindowRun*>& runs);

    /// Shows the results of the selected run.
    QAction* resultsAction() const { return m_showResults; }

    /// A button that does the same. It is the parent's.
    QWidget* makeResultsButton(QWidget* parent);

Q_SIGNALS:
    /// An application starts: a sentence that says which, and on what.
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
