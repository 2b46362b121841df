// SPDX-License-Identifier: MIT
#include "RunDesk.h"

#include "ArchiveLimits.h"
#include "ArchiveWatch.h"
#include "CureBar.h"
#include "MainMenu.h"
#include "RecordWindows.h"
#include "RunActions.h"
#include "RunAgain.h"
#include "RunListPart.h"
#include "RunListView.h"
#include "RunTableModel.h"
#include "SelectedProblem.h"

#include <QAction>

RunDesk::RunDesk(Shutdown& shutdown, common_CommonSettingsSet& settings, QWidget* window)
    : QObject(window)
    , m_settings(settings)
    , m_runs(new RunTableModel(window))
    , m_listPart(new RunListPart(m_runs, RunArchive::ofUser(), nullptr))
    , m_again(new RunAgain(RunArchive::ofUser(), window))
    , m_records(new RecordWindows(RunArchive::ofUser(), window))
    , m_window(window)
    , m_session(std::make_unique<SessionRuns>(m_runs, shutdown, window))
{
    connectParts();
    makeCureBar();
}

RunDesk::~RunDesk() = default;

void RunDesk::connectParts()
{
    ArchiveWatch* const archive = m_listPart->archive();
    SessionRuns* const runs = m_session.get();
    connect(runs, &SessionRuns::added, list(), &RunListView::select);
    connect(runs, &SessionRuns::changed, this, &RunDesk::changed);
    connect(runs, &SessionRuns::archiveChanged, archive, &ArchiveWatch::refresh);
    connect(archive, &ArchiveWatch::removed, runs, &SessionRuns::removeDeleted);
    connect(list(), &QTableView::activated, this, &RunDesk::showRun);
    connect(list(), &RunListView::selectedRunChanged, this, &RunDesk::changed);
    connect(m_records, &RecordWindows::againRequested, m_again, &RunAgain::request);
    connect(m_records, &RecordWindows::resumeRequested, m_again, &RunAgain::resume);
    connect(m_records, &RecordWindows::againWithoutRequested, m_again, &RunAgain::requestWithout);
    connect(m_again, &RunAgain::hostNotLeftOut, this, &RunDesk::editHost);
    connect(m_records, &RecordWindows::reported, this, &RunDesk::reported);
    connect(m_again, &RunAgain::ready, this, &RunDesk::runAgain);
    connect(m_again, &RunAgain::readyToResume, this, &RunDesk::resume);
    connect(m_again, &RunAgain::failed, this, &RunDesk::reported);
}

// For the run that is selected, which is the newest one at first.
void RunDesk::makeCureBar()
{
    auto* const bar = new CureBar("runProblemLabel", "runCureButton", m_listPart);
    new SelectedProblem(list(), bar, RunArchive::ofUser(), m_listPart);
    connect(bar, &CureBar::cureRequested, m_records, &RecordWindows::cure);
    m_listPart->addBar(bar);
}

void RunDesk::editHost(const RunRecord& record, const QString& host, const QString& problem)
{
    if (!problem.isEmpty()) {
        Q_EMIT reported(problem);
    }
    m_records->editHost(record, host);
}

void RunDesk::addActions(MainMenu* menu)
{
    list()->addAction(menu->showRunAction());
    auto* const actions = new RunActions(m_listPart, menu->runMenu(), m_window);
    connect(actions, &RunActions::recordRequested, m_records, &RecordWindows::open);
    connect(actions, &RunActions::againRequested, m_again, &RunAgain::request);
    connect(actions, &RunActions::resumeRequested, m_again, &RunAgain::resume);
    connect(actions, &RunActions::reported, this, &RunDesk::reported);
}

void RunDesk::start()
{
    m_listPart->archive()->start(ArchiveLimits::ofUser());
}

RunListView* RunDesk::list() const
{
    return m_listPart->list();
}

void RunDesk::showRun()
{
    WindowRun* const run = list()->selectedRun();
    if (run != nullptr && run->showDialog()) {
        return;
    }
    const QVector<ListedRun> selected = list()->selectedRuns();
    if (!selected.isEmpty() && selected.first().hasRecord()) {
        m_records->open(selected.first().number());
    } else if (run != nullptr && !run->isRecorded()) { // the disk is slow
        connect(run, &WindowRun::recordMade, m_records,
                [this, run] { m_records->open(run->number()); });
        Q_EMIT reported(
            QStringLiteral("The record of this run opens as soon as it is on the disk."));
    } else if (run != nullptr) {
        Q_EMIT reported(tr("The window of this run has been closed."));
    }
}

void RunDesk::clearEnded()
{
    m_listPart->clearEnded();
    m_session->removeEnded();
}

void RunDesk::runAgain(const RunRecord& record, const QString& model)
{
    repeat(record, model, tr("Run %1 is run again").arg(record.number));
}

void RunDesk::resume(const RunRecord& record)
{
    repeat(record, record.model, tr("Run %1 is resumed").arg(record.number));
}

void RunDesk::repeat(const RunRecord& record, const QString& model, const QString& report)
{
    Q_EMIT aboutToRun();
    if (m_session->startAgain(record, model, m_settings)) {
        Q_EMIT reported(report);
    }
    Q_EMIT changed();
}
