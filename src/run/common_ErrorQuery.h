#pragma once

class QString;

/// Tells the user of an error in a box without a parent and without details, and waits until the
/// user has read it.
void common_tellError(const QString& title, const QString& text);
