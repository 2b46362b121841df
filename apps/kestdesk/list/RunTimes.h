#pragma once

#include <QString>

/// How the time that a run has taken is written.
namespace RunTimes {

/// Of milliseconds: "0:07", "12:34", "1:02:03".
QString text(qint64 milliseconds);

} // namespace RunTimes
