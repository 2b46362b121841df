#pragma once

#include <functional>

class QObject;

/// The signals by which a user, a shell or the system asks this program to end: SIGINT, SIGTERM,
/// and SIGHUP unless it is ignored, as it is for a program that was started by nohup.
///
/// Programs that are started get the usual reactions to them.
namespace StopSignals {

/// Calls back from the event loop for each of them, as long as the receiver lives. Then the signals
/// do what they did before. Of several receivers the newest one alone is called, and it must go
/// first.
void watch(QObject* receiver, const std::function<void()>& onStop);

/// The same, with the signal's number.
void watch(QObject* receiver, const std::function<void(int)>& onStop);

} // namespace StopSignals
