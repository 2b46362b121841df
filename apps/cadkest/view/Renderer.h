// SPDX-License-Identifier: MIT
#pragma once

#include "Camera.h"
#include "SceneColours.h"
#include "SceneMesh.h"

#include <QImage>
#include <QSize>

#include <memory>

/// Everything that decides what a picture looks like.
struct Frame
{
    std::shared_ptr<const SceneMesh> mesh; ///< not null
    Camera camera;
    SceneColours colours = SceneColours::light();
    QSize size;               ///< in pixels of the device
    int faceDisplacement = 2; ///< how far faces are pushed back behind their edges, from 0 to 32
    bool isSmooth = false;    ///< take more time for it
};

/// Draws frames. The same frame looks the same by every renderer, but for single pixels.
class Renderer
{
public:
    Renderer() = default;
    Renderer(const Renderer&) = delete;
    Renderer& operator=(const Renderer&) = delete;
    virtual ~Renderer() = default;

    /// A picture of the frame's size; null when it could not be drawn.
    virtual QImage render(const Frame& frame) = 0;
};
