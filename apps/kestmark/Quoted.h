// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// A text from outside within a remark: in quotation marks, without blanks at its ends, made
/// visible, and cut when it is long.
QString quoted(const QString& text);
