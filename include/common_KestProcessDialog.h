// SPDX-License-Identifier: MIT
#pragma once

#include <common_ActivePtr.h>
#include <common_IProcessRunnerObserver.h>
#include <common_ObserverOf.h>
#include <common_ProcessRunner.h>
#include <kest_common_export.h>

#include <QDialog>

class common_KestProcessOutputTabWidget;
class common_UserQuery;
class QGroupBox;
class QLabel;
class QLayout;
class QProgressBar;
class QPushButton;

/// The window that shows a running solver component: its progress, its command line, how many
/// numbered notices and warnings it has printed, and on demand its output.
///
/// Create it with new, then start the runner: the dialog shows itself when the process has started,
/// unless the application is non-interactive, and deletes itself when it is closed. Closing it
/// while the process runs asks the user, and stops the process after a "Yes". When a process cannot
/// be started, a message box says so, and the dialog stays hidden.
///
/// When the process has ended the button "buttonOk" has the property "squishValue": "valid" when
/// the last total percentage was 100, else "fault". Nothing else counts: a run that ends with exit
/// code 0 and has not reported 100 is a fault, and one that reports 100 and crashes is valid. A
/// dialog that is not visible, as in a non-interactive application, ignores percentages, so that
/// each run is a fault.
///
/// The output is shown as rich text, but no file that it names is read. A message of the type
/// Variable is a fatal assertion: do not ask components to print variables here.
///
/// Needs the services common_IIconUtility and common_IPixmapUtility (common_ProcessDialogIcons has
/// the names that they are asked for), common_IApplicationInfo and common_IApplication, and
/// common_ISession for the message that the settings are locked. The constructor logs those that
/// are missing.
class KEST_COMMON_EXPORT common_KestProcessDialog
    : public QDialog,
      public common_ObserverOf<common_IProcessRunnerObserver>
{
    Q_OBJECT

public:
    /// Holds the runner together with other pointers.
    using Runner =
        common_ActivePtr<common_ProcessRunner<common_KestProcessMessage>, IntrusivePtrActor>;

    /// Observes the runner, which must not be null, and holds it for as long as the dialog lives.
    /// The parent may be null; it is also the parent of the message box after a failed start.
    common_KestProcessDialog(Runner runner, QWidget* parent);
    ~common_KestProcessDialog() override;

    /// Sets the window's title. With an empty one, the next start sets "Executing ...".
    void setTitle(const QString& title);

    /// Sets the text above the output. With an empty one, the next start sets the command line. The
    /// action "Copy command" leaves out the first two characters, which are "> " in a command line.
    void setInfoLabel(const QString& text);

    /// Shows or hides the text above the output, until the details are next opened or closed.
    void setInfoLabelVisible(bool visible);

    /// False is for a component that reports no progress: the details stay open, and the run counts
    /// as valid, however it ends. True shows the progress and closes the details.
    void setProgressBarVisible(bool visible);

protected:
    void onProcessStarted(const QString& executable, const QStringList& arguments) override;
    void onFailedProcessStarted(const QString& executable, const QStringList& arguments,
                                const QString& errorString) override;
    void onProcessMessageReceived(const common_IProcessMessage& message) override;
    void onProcessDone() override;
    void onExitCodeChanged(int exitCode) override;

    /// While the child runs, asks whether to stop it; without a yes, the dialog stays open.
    void closeEvent(QCloseEvent* event) override;
    /// Escape closes the dialog, after the same question.
    void keyPressEvent(QKeyEvent* event) override;

private Q_SLOTS:
    void closeDialog();
    void onStopClicked();
    void onDetailsClicked(bool checked);
    void onDetailsToggled(bool checked);
    void onCommandCopied();

private:
    bool handleStop();
    QString colourise(const QString& text, const QColor& colour);

    QLayout* createProgressLayout();
    QLayout* createButtonLayout();
    void setOutputFont();
    void connectWidgets();
    void showCount(QGroupBox* box, QLabel* label, int count);

    common_KestProcessOutputTabWidget* m_pOutput = nullptr;
    QLabel* m_pPhaseLabel = nullptr;
    QLabel* m_pTotalLabel = nullptr;
    QLabel* m_pBusyLabel = nullptr;
    QProgressBar* m_pProgressBar = nullptr;
    QProgressBar* m_pTotalProgressBar = nullptr;
    QLabel* m_pInfoLabel = nullptr;
    QPushButton* m_pOkButton = nullptr;
    QPushButton* m_pStopButton = nullptr;
    QPushButton* m_pDetailsButton = nullptr;
    common_UserQuery* m_pStopQuery = nullptr; ///< while it is shown
    QLabel* m_pWarningsCount = nullptr;
    QLabel* m_pNoticesCount = nullptr;
    QGroupBox* m_pNoticesBox = nullptr;
    QGroupBox* m_pWarningsBox = nullptr;
    bool m_isTitleSet = false;
    bool m_isInfoSet = false;
    Runner m_pRunner;
};
