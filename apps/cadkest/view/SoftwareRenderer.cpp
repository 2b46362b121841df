// SPDX-License-Identifier: MIT
#include "SoftwareRenderer.h"

#include "SoftwarePicture.h"

SoftwareRenderer::SoftwareRenderer() : m_picture(std::make_unique<SoftwarePicture>())
{}

SoftwareRenderer::~SoftwareRenderer() = default;

QImage SoftwareRenderer::render(const Frame& frame)
{
    if (!frame.isSmooth) {
        return m_picture->draw(frame, 1);
    }
    return m_picture->draw(frame, 2).scaled(frame.size, Qt::IgnoreAspectRatio,
                                            Qt::SmoothTransformation);
}
