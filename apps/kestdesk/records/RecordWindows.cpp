// SPDX-License-Identifier: MIT
#include "RecordWindows.h"

#include "Descendants.h"
#include "LaunchOptionsDialog.h"
#include "LocalMachines.h"
#include "MachinesDialog.h"
#include "RecordWindow.h"

#include <VisibleText.h>

#include <common_KestGuiLauncher.h>
#include <common_UserQuery.h>

#include <QDir>
#include <QFileInfo>

#include <utility>

namespace {

void reportProblem(const QString& title, const QString& text, QWidget* window)
{
    common_UserQuery(title, text, common_UserQuery::Error, window, QString()).display();
}

} // namespace

RecordWindows::RecordWindows(RunArchive archive, QWidget* window)
    : QObject(window), m_archive(std::move(archive)), m_window(window)
{}

void RecordWindows::open(int number)
{
    const QList<RecordWindow*> windows = m_window->findChildren<RecordWindow*>();
    for (RecordWindow* const window : windows) {
        if (window->number() == number) {
            window->showNormal();
            window->raise();
            window->activateWindow();
            return;
        }
    }
    auto* const window = new RecordWindow(m_archive, number, m_window);
    connect(window, &RecordWindow::againRequested, this, &RecordWindows::againRequested);
    connect(window, &RecordWindow::resumeRequested, this, &RecordWindows::resumeRequested);
    connect(window, &RecordWindow::cureRequested, this, &RecordWindows::cure);
    static_cast<QWidget*>(window)->show();
}

void RecordWindows::cure(const ProblemCures::Cure& cure, const QString& message,
                         const RunRecord& record)
{
    switch (cure.action) {
    case ProblemCures::Action::OpenCard:
        openCard(message, record);
        break;
    case ProblemCures::Action::UseThisMachine:
        useThisMachine();
        break;
    case ProblemCures::Action::LeaveHostOut:
        Q_EMIT againWithoutRequested(record.number, ProblemCures::hostOf(message));
        break;
    case ProblemCures::Action::EditMachines:
        MachinesDialog::edit(m_window);
        break;
    case ProblemCures::Action::InstallEngine:
        showInstallation();
        break;
    case ProblemCures::Action::EditOptions:
        LaunchOptionsDialog::edit(m_window);
        break;
    }
}

void RecordWindows::editHost(const RunRecord& record, const QString& host)
{
    if (record.arguments.contains(QStringLiteral("--remote-host"))) {
        LaunchOptionsDialog::edit(m_window);
    } else {
        MachinesDialog::edit(m_window, host);
    }
}

// Opens the file that the message names, which may be another file in the model's folder.
void RecordWindows::openCard(const QString& message, const RunRecord& record)
{
    const auto line = ProblemCures::lineOf(message);
    const QFileInfo model(record.model);
    const QFileInfo named(model.dir(), line->file);
    const QFileInfo file = !line->file.isEmpty() && named.isFile() ? named : model;
    if (!file.isFile()) {
        reportProblem(tr("Model not opened"),
                      tr("There is no model %1 any more.").arg(suite::visiblePath(file.filePath())),
                      m_window);
        return;
    }
    bool isStarted = false;
    Descendants::startDetached([&] {
        isStarted = common_KestGuiLauncher::launch(
            m_window, common_KestGuiLauncher::EditKest,
            {QStringLiteral("--line"), QString::number(line->line), file.absoluteFilePath()},
            file.absolutePath());
    });
    if (isStarted) {
        Q_EMIT reported(tr("Opening line %1 of %2 in editkest")
                            .arg(line->line)
                            .arg(suite::visibleFileName(file.filePath())));
    }
}

void RecordWindows::useThisMachine()
{
    LocalMachines machines;
    const QString error = machines.save();
    if (!error.isEmpty()) {
        reportProblem(tr("Machines file"), error, m_window);
        return;
    }
    Q_EMIT reported(tr("The machines file names this machine now, with the line \"%1\"")
                        .arg(LocalMachines::line()));
}

void RecordWindows::showInstallation()
{
    common_UserQuery(
        tr("The engine"),
        tr("The components compute with the engine nec2c, which is a package of its "
           "own.\n\nOn Debian and Ubuntu, install it in a terminal with\n\n    sudo apt "
           "install nec2c\n\nAn engine in another place is named by the environment "
           "variable KEST_NEC2C."),
        common_UserQuery::Information, m_window, QString())
        .display();
}
