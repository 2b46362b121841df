#include "PictureFile.h"

#include <VisibleText.h>

#include <QImage>
#include <QSaveFile>

QString writePicture(const QImage& image, const QString& path)
{
    const QString name = suite::visiblePath(path);
    if (image.isNull()) {
        return QStringLiteral("%1: there is not enough memory for the picture").arg(name);
    }
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || !image.save(&file, "PNG") || !file.commit()) {
        return QStringLiteral("%1: %2").arg(name, file.errorString());
    }
    return QString();
}
