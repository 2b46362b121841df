// SPDX-License-Identifier: MIT
#pragma once

#include "Renderer.h"

class SoftwarePicture;

/// Draws with the processor alone, on all its cores.
class SoftwareRenderer : public Renderer
{
public:
    SoftwareRenderer();
    ~SoftwareRenderer() override;

    QImage render(const Frame& frame) override;

private:
    std::unique_ptr<SoftwarePicture> m_picture; ///< keeps its memory from frame to frame
};
