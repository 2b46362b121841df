// SPDX-License-Identifier: MIT
#include "common_ThemePixmaps.h"

#include <common_ProcessDialogIcons.h>

#include <QApplication>
#include <QPixmap>
#include <QStyle>

namespace {

constexpr int arrowSize = 16; // pixels

QPixmap arrow(QStyle::StandardPixmap which)
{
    return QApplication::style()->standardIcon(which).pixmap(arrowSize, arrowSize);
}

// Null for other names.
QPixmap styleArrow(const QString& name)
{
    if (name == QLatin1String(common_ProcessDialogIcons::detailsShown)) {
        return arrow(QStyle::SP_ArrowDown);
    }
    if (name == QLatin1String(common_ProcessDialogIcons::detailsHidden)) {
        return arrow(QStyle::SP_ArrowRight);
    }
    return QPixmap();
}

} // namespace

bool common_ThemePixmaps::getPixmap(QPixmap& out, const QString& directory, const QString& name)
{
    QPixmap picture(directory + QLatin1Char('/') + name); // tries the suffixes of all formats
    if (picture.isNull()) {
        picture = styleArrow(name);
    }
    if (picture.isNull()) {
        return false;
    }
    out = picture;
    return true;
}
