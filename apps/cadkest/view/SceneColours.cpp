// SPDX-License-Identifier: MIT
#include "SceneColours.h"

#include <QPalette>

#include <algorithm>

// clang-format off
SceneColours SceneColours::light()
{
    return {0xfffafafa, 0xff303030,
            {0xffc98a4b, // wire: copper
             0xffe03030, // feed
             0xff3a6fd8, // load
             0xffe6eedd, // ground
             0xff3a2a1c, // edge
             0xffb9c8a8, // grid
             0xffd03020, 0xff2a9030, 0xff2050d0}};
}

SceneColours SceneColours::dark()
{
    return {0xff232629, 0xffe0e0e0,
            {0xffd99a5b, // wire
             0xffff5a4a, // feed
             0xff6f9cf5, // load
             0xff2f3a2c, // ground
             0xff150d06, // edge
             0xff4c5f46, // grid
             0xffff6a5a, 0xff5fd068, 0xff7aa0ff}};
}
// clang-format on

SceneColours SceneColours::of(const QPalette& palette)
{
    return palette.color(QPalette::Base).lightness() < 128 ? dark() : light();
}

QVector3D lightDirection()
{
    static const QVector3D direction = QVector3D(-0.35F, 0.55F, 0.8F).normalized();
    return direction;
}

float brightness(const QVector3D& normal)
{
    const float direct = std::max(0.0F, QVector3D::dotProduct(normal, lightDirection()));
    return ambientLight + (1 - ambientLight) * direct;
}
