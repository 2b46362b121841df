#include "RunStops.h"

#include "KestdeskSettings.h"
#include "Run.h"
#include "Shutdown.h"
#include "StopQuestion.h"

#include <QPointer>
#include <QWidget>

void RunStops::stop(Run& run, QWidget& window)
{
    const QPointer<Run> stopped(&run);
    const bool isAgreed =
        !StopQuestion::isWanted(run, KestdeskSettings::read()) ||
        StopQuestion::ask(StopQuestion::Deed::Stop, {&run}, &window) == StopQuestion::Answer::Stop;
    if (isAgreed && stopped) {
        stopped->stop();
    }
}

bool RunStops::close(const QVector<Run*>& running)
{
    if (running.isEmpty()) {
        m_shutdown.request();
        return m_shutdown.isDone();
    }
    const QPointer<QWidget> window(&m_window);
    const StopQuestion::Deed deed = m_shutdown.phase() == Shutdown::Phase::None
                                        ? StopQuestion::Deed::StopAll
                                        : StopQuestion::Deed::ForceAll;
    const StopQuestion::Answer answer = StopQuestion::ask(deed, running, &m_window);
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
