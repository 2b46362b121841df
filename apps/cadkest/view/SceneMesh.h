// SPDX-License-Identifier: MIT
#pragma once

#include <QVector3D>

#include <array>
#include <vector>

struct Scene;

/// What a face or a line is painted as; the colours are SceneColours' business.
enum class Paint : quint8 { Wire, Feed, Load, Ground, Edge, Grid, AxisX, AxisY, AxisZ };
constexpr int paintCount = 9;

/// A flat face with four corners, anticlockwise seen from its front; the last two are equal in a
/// triangle. Only its front is painted.
struct MeshFace
{
    std::array<quint32, 4> corners;
    QVector3D normal;
    Paint paint;
    float size; ///< the tube's radius: what decides whether it is worth drawing
};

struct MeshLine
{
    quint32 from;
    quint32 to;
    Paint paint;
    float size; ///< radius or segment length, as for faces
};

/// How thick wires are drawn.
enum class Thickness {
    Readable, ///< thin wires thicker than they are
    True,
};

/// The scene as faces and lines between points, scaled so that the structure fits a cube from -1 to
/// 1. Both renderers draw exactly this.
///
/// What is smaller than a few pixels is left out or drawn as a line. Elements are sorted by falling
/// size for that: those worth drawing at a scale stand in front.
struct SceneMesh
{
    std::vector<QVector3D> points;
    std::vector<MeshFace> tubes;    ///< by falling radius
    std::vector<MeshLine> cores;    ///< axes of the tubes, by falling radius, drawn instead
    std::vector<MeshLine> ribs;     ///< edges along the tubes, by falling radius
    std::vector<MeshLine> rings;    ///< edges at ends of segments, by falling length
    std::vector<MeshFace> solids;   ///< marks and ground, always drawn
    std::vector<MeshLine> outlines; ///< edges of marks, grid, axes, always drawn
    float radius = 1;               ///< of a sphere around the origin that holds all points
    double metres = 1;              ///< length of one unit
};

SceneMesh meshOf(const Scene& scene, Thickness thickness);

/// How many leading elements of a sorted list are at least so large.
template <typename Element>
std::size_t countAtLeast(const std::vector<Element>& elements, float size)
{
    std::size_t low = 0;
    std::size_t high = elements.size();
    while (low < high) {
        const std::size_t middle = low + (high - low) / 2;
        if (elements[middle].size >= size) {
            low = middle + 1;
        } else {
            high = middle;
        }
    }
    return low;
}

/// What of a mesh is drawn where one unit is so many pixels.
struct MeshDetail
{
    MeshDetail(const SceneMesh& mesh, double pixelsPerUnit);

    std::size_t tubes;     ///< so many leading tubes
    std::size_t firstCore; ///< cores from here on
    std::size_t ribs;
    std::size_t rings;
};
