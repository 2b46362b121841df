// SPDX-License-Identifier: MIT
#include "SvgPicture.h"

#include <QFile>
#include <QPainter>
#include <QSvgRenderer>

SvgPicture SvgPicture::read(const QString& fileName)
{
    SvgPicture picture;
    QFile file(fileName);
    if (file.open(QIODevice::ReadOnly)) {
        picture.m_content = file.readAll();
        const QSvgRenderer renderer(picture.m_content);
        picture.m_size = renderer.isValid() ? renderer.defaultSize() : QSize();
    }
    return picture;
}

QPixmap SvgPicture::pixmap(const QSize& size, const QColor& ink) const
{
    QByteArray content = m_content;
    QSvgRenderer renderer(content.replace("currentColor", ink.name().toLatin1()));
    renderer.setAspectRatioMode(Qt::KeepAspectRatio);
    QPixmap result(size);
    result.fill(Qt::transparent);
    QPainter painter(&result);
    renderer.render(&painter, QRectF(QPointF(), size));
    return result;
}
