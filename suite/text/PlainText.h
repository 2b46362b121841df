#pragma once

#include <QString>

namespace suite {

/// Text that came from outside (deck, file name, option) made safe for one line of output: no
/// character that steers the line, no line break, nothing that a reader could take for a marker.
QString plainText(const QString& text);

/// The name of a file for a reader that opens it: as it is, but for line breaks and markers, which
/// cannot be carried.
QString carriedName(const QString& name);

/// The same, cut to a length that an error message can carry.
QString excerpt(const QString& text);

/// The same with every colon replaced, for texts whose reader splits at the colon.
QString withoutColons(const QString& text);

} // namespace suite
