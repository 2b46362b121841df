// SPDX-License-Identifier: MIT
#include "SceneMesh.h"

#include "MeshBuilder.h"
#include "RoundLength.h"
#include "Scene.h"

#include <QHash>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

// In pixels, below which something is not worth drawing.
constexpr float leastTubeRadius = 0.6F;
constexpr float leastRibRadius = 3;
constexpr float leastRingDistance = 8;

// In units of the mesh.
constexpr float readableRadius = 0.006F;
constexpr float readableToSegment = 0.1F; // so that dense structures do not grow together
constexpr float feedRadius = 0.022F;
constexpr float loadHalfEdge = 0.016F;
constexpr float axisLength = 0.3F;
constexpr float farthestOrigin = 2; // farther away, axes and ground would dwarf the structure
constexpr float groundMargin = 0.25F;
constexpr float aboveGround = 0.002F; // keeps the axes apart from the lines on the ground

// The cube around the structure: where its middle is, and how large it is.
class Box
{
public:
    explicit Box(const suite::Structure& structure)
    {
        for (const suite::Wire& wire : structure.wires) {
            for (const suite::Point& point : wire.points) {
                add(point);
            }
        }
        for (int axis = 0; axis < 3 && !m_isEmpty; ++axis) {
            m_middle[axis] = m_low[axis] / 2 + m_high[axis] / 2;
            m_half = std::max(m_half, m_high[axis] / 2 - m_low[axis] / 2);
        }
        if (!(m_half > 0) || !std::isfinite(m_half)) {
            m_half = 1;
        }
    }

    [[nodiscard]] double half() const { return m_half; }

    [[nodiscard]] QVector3D scaled(const suite::Point& point) const
    {
        return {float((point.x - m_middle[0]) / m_half), float((point.y - m_middle[1]) / m_half),
                float((point.z - m_middle[2]) / m_half)};
    }

    // The corner with the smallest (-1) or the largest (1) coordinates.
    [[nodiscard]] QVector3D corner(int sign) const
    {
        return m_isEmpty ? QVector3D(float(sign), float(sign), float(sign))
                         : scaled(sign < 0 ? suite::Point{m_low[0], m_low[1], m_low[2]}
                                           : suite::Point{m_high[0], m_high[1], m_high[2]});
    }

private:
    void add(const suite::Point& point)
    {
        const std::array<double, 3> values = {point.x, point.y, point.z};
        for (std::size_t axis = 0; axis < 3; ++axis) {
            m_low[axis] = m_isEmpty ? values[axis] : std::min(m_low[axis], values[axis]);
            m_high[axis] = m_isEmpty ? values[axis] : std::max(m_high[axis], values[axis]);
        }
        m_isEmpty = false;
    }

    bool m_isEmpty = true;
    std::array<double, 3> m_low = {};
    std::array<double, 3> m_high = {};
    std::array<double, 3> m_middle = {};
    double m_half = 0;
};

class SceneMeshBuilder
{
public:
    SceneMeshBuilder(const Scene& scene, Thickness thickness, SceneMesh& mesh)
        : m_scene(scene), m_thickness(thickness), m_box(scene.structure), m_builder(mesh)
    {
        mesh.metres = m_box.half();
    }

    void build()
    {
        addWires();
        addMarks();
        addSurroundings();
        m_builder.finish();
    }

private:
    void addWires()
    {
        QHash<int, QVector<SegmentMark>> marks;
        for (const SegmentMark& mark : m_scene.marks) {
            marks[mark.wire].append(mark);
        }
        const QVector<suite::Wire>& wires = m_scene.structure.wires;
        for (int i = 0; i < wires.size(); ++i) {
            addWire(wires.at(i), marks.value(i));
        }
    }

    void addWire(const suite::Wire& wire, const QVector<SegmentMark>& marks)
    {
        QVector<Paint> paints(wire.segmentCount(), Paint::Wire);
        for (const SegmentMark& mark : marks) {
            if (mark.segment < paints.size() && paints.at(mark.segment) != Paint::Feed) {
                paints[mark.segment] = mark.kind == MarkKind::Feed ? Paint::Feed : Paint::Load;
            }
        }
        QVector<QVector3D> points;
        points.reserve(wire.points.size());
        for (const suite::Point& point : wire.points) {
            points.append(m_box.scaled(point));
        }
        m_builder.addTube(points, paints, drawnRadius(wire));
    }

    [[nodiscard]] float drawnRadius(const suite::Wire& wire) const
    {
        const auto radius = float(std::min(wire.radius / m_box.half(), 1.0));
        const auto segment = float(wire.shortestSegment() / m_box.half());
        return m_thickness == Thickness::True
                   ? radius
                   : std::max(radius, std::min(readableRadius, segment * readableToSegment));
    }

    void addMarks()
    {
        for (const SegmentMark& mark : m_scene.marks) {
            const suite::Wire& wire = m_scene.structure.wires.at(mark.wire);
            const QVector3D middle = (m_box.scaled(wire.points.at(mark.segment)) +
                                      m_box.scaled(wire.points.at(mark.segment + 1))) /
                                     2;
            const float thickness = drawnRadius(wire);
            if (mark.kind == MarkKind::Feed) {
                m_builder.addBall(middle, std::max(feedRadius, thickness * 1.6F), Paint::Feed);
            } else if (mark.kind == MarkKind::Load) {
                m_builder.addCube(middle, std::max(loadHalfEdge, thickness * 1.3F), Paint::Load);
            }
        }
    }

    void addSurroundings()
    {
        const QVector3D origin = m_box.scaled({0, 0, 0});
        const bool hasGround = m_scene.hasGround && std::abs(origin.z()) < farthestOrigin;
        if (origin.length() < farthestOrigin) {
            addAxes(hasGround ? origin + QVector3D(0, 0, aboveGround) : origin);
        }
        if (hasGround) {
            addGround(origin);
        }
    }

    void addAxes(const QVector3D& origin)
    {
        m_builder.addLine(origin, origin + QVector3D(axisLength, 0, 0), Paint::AxisX);
        m_builder.addLine(origin, origin + QVector3D(0, axisLength, 0), Paint::AxisY);
        m_builder.addLine(origin, origin + QVector3D(0, 0, axisLength), Paint::AxisZ);
    }

    void addGround(const QVector3D& origin)
    {
        // The lines lie at round distances from the origin, if that is near.
        const QVector3D margin(groundMargin, groundMargin, 0);
        const auto step = float(roundLength(m_box.half() / 4) / m_box.half());
        const QVector3D start =
            origin.length() < farthestOrigin ? origin : QVector3D(0, 0, origin.z());
        m_builder.addGround(m_box.corner(-1) - margin, m_box.corner(1) + margin, step, start);
    }

    const Scene& m_scene;
    Thickness m_thickness;
    Box m_box;
    MeshBuilder m_builder;
};

} // namespace

SceneMesh meshOf(const Scene& scene, Thickness thickness)
{
    SceneMesh mesh;
    SceneMeshBuilder(scene, thickness, mesh).build();
    return mesh;
}

MeshDetail::MeshDetail(const SceneMesh& mesh, double pixelsPerUnit)
    : tubes(countAtLeast(mesh.tubes, leastTubeRadius / float(pixelsPerUnit)))
    , firstCore(countAtLeast(mesh.cores, leastTubeRadius / float(pixelsPerUnit)))
    , ribs(countAtLeast(mesh.ribs, leastRibRadius / float(pixelsPerUnit)))
    , rings(countAtLeast(mesh.rings, leastRingDistance / float(pixelsPerUnit)))
{}
