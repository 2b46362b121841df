// SPDX-License-Identifier: MIT
#pragma once

class QFont;
class QGroupBox;
class QLabel;
class QProgressBar;
class QPushButton;
class QString;

/// Creates the widgets of the process dialog, with their texts, object names and initial states.
/// They have no parent; the layout that takes them gives them one.
namespace common_ProcessDialogWidgets {

QProgressBar* createProgressBar(const char* objectName);

/// With the suite's busy indicator, which is not started.
QLabel* createBusyLabel();

/// A hidden box: the icon, the label with the count, and what is counted.
QGroupBox* createCountBox(const char* iconName, QLabel* count, const QString& text);

QPushButton* createDetailsButton();
QPushButton* createOkButton();
QPushButton* createStopButton();

/// The font of the output.
QFont outputFont();

/// The width that the output's columns need in that font, in pixels.
int outputWidth(const QFont& font);

} // namespace common_ProcessDialogWidgets
