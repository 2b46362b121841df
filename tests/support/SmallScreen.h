// SPDX-License-Identifier: MIT
#pragma once

#include <QSize>
#include <QString>
#include <QWidget>

/// A screen of 1280 by 720, less the frames and the panels of a desktop.
namespace SmallScreen {

/// Empty when the window can be made small enough for it, and else its least size in words.
inline QString excess(const QWidget& window)
{
    const QSize room(1260, 660);
    const QSize least = window.minimumSizeHint().expandedTo(window.minimumSize());
    return least.boundedTo(room) == least ? QString()
                                          : QStringLiteral("%1 needs %2 by %3")
                                                .arg(window.objectName())
                                                .arg(least.width())
                                                .arg(least.height());
}

} // namespace SmallScreen
