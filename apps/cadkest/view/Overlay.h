// SPDX-License-Identifier: MIT
#pragma once

#include "Renderer.h"

#include <QStringList>

class QPainter;

/// What stands over the scene: how long things are, where the axes point, what the colours mean.
struct Overlay
{
    QStringList lines; ///< about the model, at the top
    bool hasFeeds = false;
    bool hasLoads = false;

    /// Paints over a picture of the frame's size divided by the painter's pixel ratio.
    void paint(QPainter& painter, const Frame& frame, const QSize& size) const;
};

/// The overlay for a scene.
Overlay overlayOf(const Scene& scene, const QString& title);
