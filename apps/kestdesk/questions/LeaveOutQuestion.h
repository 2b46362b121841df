// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

class QWidget;

/// A question to the user before a run is repeated without one of its hosts.
namespace LeaveOutQuestion {

enum class Answer { RunAgain, EditFile, Cancel };

/// Shows which lines of the run's machines file become comments. The window may be destroyed
/// meanwhile.
Answer ask(int run, const QString& host, const QStringList& lines, QWidget* window);

} // namespace LeaveOutQuestion
