#pragma once

#include <QString>

/// Texts of tool tips, which Qt takes for rich text where they look like it.
namespace ToolTip {

/// The text, line by line, whatever is in it; see suite::visibleText().
QString of(const QString& text);

} // namespace ToolTip
