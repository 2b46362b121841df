// SPDX-License-Identifier: MIT
#include "PixmapUtility.h"

#include "Pictures.h"
#include "SvgPicture.h"

#include <QGuiApplication>
#include <QPalette>

PixmapUtility::PixmapUtility()
{
    Pictures::load();
}

bool PixmapUtility::getPixmap(QPixmap& out, const QString& directory, const QString& name)
{
    const auto* const application = qobject_cast<QGuiApplication*>(QCoreApplication::instance());
    if (application == nullptr) {
        return false;
    }
    const SvgPicture picture = SvgPicture::read(Pictures::fileName(directory, name));
    if (picture.isEmpty()) {
        return false;
    }
    const qreal ratio = application->devicePixelRatio();
    out = picture.pixmap(picture.size() * ratio,
                         QGuiApplication::palette().color(QPalette::WindowText));
    out.setDevicePixelRatio(ratio);
    return true;
}
