// SPDX-License-Identifier: MIT
#include "IconEngine.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPalette>

#include <algorithm>
#include <utility>

namespace {

constexpr qreal disabledOpacity = 0.4;

QColor ink(QIcon::Mode mode)
{
    return QGuiApplication::palette().color(QPalette::Active, mode == QIcon::Selected
                                                                  ? QPalette::HighlightedText
                                                                  : QPalette::WindowText);
}

QPixmap faded(const QPixmap& picture)
{
    QPixmap result(picture.size());
    result.fill(Qt::transparent);
    QPainter painter(&result);
    painter.setOpacity(disabledOpacity);
    painter.drawPixmap(0, 0, picture);
    return result;
}

} // namespace

IconEngine::IconEngine(SvgPicture picture) : m_picture(std::move(picture))
{}

void IconEngine::paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state)
{
    const qreal ratio = painter->device()->devicePixelRatioF();
    painter->drawPixmap(rect, pixmap(rect.size() * ratio, mode, state));
}

QPixmap IconEngine::pixmap(const QSize& size, QIcon::Mode mode, QIcon::State /*state*/)
{
    const int side = std::min(size.width(), size.height());
    const QPixmap picture = m_picture.pixmap({side, side}, ink(mode));
    return mode == QIcon::Disabled ? faded(picture) : picture;
}

QSize IconEngine::actualSize(const QSize& size, QIcon::Mode /*mode*/, QIcon::State /*state*/)
{
    const int side = std::min(size.width(), size.height());
    return {side, side};
}

QIconEngine* IconEngine::clone() const
{
    return new IconEngine(*this);
}
