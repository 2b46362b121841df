// SPDX-License-Identifier: MIT
#include "RunStops.h"

#include "KestdeskSettings.h"
#include "Shutdown.h"
#include "StopQuestion.h"
#include "WindowRun.h"

#include <QPointer>
#include <QWidget>

#include <algorithm>
#include <iterator>

namespace {

StopQuestion::Subject subjectOf(WindowRun* run)
{
    return {&run->run(), &run->forecast()};
}

} // namespace

void RunStops::stop(WindowRun& run, QWidget& window)
{
    const QPointer<Run> stopped(&run.run());
    const bool isAgreed = !StopQuestion::isWanted(run.run(), KestdeskSettings::read()) ||
                          StopQuestion::ask(StopQuestion::Deed::Stop, {subjectOf(&run)}, &window) ==
                              StopQuestion::Answer::Stop;
    if (isAgreed && stopped) {
        stopped->stop();
    }
}

bool RunStops::close(const QVector<WindowRun*>& running)
{
    if (running.isEmpty()) {
        m_shutdown.request();
        return m_shutdown.isDone();
    }
    const QPointer<QWidget> window(&m_window);
    const StopQuestion::Deed deed = m_shutdown.phase() == Shutdown::Phase::None
                                        ? StopQuestion::Deed::StopAll
                                        : StopQuestion::Deed::ForceAll;
    QVector<StopQuestion::Subject> runs;
    std::transform(running.cbegin(), running.cend(), std::back_inserter(runs), subjectOf);
    const StopQuestion::Answer answer = StopQuestion::ask(deed, runs, &m_window);
    if (!window) {
        return true;
    }
    if (answer == StopQuestion::Answer::Keep) {
        m_shutdown.cancel();
    } else if (answer == StopQuestion::Answer::Stop ||
               m_shutdown.phase() == Shutdown::Phase::None) {
        m_shutdown.request();
    }
    return m_shutdown.isDone();
}
