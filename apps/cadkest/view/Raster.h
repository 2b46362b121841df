// SPDX-License-Identifier: MIT
#pragma once

#include <QtGui/qrgb.h>

#include <array>
#include <vector>

/// A corner in the picture: pixels to the right and down, and depth away from the viewer, of which
/// the whole scene takes from 0 to 1.
struct RasterPoint
{
    float x;
    float y;
    float z;
};

/// A flat face that shows its front, with its corners in the order of the mesh.
struct RasterFace
{
    std::array<RasterPoint, 4> corners;
    QRgb colour;
};

struct RasterLine
{
    RasterPoint from;
    RasterPoint to;
    QRgb colour;
};

/// Some rows of a picture with their depths, which one thread paints by itself. A pixel belongs to
/// a face when its middle does, as in OpenGL.
class Raster
{
public:
    /// Paints into rows from first to behind last of a picture, each of width pixels.
    void begin(QRgb* pixels, int width, int firstRow, int endRow, QRgb background);

    /// Paints a face where nothing is nearer, as if it was pushed back by displacement times its
    /// slope in depth and so many of the smallest steps in depth.
    void paint(const RasterFace& face, float displacement);

    /// Paints a line so many pixels wide where nothing is nearer.
    void paint(const RasterLine& line, int width);

private:
    struct Span
    {
        int left;
        int right;
    };

    void traceEdge(const RasterPoint& from, const RasterPoint& to, int top, int bottom);
    void fillRow(int row, const Span& span, const RasterFace& face, float slopeX, float slopeY,
                 float bias);
    void paintPixel(int x, int y, float z, QRgb colour);
    template <bool IsSteep>
    void paintAlong(const RasterLine& line, int width);

    QRgb* m_pixels = nullptr;
    int m_width = 0;
    int m_firstRow = 0;
    int m_endRow = 0;
    std::vector<float> m_depths;
    std::vector<Span> m_spans; ///< of the face being painted
};
