// SPDX-License-Identifier: MIT
#pragma once

#include "SceneMesh.h"

#include <QVector>

/// Makes the bodies that a mesh consists of. All lengths are in the mesh's units.
class MeshBuilder
{
public:
    explicit MeshBuilder(SceneMesh& mesh) : m_mesh(mesh) {}

    /// A hexagonal tube along a chain of points, mitred where it bends. Each segment has a paint.
    void addTube(const QVector<QVector3D>& chain, const QVector<Paint>& paints, float radius);

    /// A ball, for sources.
    void addBall(const QVector3D& centre, float radius, Paint paint);

    /// A cube, for loads.
    void addCube(const QVector3D& centre, float halfEdge, Paint paint);

    /// A horizontal rectangle, painted from above, with a grid of lines.
    void addGround(const QVector3D& low, const QVector3D& high, float step,
                   const QVector3D& origin);

    void addLine(const QVector3D& from, const QVector3D& to, Paint paint);

    /// Sorts by size and measures; to be called once, at the end.
    void finish();

private:
    quint32 addPoint(const QVector3D& point);
    void addRing(quint32 first, float size);
    void addCap(quint32 first, const QVector3D& normal, bool isBack, Paint paint, float radius);

    SceneMesh& m_mesh;
};
