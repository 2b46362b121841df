#pragma once

#include <QString>

/// Tells the user what happened while another window had the attention.
namespace Notifier {

/// Shows a notification of the desktop where the session has such a service; nothing otherwise.
/// Does not wait.
void show(const QString& title, const QString& text);

} // namespace Notifier
