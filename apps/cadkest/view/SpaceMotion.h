// SPDX-License-Identifier: MIT
#pragma once

#include <QMetaType>
#include <QVector3D>

class QSize;

class Camera;

/// What the cap of a 3D mouse reports: how far it is moved and turned, around 350 at its limits, to
/// the right, up and towards the user, and for how long it has been so.
struct SpaceMotion
{
    QVector3D move;
    QVector3D turn; ///< around the same axes, anticlockwise seen against them
    int milliseconds = 0;
};

/// Moves and turns the scene as the cap is moved and turned; pulled towards the user it grows. The
/// sensitivity is that of common_3DMouseOptions: 50 is usual, 100 twice as fast.
void apply(const SpaceMotion& motion, double sensitivity, Camera& camera, const QSize& size);

Q_DECLARE_METATYPE(SpaceMotion)
