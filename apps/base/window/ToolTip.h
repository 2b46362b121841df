// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Texts of tool tips. Qt shows texts that look like rich text as such.
namespace ToolTip {

/// The text as it is, line by line, without markup; see suite::visibleText().
QString of(const QString& text);

} // namespace ToolTip
