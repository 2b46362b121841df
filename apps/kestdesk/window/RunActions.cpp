// SPDX-License-Identifier: MIT
#include "RunActions.h"

#include "ArchiveWatch.h"
#include "Descendants.h"
#include "RecordExport.h"
#include "RecordFolder.h"
#include "ResumedRun.h"
#include "RunFilter.h"
#include "RunListPart.h"
#include "RunListView.h"
#include "ShellCommand.h"
#include "ToolTip.h"

#include <VisibleText.h>

#include <common_UserQuery.h>

#include <QAction>
#include <QClipboard>
#include <QDesktopServices>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QUrl>

#include <algorithm>
#include <iterator>

namespace {

constexpr int mostNamed = 10;   // runs in a question
constexpr int mostFolders = 10; // opened at once
constexpr int mostWindows = 10; // of records, opened at once

QString nameOf(const ListedRun& run)
{
    return RunActions::tr("Run %1: %2, %3")
        .arg(run.number())
        .arg(suite::visibleFileName(run.model()), run.stateText());
}

QString numbered(const QVector<int>& numbers)
{
    QStringList texts;
    std::transform(numbers.begin(), numbers.end(), std::back_inserter(texts),
                   [](int number) { return QString::number(number); });
    return texts.join(QStringLiteral(", "));
}

// The runs that can be deleted.
QVector<ListedRun> endedOf(const QVector<ListedRun>& runs)
{
    QVector<ListedRun> result;
    std::copy_if(runs.begin(), runs.end(), std::back_inserter(result), [](const ListedRun& run) {
        return run.number() > 0 && !run.isRunning() && run.record.hasEnded();
    });
    return result;
}

bool hasRecord(const ListedRun& run)
{
    return run.hasRecord();
}

bool hasCommand(const ListedRun& run)
{
    return !run.record.program.isEmpty();
}

// The path that the user chooses for the export; empty if the user cancels.
QString exportFile(const RunRecord& record, QWidget* window)
{
    const QFileInfo model(record.model);
    const QString usual =
        QStringLiteral("%1/%2-run%3.zip")
            .arg(model.path(), model.completeBaseName(), QString::number(record.number));
    const QString suffix = QStringLiteral(".zip");
    const QString file = QFileDialog::getSaveFileName(window, RunActions::tr("Export the record"),
                                                      usual, RunActions::tr("Zip files (*.zip)"));
    return file.isEmpty() || file.endsWith(suffix) ? file : file + suffix;
}

bool agreesToDelete(const QVector<ListedRun>& runs, QWidget* window)
{
    QStringList lines;
    const QVector<ListedRun> named = runs.mid(0, mostNamed);
    for (const ListedRun& run : named) {
        lines.append(nameOf(run));
    }
    if (runs.size() > mostNamed) {
        lines.append(RunActions::tr("and %1 more").arg(runs.size() - mostNamed));
    }
    const QString what = runs.size() == 1 ? RunActions::tr("Delete the record of this run?")
                                          : RunActions::tr("Delete the records of these runs?");
    common_UserQuery query(RunActions::tr("Delete records"),
                           RunActions::tr("%1\n\n%2\n\nModels and results stay.")
                               .arg(what, lines.join(QLatin1Char('\n'))),
                           common_UserQuery::Warning, window, QString());
    query.addOption(RunActions::tr("&Delete"), QMessageBox::AcceptRole);
    query.addOption(RunActions::tr("Cancel"), QMessageBox::RejectRole,
                    common_UserQuery::EnterDefault);
    return query.display() == QMessageBox::AcceptRole;
}

} // namespace

struct RunActions::Row
{
    const char* name;
    const char* text;
    const char* shortcut; ///< empty for none
    const char* hint;
    bool isForRuns; ///< stands in the list's own menu, too
    void (RunActions::*slot)();
};

// clang-format off
const RunActions::Row RunActions::rows[] = {
    {"showRecordAction",  QT_TRANSLATE_NOOP("RunActions", "Show recor&d"),           "Ctrl+R",       QT_TRANSLATE_NOOP("RunActions", "Show what is kept of the selected runs: messages, output, command, differences"), true,  &RunActions::showRecords},
    {"runAgainAction",    QT_TRANSLATE_NOOP("RunActions", "Run &again exactly"),     "Ctrl+F5",      QT_TRANSLATE_NOOP("RunActions", "Run the same command with the same options on the same model"),                    true,  &RunActions::runAgain},
    {"resumeRunAction",   QT_TRANSLATE_NOOP("RunActions", "Resu&me"),                "",             QT_TRANSLATE_NOOP("RunActions", "Run it again and compute only what the stopped run has not kept"),                true,  &RunActions::resume},
    {"openFolderAction",  QT_TRANSLATE_NOOP("RunActions", "Open f&older"),           "",             QT_TRANSLATE_NOOP("RunActions", "Show the model's folder in the file manager"),                                    true,  &RunActions::openFolders},
    {"copyCommandAction", QT_TRANSLATE_NOOP("RunActions", "Copy comma&nd"),          "Ctrl+Shift+C", QT_TRANSLATE_NOOP("RunActions", "Copy the command of the selected runs for a terminal"),                           true,  &RunActions::copyCommands},
    {"exportRunAction",   QT_TRANSLATE_NOOP("RunActions", "E&xport record..."),      "",             QT_TRANSLATE_NOOP("RunActions", "Put all that is kept of the selected run, and its results, into one zip file for somebody else"), true, &RunActions::exportRecord},
    {"deleteRunsAction",  QT_TRANSLATE_NOOP("RunActions", "De&lete records..."),     "Del",     QT_TRANSLATE_NOOP("RunActions", "Delete the records of the selected runs; models and results stay"),               true,  &RunActions::deleteRecords},
    {"findRunsAction",    QT_TRANSLATE_NOOP("RunActions", "F&ilter runs"),           "Ctrl+F",       QT_TRANSLATE_NOOP("RunActions", "Show only some of the runs"),                                                     false, &RunActions::focusFilter},
    {"showAllRunsAction", QT_TRANSLATE_NOOP("RunActions", "Sho&w all runs"),         "",             QT_TRANSLATE_NOOP("RunActions", "Show all runs again that were filtered or cleared"),                              false, &RunActions::showAll},
};
// clang-format on

RunActions::RunActions(RunListPart* part, QMenu* menu, QWidget* window)
    : QObject(window)
    , m_part(part)
    , m_window(window)
    , m_resumeButton(new QPushButton(tr("Resume"), part))
{
    menu->addSeparator();
    for (const Row& row : rows) {
        addAction(row, menu);
    }
    makeResumeButton();
    connect(m_part->list(), &RunListView::selectedRunChanged, this, &RunActions::update);
    connect(m_part->list()->model(), &QAbstractItemModel::dataChanged, this, &RunActions::update);
    connect(menu, &QMenu::aboutToShow, this, &RunActions::update);
    connect(m_part->archive(), &ArchiveWatch::notRemoved, this, &RunActions::onNotRemoved);
    update();
}

void RunActions::addAction(const Row& row, QMenu* menu)
{
    QAction* const added = menu->addAction(tr(row.text));
    added->setObjectName(QLatin1String(row.name));
    added->setShortcut(QKeySequence(QLatin1String(row.shortcut)));
    added->setToolTip(tr(row.hint));
    added->setStatusTip(tr(row.hint));
    connect(added, &QAction::triggered, this, row.slot);
    if (row.isForRuns) {
        // A key without modifier belongs to a text field that has the focus.
        const bool isKey = QLatin1String(row.shortcut) == QLatin1String("Del");
        added->setShortcutContext(isKey ? Qt::WidgetShortcut : Qt::WindowShortcut);
        m_part->list()->addAction(added);
    }
}

void RunActions::makeResumeButton()
{
    m_resumeButton->setObjectName(QStringLiteral("resumeRunButton"));
    connect(m_resumeButton, &QPushButton::clicked, this, &RunActions::resume);
    m_part->addButtonBelow(m_resumeButton);
}

QAction* RunActions::action(const char* name) const
{
    return m_window->findChild<QAction*>(QLatin1String(name));
}

void RunActions::update()
{
    const QVector<ListedRun> runs = m_part->list()->selectedRuns();
    const bool isRecorded = std::any_of(runs.begin(), runs.end(), hasRecord);
    action("showRecordAction")->setEnabled(isRecorded);
    action("runAgainAction")->setEnabled(runs.size() == 1 && isRecorded);
    action("exportRunAction")->setEnabled(runs.size() == 1 && isRecorded);
    action("openFolderAction")->setEnabled(!runs.isEmpty());
    action("copyCommandAction")->setEnabled(std::any_of(runs.begin(), runs.end(), hasCommand));
    action("deleteRunsAction")->setEnabled(!endedOf(runs).isEmpty());
    updateResume(runs);
}

void RunActions::updateResume(const QVector<ListedRun>& runs)
{
    m_resumable.reset();
    if (runs.size() != 1 || !hasRecord(runs.first())) {
        showResumable(tr("Select one run that was stopped or interrupted."));
        return;
    }
    RunRecord record = runs.first().record;
    if (record.number == 0) { // of a run of this session, which has just begun
        showResumable(tr("The record of the run has not been read yet."));
        return;
    }
    record.state = runs.first().state();
    m_resumable = record;
    m_isLookWanted = true;
    lookAtResumable();
}

// The disk is asked in its thread, with one question at a time: a running run changes each second,
// and a slow disk may take longer. An answer about the selected run is shown even if the run has
// changed meanwhile; the next question follows.
void RunActions::lookAtResumable()
{
    if (m_isLooking || !m_isLookWanted || !m_resumable) {
        return;
    }
    m_isLooking = true;
    m_isLookWanted = false;
    m_disk.post([this, record = *m_resumable](const DiskThread::Answer& answer) {
        const QString obstacle = ResumedRun::obstacle(record);
        answer([this, obstacle, number = record.number] {
            m_isLooking = false;
            if (m_resumable && m_resumable->number == number) {
                showResumable(obstacle);
            }
            lookAtResumable();
        });
    });
}

void RunActions::showResumable(const QString& obstacle)
{
    QAction* const resume = action("resumeRunAction");
    const bool isPossible = obstacle.isEmpty();
    const QString hint = isPossible
                             ? tr("Run it again and compute only what the stopped run has not kept")
                             : obstacle;
    resume->setEnabled(isPossible);
    resume->setToolTip(hint);
    resume->setStatusTip(hint);
    m_resumeButton->setEnabled(isPossible);
    m_resumeButton->setVisible(isPossible); // a small window has no room for what cannot be done
    m_resumeButton->setToolTip(ToolTip::of(hint));
    m_resumeButton->setAccessibleDescription(hint);
}

// Reads the record again: the list's copy of a running run is not complete.
void RunActions::exportRecord()
{
    const QVector<ListedRun> runs = m_part->list()->selectedRuns();
    if (runs.size() != 1 || !hasRecord(runs.first())) {
        return;
    }
    const RunRecord listed = runs.first().record;
    const QString file = exportFile(listed, m_window);
    if (file.isEmpty()) {
        return;
    }
    m_disk.post([this, listed, file](const DiskThread::Answer& answer) {
        RunRecord record = RecordFolder(listed.folder).read().value_or(listed);
        record.number = listed.number;
        QString problem;
        const bool isExported = RecordExport::exportRecord(record, file, problem);
        const QString text =
            isExported ? tr("Run %1 was exported to %2").arg(record.number).arg(file)
                       : tr("Run %1 was not exported: %2").arg(record.number).arg(problem);
        answer([this, text] { Q_EMIT reported(suite::visibleText(text)); });
    });
}

void RunActions::showRecords()
{
    const QVector<ListedRun> runs = m_part->list()->selectedRuns().mid(0, mostWindows);
    for (const ListedRun& run : runs) {
        if (hasRecord(run)) {
            Q_EMIT recordRequested(run.number());
        }
    }
}

void RunActions::runAgain()
{
    const QVector<ListedRun> runs = m_part->list()->selectedRuns();
    if (runs.size() == 1 && hasRecord(runs.first())) {
        Q_EMIT againRequested(runs.first().number());
    }
}

void RunActions::resume()
{
    const QVector<ListedRun> runs = m_part->list()->selectedRuns();
    if (runs.size() == 1 && hasRecord(runs.first())) {
        Q_EMIT resumeRequested(runs.first().number());
    }
}

// Opens each folder once. The file manager is not ended with the runs.
void RunActions::openFolders()
{
    QStringList folders;
    const QVector<ListedRun> runs = m_part->list()->selectedRuns();
    for (const ListedRun& run : runs) {
        folders.append(run.folder());
    }
    folders.removeDuplicates();
    const QStringList opened = folders.mid(0, mostFolders);
    for (const QString& folder : opened) {
        bool isOpened = false;
        Descendants::startDetached(
            [&] { isOpened = QDesktopServices::openUrl(QUrl::fromLocalFile(folder)); });
        Q_EMIT reported((isOpened ? tr("Opening %1") : tr("%1 cannot be opened"))
                            .arg(suite::visiblePath(folder)));
    }
}

void RunActions::copyCommands()
{
    QStringList commands;
    const QVector<ListedRun> runs = m_part->list()->selectedRuns();
    for (const ListedRun& run : runs) {
        if (hasCommand(run)) {
            commands.append(ShellCommand::of(run.record));
        }
    }
    QGuiApplication::clipboard()->setText(commands.join(QLatin1Char('\n')));
    Q_EMIT reported(commands.size() == 1
                        ? tr("Copied the command of the run")
                        : tr("Copied the commands of %1 runs").arg(commands.size()));
}

// Running runs are left out, and the question does not name them.
void RunActions::deleteRecords()
{
    const QVector<ListedRun> runs = endedOf(m_part->list()->selectedRuns());
    const QPointer<RunActions> guard(this); // the window may be destroyed meanwhile
    if (runs.isEmpty() || !agreesToDelete(runs, m_window) || guard.isNull()) {
        return;
    }
    QVector<int> numbers;
    std::transform(runs.begin(), runs.end(), std::back_inserter(numbers),
                   [](const ListedRun& run) { return run.number(); });
    m_part->archive()->remove(numbers);
}

void RunActions::showAll()
{
    m_part->showAll();
}

void RunActions::focusFilter()
{
    m_part->focusFilter();
}

void RunActions::onNotRemoved(const QVector<int>& numbers)
{
    Q_EMIT reported(tr("These records could not be deleted: %1").arg(numbered(numbers)));
}
