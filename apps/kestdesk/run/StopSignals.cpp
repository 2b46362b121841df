#include "StopSignals.h"

#include <KSignalHandler>

void StopSignals::watch(QObject* receiver, const std::function<void()>& onStop)
{
    KSignalHandler* const handler = KSignalHandler::self();
    const QVector<int> signalNumbers = all();
    for (const int number : signalNumbers) {
        handler->watchSignal(number);
    }
    QObject::connect(handler, &KSignalHandler::signalReceived, receiver, onStop);
}
