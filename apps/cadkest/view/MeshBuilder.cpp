// SPDX-License-Identifier: MIT
#include "MeshBuilder.h"

#include <QQuaternion>
#include <QtMath>

#include <algorithm>
#include <cmath>

namespace {

constexpr int sideCount = 6;
constexpr int ballStacks = 6;
constexpr int ballSlices = 10;
constexpr float sharpestMitre = 0.3F; // cosine; beyond it a mitre would stick out too far

QVector3D perpendicular(const QVector3D& direction)
{
    const QVector3D other =
        std::abs(direction.z()) < 0.9F ? QVector3D(0, 0, 1) : QVector3D(1, 0, 0);
    return QVector3D::crossProduct(direction, other).normalized();
}

// The cross-section of one segment of a tube.
struct Section
{
    QVector3D direction;
    QVector3D across;

    // The unit vector at so many sides around the tube.
    [[nodiscard]] QVector3D spoke(double side) const
    {
        const double angle = 2 * M_PI * side / sideCount;
        const QVector3D up = QVector3D::crossProduct(direction, across);
        return across * float(std::cos(angle)) + up * float(std::sin(angle));
    }
};

// One section a segment, each turned as little as possible against the one before.
QVector<Section> sectionsAlong(const QVector<QVector3D>& points)
{
    QVector<Section> result;
    for (int i = 0; i + 1 < points.size(); ++i) {
        Section section;
        section.direction = (points[i + 1] - points[i]).normalized();
        section.across = i == 0
                             ? perpendicular(section.direction)
                             : QQuaternion::rotationTo(result.last().direction, section.direction)
                                   .rotatedVector(result.last().across);
        result.append(section);
    }
    return result;
}

// Slides a point of a segment's surface along the segment into the plane between two segments.
QVector3D mitred(const QVector3D& offset, const QVector3D& direction, const QVector3D& next)
{
    const QVector3D middle = (direction + next).normalized();
    const float cosine = QVector3D::dotProduct(direction, middle);
    if (cosine < sharpestMitre) {
        return offset;
    }
    return offset - direction * (QVector3D::dotProduct(offset, middle) / cosine);
}

QVector<QVector3D> withoutRepeats(const QVector<QVector3D>& points)
{
    QVector<QVector3D> result;
    for (const QVector3D& point : points) {
        if (result.isEmpty() || point != result.last()) {
            result.append(point);
        }
    }
    return result;
}

QVector3D ballPoint(int stack, int slice)
{
    const double polar = M_PI * stack / ballStacks;
    const double around = 2 * M_PI * slice / ballSlices;
    return {float(std::sin(polar) * std::cos(around)), float(std::sin(polar) * std::sin(around)),
            float(std::cos(polar))};
}

template <typename Element>
void sortBySize(std::vector<Element>& elements)
{
    std::stable_sort(
        elements.begin(), elements.end(),
        [](const Element& left, const Element& right) { return left.size > right.size; });
}

} // namespace

quint32 MeshBuilder::addPoint(const QVector3D& point)
{
    m_mesh.points.push_back(point);
    return quint32(m_mesh.points.size() - 1);
}

void MeshBuilder::addTube(const QVector<QVector3D>& chain, const QVector<Paint>& paints,
                          float radius)
{
    const QVector<QVector3D> points = withoutRepeats(chain);
    const QVector<Section> sections = sectionsAlong(points);
    if (sections.isEmpty()) {
        return;
    }
    const auto firstRing = quint32(m_mesh.points.size());
    for (int i = 0; i < points.size(); ++i) {
        const Section& before = sections[std::max(i - 1, 0)];
        const Section& behind = sections[std::min<int>(i, sections.size() - 1)];
        for (int side = 0; side < sideCount; ++side) {
            addPoint(points[i] +
                     mitred(before.spoke(side) * radius, before.direction, behind.direction));
        }
    }
    const auto firstCore = quint32(m_mesh.points.size());
    for (const QVector3D& point : points) {
        addPoint(point);
    }
    float length = 0;
    for (int i = 0; i < sections.size(); ++i) {
        const Paint paint = paints.value(i, Paint::Wire);
        const quint32 ring = firstRing + quint32(i) * sideCount;
        const float before = length;
        length = points[i].distanceToPoint(points[i + 1]);
        addRing(ring, i == 0 ? length : std::min(before, length));
        m_mesh.cores.push_back({firstCore + quint32(i), firstCore + quint32(i) + 1, paint, radius});
        for (quint32 side = 0; side < sideCount; ++side) {
            const quint32 next = (side + 1) % sideCount;
            m_mesh.tubes.push_back(
                {{ring + side, ring + next, ring + sideCount + next, ring + sideCount + side},
                 sections[i].spoke(side + 0.5),
                 paint,
                 radius});
            m_mesh.ribs.push_back({ring + side, ring + sideCount + side, Paint::Edge, radius});
        }
    }
    const quint32 lastRing = firstCore - sideCount;
    addRing(lastRing, length);
    addCap(firstRing, -sections.first().direction, true, paints.value(0, Paint::Wire), radius);
    addCap(lastRing, sections.last().direction, false,
           paints.value(sections.size() - 1, Paint::Wire), radius);
}

void MeshBuilder::addRing(quint32 first, float size)
{
    for (quint32 side = 0; side < sideCount; ++side) {
        m_mesh.rings.push_back({first + side, first + (side + 1) % sideCount, Paint::Edge, size});
    }
}

void MeshBuilder::addCap(quint32 first, const QVector3D& normal, bool isBack, Paint paint,
                         float radius)
{
    for (const quint32 half : {0U, 3U}) {
        std::array<quint32, 4> corners = {first + half, first + half + 1, first + half + 2,
                                          first + (half + 3) % sideCount};
        if (isBack) {
            std::reverse(corners.begin(), corners.end());
        }
        m_mesh.tubes.push_back({corners, normal, paint, radius});
    }
}

void MeshBuilder::addBall(const QVector3D& centre, float radius, Paint paint)
{
    const auto first = quint32(m_mesh.points.size());
    for (int stack = 0; stack <= ballStacks; ++stack) {
        for (int slice = 0; slice < ballSlices; ++slice) {
            addPoint(centre + ballPoint(stack, slice) * radius);
        }
    }
    const auto at = [first](int stack, int slice) {
        return first + quint32(stack * ballSlices + slice % ballSlices);
    };
    for (int stack = 0; stack < ballStacks; ++stack) {
        for (int slice = 0; slice < ballSlices; ++slice) {
            const QVector3D middle = ballPoint(stack, slice) + ballPoint(stack + 1, slice) +
                                     ballPoint(stack + 1, slice + 1) + ballPoint(stack, slice + 1);
            m_mesh.solids.push_back({{at(stack, slice), at(stack + 1, slice),
                                      at(stack + 1, slice + 1), at(stack, slice + 1)},
                                     middle.normalized(),
                                     paint,
                                     radius});
        }
    }
}

void MeshBuilder::addCube(const QVector3D& centre, float halfEdge, Paint paint)
{
    // Corner n lies at +1 along x, y or z where bit 0, 1 or 2 of n is set.
    static constexpr std::array<std::array<quint32, 4>, 6> faces = {
        {{0, 4, 6, 2}, {1, 3, 7, 5}, {0, 1, 5, 4}, {2, 6, 7, 3}, {0, 2, 3, 1}, {4, 5, 7, 6}}};
    const auto first = quint32(m_mesh.points.size());
    for (int corner = 0; corner < 8; ++corner) {
        const QVector3D direction((corner & 1) != 0 ? 1 : -1, (corner & 2) != 0 ? 1 : -1,
                                  (corner & 4) != 0 ? 1 : -1);
        addPoint(centre + direction * halfEdge);
    }
    for (std::size_t i = 0; i < faces.size(); ++i) {
        QVector3D normal;
        normal[int(i / 2)] = i % 2 == 0 ? -1 : 1;
        std::array<quint32, 4> corners = faces.at(i);
        for (quint32& corner : corners) {
            corner += first;
        }
        m_mesh.solids.push_back({corners, normal, paint, halfEdge});
        for (std::size_t k = 0; k < 4; ++k) {
            const quint32 from = corners.at(k);
            const quint32 to = corners.at((k + 1) % 4);
            if (from < to) {
                m_mesh.outlines.push_back({from, to, Paint::Edge, halfEdge});
            }
        }
    }
}

void MeshBuilder::addGround(const QVector3D& low, const QVector3D& high, float step,
                            const QVector3D& origin)
{
    const float z = origin.z();
    const quint32 corner = addPoint({low.x(), low.y(), z});
    addPoint({high.x(), low.y(), z});
    addPoint({high.x(), high.y(), z});
    addPoint({low.x(), high.y(), z});
    m_mesh.solids.push_back(
        {{corner, corner + 1, corner + 2, corner + 3}, {0, 0, 1}, Paint::Ground, 1});
    for (int axis = 0; axis < 2; ++axis) {
        const int first = int(std::ceil((low[axis] - origin[axis]) / step));
        const int last = int(std::floor((high[axis] - origin[axis]) / step));
        for (int line = first; line <= last; ++line) {
            QVector3D from(low.x(), low.y(), z);
            QVector3D to(high.x(), high.y(), z);
            from[axis] = to[axis] = origin[axis] + float(line) * step;
            addLine(from, to, Paint::Grid);
        }
    }
}

void MeshBuilder::addLine(const QVector3D& from, const QVector3D& to, Paint paint)
{
    const quint32 first = addPoint(from);
    addPoint(to);
    m_mesh.outlines.push_back({first, first + 1, paint, 1});
}

void MeshBuilder::finish()
{
    sortBySize(m_mesh.tubes);
    sortBySize(m_mesh.cores);
    sortBySize(m_mesh.ribs);
    sortBySize(m_mesh.rings);
    m_mesh.radius = 0.001F;
    for (const QVector3D& point : m_mesh.points) {
        m_mesh.radius = std::max(m_mesh.radius, point.length());
    }
}
