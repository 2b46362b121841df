// SPDX-License-Identifier: MIT
#include "SessionRuns.h"

#include "Component.h"
#include "RunTableModel.h"
#include "Shutdown.h"

#include <QWidget>

#include <algorithm>
#include <utility>

namespace {

constexpr int longestRecording = 5000; // milliseconds that the ends of the records may take

} // namespace

SessionRuns::SessionRuns(RunTableModel* list, Shutdown& shutdown, QWidget* window)
    : m_list(list), m_shutdown(shutdown), m_window(window)
{
    m_finishTime.setSingleShot(true);
    m_finishTime.setInterval(longestRecording);
    connect(&m_finishTime, &QTimer::timeout, this, &SessionRuns::allRecorded);
}

SessionRuns::~SessionRuns()
{
    const QVector<WindowRun*> runs = m_list->runs();
    for (WindowRun* const run : runs) {
        m_list->remove(run);
        delete run;
    }
}

WindowRun* SessionRuns::start(const Component& component, const QString& model,
                              common_RunWrapper::RunOptions options,
                              common_CommonSettingsSet& settings)
{
    return add(component, model,
               [&](WindowRun& run) { return run.start(options, settings, m_window); });
}

bool SessionRuns::startAgain(const RunRecord& record, const QString& model,
                             common_CommonSettingsSet& settings)
{
    const Component* const component = Component::find(record.component);
    return component != nullptr && add(*component, model, [&](WindowRun& run) {
                                       return run.startAgain(record, settings, m_window);
                                   }) != nullptr;
}

WindowRun* SessionRuns::add(const Component& component, const QString& model,
                            const std::function<bool(WindowRun& run)>& start)
{
    auto* const run = new WindowRun(component, model, m_window);
    run->setTitle(m_titles.next(run->run()));
    connect(run, &WindowRun::changed, this, &SessionRuns::changed);
    connect(run, &WindowRun::ended, this, [this, run] { Q_EMIT ended(*run); });
    connect(run, &WindowRun::recordFailed, this, [this, run] { Q_EMIT recordFailed(*run); });
    connect(run, &WindowRun::recorded, this, &SessionRuns::checkRecords);
    m_shutdown.add(run->run());
    m_list->add(run);
    Q_EMIT added(run);
    return start(*run) ? run : nullptr;
}

void SessionRuns::removeEnded()
{
    const QVector<WindowRun*> runs = m_list->runs();
    for (WindowRun* const run : runs) {
        if (!run->run().isRunning()) {
            remove(run);
        }
    }
    Q_EMIT changed();
}

void SessionRuns::removeDeleted(const QVector<int>& numbers)
{
    const QVector<WindowRun*> runs = m_list->runs();
    for (WindowRun* const run : runs) {
        if (!run->run().isRunning() && numbers.contains(run->number())) {
            remove(run);
        }
    }
    m_list->removeRecords(numbers);
    Q_EMIT changed();
}

// The destructor of a run waits until its record is written.
void SessionRuns::remove(WindowRun* run)
{
    m_list->remove(run);
    if (run->isRecorded()) {
        run->deleteLater();
    } else {
        connect(run, &WindowRun::recorded, run, &QObject::deleteLater);
    }
}

void SessionRuns::finishRecords()
{
    m_isFinishing = true;
    m_finishTime.start();
    checkRecords();
}

void SessionRuns::checkRecords()
{
    Q_EMIT archiveChanged();
    const QList<WindowRun*> runs = m_window->findChildren<WindowRun*>();
    if (m_isFinishing && std::all_of(runs.begin(), runs.end(),
                                     [](const WindowRun* run) { return run->isRecorded(); })) {
        m_isFinishing = false;
        m_finishTime.stop();
        Q_EMIT allRecorded();
    }
}
