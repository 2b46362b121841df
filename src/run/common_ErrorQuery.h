// SPDX-License-Identifier: MIT
#pragma once

class QString;

/// Shows an error to the user in a box without a parent and without details, and waits until the
/// user closes it.
void common_showError(const QString& title, const QString& text);
