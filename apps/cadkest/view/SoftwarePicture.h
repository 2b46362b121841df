// SPDX-License-Identifier: MIT
#pragma once

#include "Raster.h"
#include "Renderer.h"

#include <vector>

/// One picture in the making: the mesh is projected, its elements are sorted into horizontal bands,
/// and the bands are painted, each step on all cores.
class SoftwarePicture
{
public:
    /// Draws the frame larger by a whole factor, with lines that are wider by the same.
    QImage draw(const Frame& frame, int enlargement);

private:
    /// What one part of the mesh's elements has to paint in one band.
    struct Bin
    {
        std::vector<RasterFace> faces;
        std::vector<RasterLine> lines;
    };

    void project(const Frame& frame, const QSize& size);
    void sortFaces(const Frame& frame, int part);
    void sortLines(const Frame& frame, int part);
    void addFace(const MeshFace& face, const QMatrix4x4& turned, const SceneColours& colours,
                 int part);
    void addLine(const MeshLine& line, const SceneColours& colours, int part);
    void paintBand(QRgb* pixels, const Frame& frame, int band, int lineWidth);
    [[nodiscard]] int bandOf(float y) const;
    Bin& bin(int part, int band);

    QSize m_size;
    int m_bandHeight = 1;
    std::vector<RasterPoint> m_points;
    std::vector<Bin> m_bins; ///< those of a part together
    std::vector<Raster> m_rasters;
};
