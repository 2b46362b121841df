#pragma once

#include <QString>

#include <optional>

/// How long runs take, in milliseconds, and how that is written.
namespace RunTimes {

/// What is left of a run that has come this far (0 to 100) in this time; nothing as long as that
/// cannot be known.
std::optional<qint64> remaining(qint64 elapsed, int percentage);

/// "0:07", "12:34", "1:02:03".
QString text(qint64 milliseconds);

} // namespace RunTimes
