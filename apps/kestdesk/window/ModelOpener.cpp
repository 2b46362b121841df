// SPDX-License-Identifier: MIT
#include "ModelOpener.h"

#include "Component.h"
#include "LaunchChoice.h"
#include "OpenDialog.h"
#include "RunPanel.h"
#include "RunQueue.h"
#include "UnreadableModel.h"

#include <VisibleText.h>

#include <common_UserQuery.h>

#include <QFileInfo>

#include <algorithm>
#include <iterator>

namespace {

QString namesOf(const QStringList& paths)
{
    QStringList names;
    std::transform(paths.begin(), paths.end(), std::back_inserter(names), suite::visibleFileName);
    return names.join(QStringLiteral(", "));
}

bool isReadable(const QString& path)
{
    const QFileInfo file(path);
    return file.isFile() && file.isReadable();
}

} // namespace

ModelOpener::ModelOpener(RunPanel* panel, const LaunchChoice* choice, RunQueue& queue)
    : m_panel(panel), m_choice(choice), m_queue(queue)
{}

void ModelOpener::open(const QString& path, const QString& hint)
{
    if (!isReadable(path)) {
        showProblem(UnreadableModel::text(path, hint));
        return;
    }
    Q_EMIT opened(QFileInfo(path).absoluteFilePath());
}

void ModelOpener::open(const QStringList& paths, const QString& hint)
{
    const QStringList models = paths.size() == 1 ? paths : readableOnes(paths);
    if (models.isEmpty()) {
        return;
    }
    open(models.first(), hint);
    if (models.size() == 1) {
        return;
    }
    for (const QString& model : models) {
        queue(model, true);
    }
    Q_EMIT reported(
        tr("Held in the queue until you press \"Run all\" there: %1").arg(namesOf(models)));
}

// The unreadable models are shown in one message.
QStringList ModelOpener::readableOnes(const QStringList& paths)
{
    QStringList readable;
    QStringList problems;
    for (const QString& path : paths) {
        if (isReadable(path)) {
            readable.append(path);
        } else {
            problems.append(UnreadableModel::text(path, QString()));
        }
    }
    if (!problems.isEmpty()) {
        showProblem(problems.join(QLatin1Char('\n')));
    }
    return readable;
}

void ModelOpener::showProblem(const QString& text)
{
    common_UserQuery(tr("Model not opened"), text, common_UserQuery::Error, m_panel->window(),
                     QString())
        .display();
}

void ModelOpener::choose()
{
    const QString folder = QFileInfo(m_panel->model()).absolutePath();
    open(OpenDialog::files(m_panel->window(), tr("Open models"), folder,
                           tr("Models (*.nec);;All (*)")));
}

void ModelOpener::queue(const QString& path, bool isHeld)
{
    const Component& component = m_panel->component();
    QueuedRun run;
    run.component = QLatin1String(component.name);
    run.model = QFileInfo(path).absoluteFilePath();
    run.options = m_choice->options() & component.options;
    run.isHeld = isHeld;
    m_queue.add(run);
}
