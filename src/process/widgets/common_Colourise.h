// SPDX-License-Identifier: MIT
#pragma once

class QColor;
class QString;

/// The text as rich text in that colour. Markup in the text stays markup.
QString common_colourise(const QString& text, const QColor& colour);
