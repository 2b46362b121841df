// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

class QWidget;

/// A question to the user with two ways to go on, and Cancel.
struct TwoWayQuestion
{
    enum class Answer { First, Second, Cancel };

    QString title;
    QString text;
    QString first;  ///< label of the button for Enter; empty if there is no such way
    QString second; ///< label of the other button; empty if there is no such way

    /// Shows the question. The window may be destroyed meanwhile: the answer is Cancel then.
    Answer ask(QWidget* window) const;
};
