#include "Descendants.h"

#include <QDeadlineTimer>
#include <QThread>

namespace {

constexpr int pollInterval = 10; // milliseconds
constexpr int killLimit = 2000;  // a process that waits for a device cannot be killed

// Who has just lost its parent may be overlooked once, but not twice.
bool areSomeAlive()
{
    const bool seen = Descendants::areAlive();
    return seen || Descendants::areAlive();
}

bool haveEnded(int milliseconds)
{
    const QDeadlineTimer deadline(milliseconds);
    while (areSomeAlive()) {
        if (deadline.hasExpired()) {
            return false;
        }
        QThread::msleep(pollInterval);
    }
    return true;
}

} // namespace

void Descendants::endAll(int milliseconds)
{
    if (haveEnded(milliseconds)) {
        return;
    }
    // Again and again: what a process starts while the others are killed is found the next time.
    const QDeadlineTimer deadline(killLimit);
    do {
        killAll();
    } while (!haveEnded(pollInterval) && !deadline.hasExpired());
}
