#include "WindowGeometry.h"

#include <common_geometry_settings.h>

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

namespace {

constexpr int smallestSide = 200;
constexpr int smallestVisible = 60; // of the window, on a screen

bool isReachable(const QRect& frame)
{
    const QList<QScreen*> screens = QGuiApplication::screens();
    for (const QScreen* screen : screens) {
        const QRect visible = screen->availableGeometry() & frame;
        // The title bar is what a window is moved by.
        const bool hasTop = visible.isValid() && visible.top() <= frame.top() + smallestVisible / 2;
        if (hasTop && visible.width() >= smallestVisible && visible.height() >= smallestVisible) {
            return true;
        }
    }
    return false;
}

} // namespace

void WindowGeometry::restore(QWidget& window, const common_geometry_settings& settings)
{
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    const QSize least = QSize(smallestSide, smallestSide).boundedTo(screen.size());
    const QSize size =
        QSize(settings.width(), settings.height()).expandedTo(least).boundedTo(screen.size());
    QRect frame(QPoint(settings.x_pos(), settings.y_pos()), size);
    if (!isReachable(frame)) {
        frame.moveCenter(screen.center());
    }
    window.resize(frame.size());
    window.move(frame.topLeft());
    if (settings.isMaximised()) {
        window.setWindowState(window.windowState() | Qt::WindowMaximized);
    }
}

void WindowGeometry::save(const QWidget& window, common_geometry_settings& settings)
{
    const QRect normal = window.isMaximized() ? window.normalGeometry() : window.geometry();
    const QPoint place = window.isMaximized() ? normal.topLeft() : window.pos();
    settings.set_x_pos(place.x());
    settings.set_y_pos(place.y());
    settings.set_width(normal.width());
    settings.set_height(normal.height());
    settings.set_isMaximised(window.isMaximized());
}
