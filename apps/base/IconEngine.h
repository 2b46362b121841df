// SPDX-License-Identifier: MIT
#pragma once

#include "SvgPicture.h"

#include <QIconEngine>

/// Draws an icon in the size and with the text colour that it is needed in, so that it is sharp on
/// every screen and follows the palette.
class IconEngine : public QIconEngine
{
public:
    explicit IconEngine(SvgPicture picture);

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override;
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override;
    QSize actualSize(const QSize& size, QIcon::Mode mode, QIcon::State state) override;
    QIconEngine* clone() const override;

private:
    SvgPicture m_picture;
};
