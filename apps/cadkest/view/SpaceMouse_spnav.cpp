// SPDX-License-Identifier: MIT
#include "SpaceMouse.h"

#include <QSocketNotifier>

#include <spnav.h>

namespace {

// The connection to the daemon, of which a process has one.
class SpnavMouse : public SpaceMouse
{
public:
    explicit SpnavMouse(int descriptor) : m_notifier(descriptor, QSocketNotifier::Read)
    {
        connect(&m_notifier, &QSocketNotifier::activated, this, &SpnavMouse::readEvents);
    }

    ~SpnavMouse() override
    {
        m_notifier.setEnabled(false);
        spnav_close();
    }

private:
    void readEvents()
    {
        bool isAnyRead = false;
        spnav_event event = {};
        while (spnav_poll_event(&event) != 0) {
            isAnyRead = true;
            if (event.type == SPNAV_EVENT_MOTION) {
                tell(event.motion);
            } else if (event.type == SPNAV_EVENT_BUTTON && event.button.press != 0) {
                Q_EMIT fitRequested();
            }
        }
        if (!isAnyRead) {
            m_notifier.setEnabled(false); // the daemon is gone: its end would be read for ever
        }
    }

    // The daemon's third axis points away from the user.
    void tell(const spnav_event_motion& event)
    {
        SpaceMotion motion;
        motion.move = QVector3D(float(event.x), float(event.y), -float(event.z));
        motion.turn = QVector3D(float(event.rx), float(event.ry), -float(event.rz));
        motion.milliseconds = int(event.period);
        Q_EMIT moved(motion);
    }

    QSocketNotifier m_notifier;
};

} // namespace

std::unique_ptr<SpaceMouse> SpaceMouse::create()
{
    if (spnav_open() == -1) {
        return nullptr;
    }
    return std::make_unique<SpnavMouse>(spnav_fd());
}
