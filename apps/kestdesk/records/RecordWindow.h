// SPDX-License-Identifier: MIT
#pragma once

#include "DiskThread.h"
#include "ProblemCures.h"
#include "RunArchive.h"
#include "SummaryPage.h"

#include <QDialog>
#include <QTimer>

class CommandPage;
class CureBar;
class DifferencesPage;
class MessageStore;
class MessageView;
class QPushButton;
class QTabWidget;

/// The window of one recorded run: its outcome, its messages, its output, its command, and the
/// differences to other runs. It follows a run that still runs.
class RecordWindow : public QDialog
{
    Q_OBJECT

public:
    RecordWindow(RunArchive archive, int number, QWidget* parent);

    int number() const { return m_number; }

Q_SIGNALS:
    /// The user wants to repeat the run.
    void againRequested(int number);

    /// The user has pressed the button that resumes the run.
    void resumeRequested(int number);

    /// The user has pressed the button of a cure for the message.
    void cureRequested(const ProblemCures::Cure& cure, const QString& message,
                       const RunRecord& record);

private:
    void makePages();
    QWidget* makeButtons();
    void read();
    void show(const std::optional<RunRecord>& record);
    void makeMessages();
    void addButton(QWidget* row, QPushButton* button, const char* name);
    void readFileStates();
    void showResumable(const QString& obstacle);
    void updateTitle();
    void updateCure();
    QString problem() const;

    RunArchive m_archive;
    int m_number;
    RunRecord m_record;
    QVector<SummaryPage::FileState> m_fileStates;
    QTabWidget* m_tabs;
    SummaryPage* m_summary;
    CommandPage* m_command;
    DifferencesPage* m_differences;
    MessageStore* m_store = nullptr;
    MessageView* m_messages = nullptr;
    CureBar* m_cure;
    QPushButton* m_againButton;
    QPushButton* m_resumeButton;
    QTimer m_timer;
    DiskThread m_disk; ///< destroyed first
};
