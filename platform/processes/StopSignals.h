// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

class QObject;

/// The signals that ask this program to end: SIGINT, SIGTERM, and SIGHUP unless it is ignored, as
/// under nohup.
///
/// Child processes get the default actions for them.
namespace StopSignals {

/// Calls onStop from the event loop for each of the signals, until the receiver is destroyed. Then
/// the signals have their earlier actions again. If there are several receivers, only the newest
/// one is called; it must be destroyed first.
void watch(QObject* receiver, const std::function<void()>& onStop);

/// The same, with the signal's number.
void watch(QObject* receiver, const std::function<void(int)>& onStop);

/// To be called when this program has got another console, on Windows: its events reach only
/// functions that were set since. Does nothing on Unix.
void renew();

} // namespace StopSignals
