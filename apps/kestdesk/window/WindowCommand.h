// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

struct Component;

/// The initial state of the window.
struct WindowStart
{
    QStringList models; ///< empty for the model of the last session
    QString hint;       ///< a sentence that is shown if a model does not exist; may be empty
    const Component* component = nullptr; ///< null for the last session's
};

/// Shows the window until the user closes it, and returns the exit code. If a model cannot be
/// opened, shows an error and starts without a model.
int showWindow(const WindowStart& start);
