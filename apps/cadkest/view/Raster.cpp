// SPDX-License-Identifier: MIT
#include "Raster.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr float smallestStep = 1.0F / (1 << 24); // of a depth buffer of 24 bits
constexpr float leastArea = 1e-6F;

// The first pixel whose middle is not before a coordinate, kept to a range.
int firstPixel(double coordinate, int low, int high)
{
    return int(std::clamp(std::ceil(coordinate - 0.5), double(low), double(high)));
}

} // namespace

void Raster::begin(QRgb* pixels, int width, int firstRow, int endRow, QRgb background)
{
    m_pixels = pixels;
    m_width = width;
    m_firstRow = firstRow;
    m_endRow = endRow;
    const std::size_t count = std::size_t(width) * std::size_t(endRow - firstRow);
    std::fill_n(m_pixels, count, background);
    m_depths.assign(count, std::numeric_limits<float>::infinity());
    m_spans.resize(std::size_t(endRow - firstRow));
}

void Raster::paint(const RasterFace& face, float displacement)
{
    const auto& [a, b, c, d] = face.corners;
    // Across the diagonals, since an edge of a triangle may have no length.
    const RasterPoint u = {c.x - a.x, c.y - a.y, c.z - a.z};
    const RasterPoint v = {d.x - b.x, d.y - b.y, d.z - b.z};
    const float area = u.x * v.y - u.y * v.x;
    if (!(std::abs(area) > leastArea)) {
        return;
    }
    const float slopeX = -(u.y * v.z - u.z * v.y) / area;
    const float slopeY = -(u.z * v.x - u.x * v.z) / area;
    const float bias = displacement * (std::max(std::abs(slopeX), std::abs(slopeY)) + smallestStep);

    const float top = std::min({a.y, b.y, c.y, d.y});
    const float bottom = std::max({a.y, b.y, c.y, d.y});
    const int first = firstPixel(top, m_firstRow, m_endRow);
    const int end = firstPixel(bottom, m_firstRow, m_endRow);
    for (int row = first; row < end; ++row) {
        m_spans[std::size_t(row - m_firstRow)] = {m_width, 0};
    }
    for (std::size_t i = 0; i < 4; ++i) {
        traceEdge(face.corners[i], face.corners[(i + 1) % 4], first, end);
    }
    for (int row = first; row < end; ++row) {
        fillRow(row, m_spans[std::size_t(row - m_firstRow)], face, slopeX, slopeY, bias);
    }
}

// Front faces run anticlockwise in the picture: their edges go down on the left.
void Raster::traceEdge(const RasterPoint& from, const RasterPoint& to, int top, int bottom)
{
    const bool isLeft = from.y < to.y;
    const RasterPoint& high = isLeft ? from : to;
    const RasterPoint& low = isLeft ? to : from;
    const int first = firstPixel(high.y, top, bottom);
    const int end = firstPixel(low.y, top, bottom);
    if (first >= end) {
        return;
    }
    const double slope = (double(low.x) - high.x) / (double(low.y) - high.y);
    double x = high.x + (first + 0.5 - high.y) * slope;
    for (int row = first; row < end; ++row, x += slope) {
        Span& span = m_spans[std::size_t(row - m_firstRow)];
        (isLeft ? span.left : span.right) = firstPixel(x, 0, m_width);
    }
}

void Raster::fillRow(int row, const Span& span, const RasterFace& face, float slopeX, float slopeY,
                     float bias)
{
    if (span.left >= span.right) {
        return;
    }
    const RasterPoint& corner = face.corners[0];
    float z = corner.z + (float(span.left) + 0.5F - corner.x) * slopeX +
              (float(row) + 0.5F - corner.y) * slopeY + bias;
    const std::size_t start = std::size_t(row - m_firstRow) * std::size_t(m_width);
    float* depth = m_depths.data() + start;
    QRgb* pixel = m_pixels + start;
    for (int x = span.left; x < span.right; ++x, z += slopeX) {
        if (z < depth[x]) {
            depth[x] = z;
            pixel[x] = face.colour;
        }
    }
}

void Raster::paintPixel(int x, int y, float z, QRgb colour)
{
    if (x < 0 || x >= m_width || y < m_firstRow || y >= m_endRow) {
        return;
    }
    const std::size_t place = std::size_t(y - m_firstRow) * std::size_t(m_width) + std::size_t(x);
    if (z <= m_depths[place]) {
        m_depths[place] = z;
        m_pixels[place] = colour;
    }
}

void Raster::paint(const RasterLine& line, int width)
{
    if (std::abs(line.to.y - line.from.y) > std::abs(line.to.x - line.from.x)) {
        paintAlong<true>(line, width);
    } else {
        paintAlong<false>(line, width);
    }
}

// Goes along the axis in which the line is longer, one pixel a step.
template <bool IsSteep>
void Raster::paintAlong(const RasterLine& line, int width)
{
    const auto along = [](const RasterPoint& point) { return IsSteep ? point.y : point.x; };
    const auto aside = [](const RasterPoint& point) { return IsSteep ? point.x : point.y; };
    const bool isForward = along(line.from) <= along(line.to);
    const RasterPoint& start = isForward ? line.from : line.to;
    const RasterPoint& stop = isForward ? line.to : line.from;
    const double length = double(along(stop)) - along(start);
    if (!(length > 0)) {
        return;
    }
    const double slope = (double(aside(stop)) - aside(start)) / length;
    const double slopeZ = (double(stop.z) - start.z) / length;
    int first = firstPixel(along(start), IsSteep ? m_firstRow : 0, IsSteep ? m_endRow : m_width);
    int end = firstPixel(along(stop), IsSteep ? m_firstRow : 0, IsSteep ? m_endRow : m_width);
    if (!IsSteep && std::abs(slope) > 0) {
        // Only as far as the line is in these rows.
        const double one = along(start) + (m_firstRow - width - aside(start)) / slope;
        const double other = along(start) + (m_endRow + width - aside(start)) / slope;
        first = std::max(first, firstPixel(std::min(one, other), 0, m_width));
        end = std::min(end, firstPixel(std::max(one, other) + 1, 0, m_width));
    }
    for (int step = first; step < end; ++step) {
        const double distance = step + 0.5 - along(start);
        const int middle = int(
            std::floor(std::clamp(aside(start) + distance * slope - (width - 1) / 2.0, -1e6, 1e6)));
        const auto z = float(start.z + distance * slopeZ);
        for (int side = middle; side < middle + width; ++side) {
            paintPixel(IsSteep ? side : step, IsSteep ? step : side, z, line.colour);
        }
    }
}
