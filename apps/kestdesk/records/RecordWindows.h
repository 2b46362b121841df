// SPDX-License-Identifier: MIT
#pragma once

#include "ProblemCures.h"
#include "RunArchive.h"

#include <QObject>

class QWidget;

/// The windows of recorded runs, at most one for each, and the actions of their buttons.
class RecordWindows : public QObject
{
    Q_OBJECT

public:
    /// The window becomes the parent of the record windows.
    RecordWindows(RunArchive archive, QWidget* window);

    /// Brings the window of a run to the front; creates it if necessary.
    void open(int number);

    /// Opens the machines file at the host, or for a run on a remote host the launch options.
    void editHost(const RunRecord& record, const QString& host);

    /// Performs the cure for the message.
    void cure(const ProblemCures::Cure& cure, const QString& message, const RunRecord& record);

Q_SIGNALS:
    void againRequested(int number);
    void resumeRequested(int number);

    /// Again, and without that host.
    void againWithoutRequested(int number, const QString& host);

    /// A sentence for the status line.
    void reported(const QString& text);

private:
    void openCard(const QString& message, const RunRecord& record);
    void useThisMachine();
    void showInstallation();

    RunArchive m_archive;
    QWidget* m_window;
};
