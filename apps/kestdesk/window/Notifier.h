// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Desktop notifications, for events while another window is active.
namespace Notifier {

/// Shows a notification if the session has a service for that; does nothing otherwise. Does not
/// block.
void show(const QString& title, const QString& text);

} // namespace Notifier
