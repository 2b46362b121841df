// SPDX-License-Identifier: MIT
#include "WindowGeometry.h"

#include <common_geometry_settings.h>

#include <QGuiApplication>
#include <QScreen>
#include <QSettings>
#include <QWidget>

namespace {

constexpr int smallestSide = 200;
constexpr int smallestVisible = 60; // of the window, on a screen
constexpr int frameRoom = 40;       // for the frame that the desktop draws around a window
constexpr int farthest = 1000000;   // beyond all screens; sums of such numbers are still numbers

int bounded(int number)
{
    return qBound(-farthest, number, farthest);
}

// The screen on which the user can get hold of a window; null when there is none.
const QScreen* screenOf(const QRect& frame)
{
    const QList<QScreen*> screens = QGuiApplication::screens();
    for (const QScreen* screen : screens) {
        const QRect visible = screen->availableGeometry() & frame;
        // The title bar is what a window is moved by.
        const bool hasTop = visible.isValid() && visible.top() <= frame.top() + smallestVisible / 2;
        if (hasTop && visible.width() >= smallestVisible && visible.height() >= smallestVisible) {
            return screen;
        }
    }
    return nullptr;
}

// The file may be there for other settings.
bool hasGeometry(const common_geometry_settings& settings)
{
    return QSettings(settings.getFileName(), QSettings::IniFormat)
        .childGroups()
        .contains(QLatin1String("geometry"));
}

} // namespace

void WindowGeometry::restore(QWidget& window, const common_geometry_settings& settings)
{
    const QSize least(smallestSide, smallestSide);
    const QSize size(bounded(settings.width()), bounded(settings.height()));
    QRect frame(QPoint(bounded(settings.x_pos()), bounded(settings.y_pos())),
                size.expandedTo(least));
    const QScreen* found = screenOf(frame);
    const QRect screen =
        (found != nullptr ? found : QGuiApplication::primaryScreen())->availableGeometry();
    frame.setSize(frame.size().boundedTo(screen.size() - QSize(frameRoom, frameRoom)));
    const bool isFirstStart = !hasGeometry(settings);
    if (found == nullptr || isFirstStart) {
        frame.moveCenter(screen.center());
    }
    window.resize(frame.size());
    window.move(frame.topLeft());
    if (settings.isMaximised() && !isFirstStart) {
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
