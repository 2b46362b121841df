// SPDX-License-Identifier: MIT
#pragma once

#include "TwoWayQuestion.h"

#include <QStringList>

class QWidget;

/// A question to the user before a run is repeated without one of its hosts.
namespace LeaveOutQuestion {

/// Shows which lines of the run's machines file become comments. The first way is to run again, the
/// second one to edit the file.
TwoWayQuestion::Answer ask(int run, const QString& host, const QStringList& lines, QWidget* window);

} // namespace LeaveOutQuestion
