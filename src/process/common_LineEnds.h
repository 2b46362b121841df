// SPDX-License-Identifier: MIT
#pragma once

class QString;

/// The text without any carriage return or line feed, wherever they stand.
QString common_withoutLineEnds(const QString& text);
