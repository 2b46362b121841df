// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Shows the window until the user closes it. The model may be empty. Returns the exit code.
int showWindow(const QString& model);
