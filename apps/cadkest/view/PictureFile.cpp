// SPDX-License-Identifier: MIT
#include "PictureFile.h"

#include <OutputFile.h>
#include <VisibleText.h>

#include <QBuffer>
#include <QImage>

QString writePicture(const QImage& image, const QString& path)
{
    const QString name = suite::visiblePath(path);
    if (image.isNull()) {
        return QStringLiteral("%1: there is not enough memory for the picture").arg(name);
    }
    QBuffer content;
    content.open(QIODevice::WriteOnly);
    if (!image.save(&content, "PNG")) {
        return QStringLiteral("%1: the picture cannot be encoded").arg(name);
    }
    suite::OutputFile file(path);
    return file.replace(content.data()) ? QString()
                                        : QStringLiteral("%1: %2").arg(name, file.reason());
}
