#pragma once

#include <QVector>

#include <functional>

class QObject;

/// The signals by which a user, a shell or a system asks this program to end.
namespace StopSignals {

QVector<int> all();

/// Calls back from the event loop for each of them, as long as the receiver lives.
void watch(QObject* receiver, const std::function<void()>& onStop);

} // namespace StopSignals
