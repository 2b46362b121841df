// SPDX-License-Identifier: MIT
#pragma once

#include "SceneMesh.h"

#include <QColor>

#include <array>

class QPalette;

/// The colours of a picture.
struct SceneColours
{
    QRgb background;
    QRgb text;
    std::array<QRgb, paintCount> paints; ///< by Paint

    [[nodiscard]] QRgb operator[](Paint paint) const { return paints.at(std::size_t(paint)); }

    static SceneColours light();
    static SceneColours dark();

    /// Those that suit the windows of an application.
    static SceneColours of(const QPalette& palette);
};

/// How bright a face is, from 0 to 1, whose normal points so far right, up and to the viewer. The
/// hardware's shader says the same.
float brightness(const QVector3D& normal);

/// Where the light comes from: right, up, towards the viewer; of length 1.
QVector3D lightDirection();

constexpr float ambientLight = 0.42F;
