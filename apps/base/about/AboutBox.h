// SPDX-License-Identifier: MIT
#pragma once

class QString;
class QWidget;

/// The About box of an application.
namespace AboutBox {

/// Shows the box until the user closes it. The purpose is a sentence. The engine's version is
/// queried at the same time and then added.
void show(QWidget& window, const QString& purpose);

} // namespace AboutBox
