#pragma once

#include <QString>

struct Component;

/// Shows the window until the user closes it. The model may be empty, and the component null, where
/// the user is to choose. Returns the exit code.
int showWindow(const QString& model, const Component* component);
