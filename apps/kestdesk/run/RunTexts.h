#pragma once

#include <QString>

/// Formats the figures of runs for terminals and files.
namespace RunTexts {

/// "0:01:02" of milliseconds.
QString clockTime(qint64 milliseconds);

/// "1.2 s", or as clockTime() from a minute on.
QString duration(qint64 milliseconds);

/// "1 error", "2 errors".
QString counted(int count, const char* noun);

/// "12 B", "1.5 kB", "3.0 MB"; "missing" for a negative number.
QString size(qint64 bytes);

} // namespace RunTexts
