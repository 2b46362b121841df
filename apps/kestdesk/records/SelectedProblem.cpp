// SPDX-License-Identifier: MIT
#include "SelectedProblem.h"

#include "CureBar.h"
#include "ListedRun.h"
#include "RunListView.h"
#include "RunProblem.h"
#include "WindowRun.h"

#include <utility>

namespace {

// Whether the record is whole, so that it has all the messages.
bool hasFailed(const ListedRun& run)
{
    const bool isBad =
        run.state() == RunRecord::State::Fault || run.state() == RunRecord::State::NotStarted;
    return isBad && run.number() > 0 && (run.run == nullptr || run.run->isRecorded());
}

} // namespace

SelectedProblem::SelectedProblem(RunListView* list, CureBar* bar, RunArchive archive,
                                 QObject* parent)
    : QObject(parent), m_list(list), m_bar(bar), m_archive(std::move(archive))
{
    m_bar->hide();
    connect(m_list, &RunListView::selectedRunChanged, this, &SelectedProblem::update);
    connect(m_list->model(), &QAbstractItemModel::dataChanged, this, &SelectedProblem::update);
}

// A record is read once, when its run is selected or ends.
void SelectedProblem::update()
{
    const QVector<ListedRun> runs = m_list->selectedRuns();
    const int number = runs.size() == 1 && hasFailed(runs.first()) ? runs.first().number() : 0;
    if (std::exchange(m_number, number) == number) {
        return;
    }
    m_bar->hide();
    if (number > 0) {
        read(number);
    }
}

void SelectedProblem::read(int number)
{
    m_disk.post([this, archive = m_archive, number](const DiskThread::Answer& answer) {
        const auto record = archive.record(number);
        const QString problem = record ? RunProblem::of(*record) : QString();
        answer([this, record, problem, number] {
            if (record && number == m_number) {
                show(problem, *record);
            }
        });
    });
}

void SelectedProblem::show(const QString& problem, const RunRecord& record)
{
    m_bar->setProblem(problem, record);
    m_bar->setVisible(m_bar->hasCure());
}
