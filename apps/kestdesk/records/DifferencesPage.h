// SPDX-License-Identifier: MIT
#pragma once

#include "DiskThread.h"
#include "RunArchive.h"
#include "RunComparison.h"

#include <QWidget>

class QComboBox;
class QTextBrowser;

/// Shows the differences to another run of the same model. The records are compared in a thread,
/// when the page is first shown.
class DifferencesPage : public QWidget
{
    Q_OBJECT

public:
    DifferencesPage(RunArchive archive, QWidget* parent);

    /// Sets the run on the right-hand side.
    void setRecord(const RunRecord& record);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void readRuns();
    void offer(const QVector<RunRecord>& runs);
    void compare();
    void show(const RunComparison& comparison);

    RunArchive m_archive;
    RunRecord m_record;
    QVector<RunRecord> m_others; ///< by index in the combo box
    bool m_isRead = false;
    QComboBox* m_other;
    QTextBrowser* m_text;
    DiskThread m_disk;
};
