#pragma once

#include <QByteArray>

/// Settings files that QSettings would read in a time that grows with the square of their size: it
/// looks for the end of a group's name to the end of the file, for each line that has none.
namespace common_IniRepair {

/// Whether the content has so many such lines that it takes long. It is damaged then.
bool isNeeded(const QByteArray& content);

/// The content with the ends that are missing, which QSettings takes for the same groups.
QByteArray repaired(const QByteArray& content);

} // namespace common_IniRepair
