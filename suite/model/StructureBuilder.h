// SPDX-License-Identifier: MIT
#pragma once

#include "Card.h"
#include "Finding.h"
#include "Structure.h"

namespace suite {

/// The engine's matrix grows with the square of this: 5000 segments take 400 MB.
constexpr int mostSegments = 5000;

/// Builds the structure from the geometry cards, one after another, as the engine does: wires are
/// appended, copies and mirror images behind the wires they are made of.
class StructureBuilder
{
public:
    explicit StructureBuilder(FindingList& findings);

    /// Applies one card. A card with errors is reported and not applied.
    void apply(const Card& card);

    /// Makes the checks that need all cards, and moves the structure out.
    Structure finish();

private:
    void addWire(const Card& card);
    void addTaperedWire(const Card& card);
    void addArc(const Card& card);
    void addHelix(const Card& card);
    void move(const Card& card);
    void rotate(const Card& card);
    void mirror(const Card& card);
    void scale(const Card& card);
    void addPatch(const Card& card);
    void continuePatch(const Card& card);
    void end(const Card& card);

    bool checkWire(const Card& card, double radius);
    bool hasRoom(const Card& card, qint64 added);
    bool canCopy(const Card& card, int copies, int segments);
    void append(const Card& card, double radius, const QVector<Point>& points);
    void appendMirrorImage(int axis, int tagIncrement);
    void checkPendingTaper(const Card& next);
    void checkPendingPatch(const Card& next);
    void checkSharedTag(const Card& card);

    FindingList& m_findings;
    Structure m_structure;
    Card m_pendingTaper; ///< the GW card that waits for its GC
    Card m_pendingPatch; ///< the SP or SM card that waits for its SC
    Card m_previousPatch;
    bool m_full = false;
};

} // namespace suite
