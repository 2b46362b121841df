// SPDX-License-Identifier: MIT
#include "Overlay.h"

#include "RoundLength.h"
#include "Scene.h"

#include <QCoreApplication>
#include <QPainter>

#include <algorithm>
#include <array>

namespace {

constexpr int margin = 12;
constexpr int textPixels = 13;
constexpr int triadLength = 34;
constexpr double longestBar = 0.22; // of the picture's width

void paintScaleBar(QPainter& painter, const Frame& frame, const QSize& size)
{
    const double pixelsPerMetre = frame.camera.pixelsPerUnit(size) / frame.mesh->metres;
    const double length = roundLength(longestBar * size.width() / pixelsPerMetre);
    const int width = int(length * pixelsPerMetre);
    const QPoint right(size.width() - margin, size.height() - margin);
    const QPoint left = right - QPoint(width, 0);
    const QPoint tick(0, 5);
    painter.drawLine(left, right);
    painter.drawLine(left - tick, left);
    painter.drawLine(right - tick, right);
    const QRect place(left - QPoint(200, 26), QSize(width + 400, 20));
    const QString text = lengthText(length);
    const int half = painter.fontMetrics().horizontalAdvance(text) / 2;
    const int middle = std::min(left.x() + width / 2, size.width() - margin - half);
    painter.drawText(QPoint(middle - half, place.bottom() - 2), text);
}

void paintTriad(QPainter& painter, const Frame& frame, const QSize& size)
{
    struct Axis
    {
        QVector3D direction;
        Paint paint;
        QChar name;
    };
    std::array<Axis, 3> axes = {{
        {{1, 0, 0}, Paint::AxisX, QLatin1Char('x')},
        {{0, 1, 0}, Paint::AxisY, QLatin1Char('y')},
        {{0, 0, 1}, Paint::AxisZ, QLatin1Char('z')},
    }};
    for (Axis& axis : axes) {
        axis.direction = frame.camera.orientation().rotatedVector(axis.direction);
    }
    std::sort(axes.begin(), axes.end(), [](const Axis& left, const Axis& right) {
        return left.direction.z() < right.direction.z();
    });
    const QPointF origin(margin + triadLength + 12, size.height() - margin - triadLength - 12);
    for (const Axis& axis : axes) {
        const QPointF tip(axis.direction.x(), -axis.direction.y());
        painter.setPen(QPen(QColor(frame.colours[axis.paint]), 2));
        painter.drawLine(origin, origin + tip * triadLength);
        const QRectF place(origin + tip * (triadLength + 9) - QPointF(10, 10), QSizeF(20, 20));
        painter.drawText(place, Qt::AlignCenter, QString(axis.name));
    }
}

// A line of text, with a patch of colour before it if it explains one; returns where the next goes.
int paintLine(QPainter& painter, int top, const QString& text, const QColor& patch = QColor())
{
    const int height = painter.fontMetrics().height();
    int left = margin;
    if (patch.isValid()) {
        painter.fillRect(QRect(left, top + 3, height - 6, height - 6), patch);
        left += height;
    }
    painter.drawText(left, top + painter.fontMetrics().ascent(), text);
    return top + height + 2;
}

QString wireText(int count)
{
    return (count == 1 ? QCoreApplication::translate("Overlay", "%L1 wire")
                       : QCoreApplication::translate("Overlay", "%L1 wires"))
        .arg(count);
}

QString segmentText(int count)
{
    return (count == 1 ? QCoreApplication::translate("Overlay", "%L1 segment")
                       : QCoreApplication::translate("Overlay", "%L1 segments"))
        .arg(count);
}

QString patchText(int count)
{
    return (count == 1
                ? QCoreApplication::translate("Overlay", "%L1 card of surface patches is not shown")
                : QCoreApplication::translate("Overlay",
                                              "%L1 cards of surface patches are not shown"))
        .arg(count);
}

} // namespace

void Overlay::paint(QPainter& painter, const Frame& frame, const QSize& size) const
{
    // In pixels, so that it is as large in pictures as on the screen.
    QFont font = painter.font();
    font.setPixelSize(textPixels);
    painter.setFont(font);
    painter.setPen(QColor(frame.colours.text));
    int top = margin;
    for (const QString& line : lines) {
        top = paintLine(painter, top, line);
    }
    if (hasFeeds) {
        top = paintLine(painter, top, QCoreApplication::translate("Overlay", "source"),
                        frame.colours[Paint::Feed]);
    }
    if (hasLoads) {
        paintLine(painter, top, QCoreApplication::translate("Overlay", "load"),
                  frame.colours[Paint::Load]);
    }
    paintScaleBar(painter, frame, size);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    paintTriad(painter, frame, size);
    painter.restore();
}

Overlay overlayOf(const Scene& scene, const QString& title)
{
    Overlay overlay;
    overlay.hasFeeds = scene.feedCount() > 0;
    overlay.hasLoads = scene.loadCount() > 0;
    const suite::Structure& structure = scene.structure;
    overlay.lines = QStringList{title, wireText(structure.wires.size()) + QStringLiteral(", ") +
                                           segmentText(structure.segmentCount())};
    if (structure.patchCards > 0) {
        overlay.lines.append(patchText(structure.patchCards));
    }
    if (scene.isCut) {
        overlay.lines.append(
            QCoreApplication::translate("Overlay", "not complete: there are more segments"));
    }
    return overlay;
}
