// SPDX-License-Identifier: MIT
#pragma once

#include "DiskThread.h"
#include "RunArchive.h"

#include <QObject>

class CureBar;
class RunListView;

/// Shows below the list of runs what the selected run failed of, where something can be done about
/// it.
class SelectedProblem : public QObject
{
    Q_OBJECT

public:
    /// List and bar must outlive this. The bar is hidden while there is nothing to show.
    SelectedProblem(RunListView* list, CureBar* bar, RunArchive archive, QObject* parent);

private:
    void update();
    void read(int number);
    void show(const QString& problem, const RunRecord& record);

    RunListView* m_list;
    CureBar* m_bar;
    RunArchive m_archive;
    int m_number = 0; ///< of the run that is shown, or that is being read; 0 for none
    DiskThread m_disk;
};
