// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Formats the figures of runs for terminals and files.
namespace RunTexts {

/// Milliseconds as "0:01:02", always with hours: for lines that are updated or aligned.
QString clockTime(qint64 milliseconds);

/// Milliseconds as "0:07", "12:34" or "1:02:03", with hours only if there are any.
QString shortClockTime(qint64 milliseconds);

/// Milliseconds as "1.2 s", or as clockTime() from a minute on.
QString duration(qint64 milliseconds);

/// "1 error", "2 errors". The noun is one of the table in the source file.
QString counted(int count, const char* noun);

/// "12 B", "1.5 kB", "3.0 MB"; "missing" for a negative number.
QString size(qint64 bytes);

} // namespace RunTexts
