#pragma once

#include <QStringList>

struct Component;

/// What the window starts with.
struct WindowStart
{
    QStringList models; ///< empty for that of the last session
    QString hint;       ///< a sentence for when there is no such model; may be empty
    const Component* component = nullptr; ///< null for that of the last session
};

/// Shows the window until the user closes it. A model that cannot be opened is reported, and none
/// takes its place. Returns the exit code.
int showWindow(const WindowStart& start);
