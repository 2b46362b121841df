// SPDX-License-Identifier: MIT
#pragma once

class QLabel;
class QString;

/// The label of the process dialog that shows the command line or a caller's text.
namespace common_CommandLabel {

/// A new label without a parent, hidden, with the action "Copy command" as its first action.
QLabel* create();

/// Shows the text, as rich text where it looks like that. Nothing that the text names is read.
void setText(QLabel& label, const QString& text);

} // namespace common_CommandLabel
