// SPDX-License-Identifier: MIT
#include "StructureBuilder.h"

#include "Transformation.h"

#include <QStringList>

#include <cmath>

namespace suite {

namespace {

// Tags stay whole numbers of the engine however often they are incremented.
constexpr int largestTagIncrement = 100000;

constexpr double degreesToRadians = 3.14159265358979323846 / 180.0;

Point endPoint(const Card& card, int firstPlace)
{
    return {card.number(firstPlace), card.number(firstPlace + 1), card.number(firstPlace + 2)};
}

Point between(const Point& from, const Point& to, double part)
{
    return {from.x + part * (to.x - from.x), from.y + part * (to.y - from.y),
            from.z + part * (to.z - from.z)};
}

// The segments' ends on a straight line, each segment "ratio" times as long as the one before.
QVector<Point> straightPoints(const Point& from, const Point& to, int count, double ratio)
{
    double length = 1;
    double total = 0;
    QVector<double> ends = {0};
    for (int i = 0; i < count; ++i) {
        total += length;
        length *= ratio;
        ends.append(total);
    }
    QVector<Point> points;
    for (const double end : ends) {
        points.append(between(from, to, end / total));
    }
    return points;
}

// The radii along x and y go evenly from those at the start to those at the end.
QVector<Point> helixPoints(const Card& card)
{
    const double length = std::abs(card.number(2));
    const double turns = std::abs(card.number(2) / card.number(1));
    const double endX = card.number(5) > 0 ? card.number(5) : card.number(3);
    const double endY = card.number(6) > 0 ? card.number(6) : card.number(4);
    QVector<Point> points;
    for (int i = 0; i <= card.integer(2); ++i) {
        const double part = static_cast<double>(i) / card.integer(2);
        const double angle = 360 * part * turns * degreesToRadians;
        const double radiusX = card.number(3) + part * (endX - card.number(3));
        const double radiusY = card.number(4) + part * (endY - card.number(4));
        points.append({radiusX * std::cos(angle), radiusY * std::sin(angle), part * length});
    }
    return points;
}

} // namespace

StructureBuilder::StructureBuilder(FindingList& findings) : m_findings(findings)
{}

void StructureBuilder::apply(const Card& card)
{
    using Operation = void (StructureBuilder::*)(const Card&);
    struct Row
    {
        const char* mnemonic;
        Operation operation;
    };
    static constexpr Row table[] = {
        {"GW", &StructureBuilder::addWire},       {"GC", &StructureBuilder::addTaperedWire},
        {"GA", &StructureBuilder::addArc},        {"GH", &StructureBuilder::addHelix},
        {"GM", &StructureBuilder::move},          {"GR", &StructureBuilder::rotate},
        {"GX", &StructureBuilder::mirror},        {"GS", &StructureBuilder::scale},
        {"SP", &StructureBuilder::addPatch},      {"SM", &StructureBuilder::addPatch},
        {"SC", &StructureBuilder::continuePatch}, {"GE", &StructureBuilder::end},
    };
    checkPendingTaper(card);
    checkPendingPatch(card);
    if (!card.isValid || m_full) {
        return;
    }
    for (const Row& row : table) {
        if (card.mnemonic == QLatin1String(row.mnemonic)) {
            (this->*row.operation)(card);
        }
    }
}

Structure StructureBuilder::finish()
{
    checkPendingTaper(Card());
    checkPendingPatch(Card());
    return m_structure;
}

// A radius of 0 says that the next card, GC, gives the radii.
void StructureBuilder::checkPendingTaper(const Card& next)
{
    const bool wasPending = m_pendingTaper.line != 0;
    if (wasPending && next.mnemonic != QLatin1String("GC")) {
        m_findings.addAtWire(FindingKind::BadRadius, m_pendingTaper.line, m_pendingTaper.integer(1),
                             {QStringLiteral("0")});
        m_pendingTaper = Card();
    }
}

void StructureBuilder::checkPendingPatch(const Card& next)
{
    const bool wasPending = m_pendingPatch.line != 0;
    if (wasPending && next.mnemonic != QLatin1String("SC")) {
        m_findings.add(FindingKind::PatchContinuation, m_pendingPatch.line,
                       {QStringLiteral("the patch needs an SC card behind it")});
    }
    m_pendingPatch = Card();
    m_previousPatch = next.mnemonic.startsWith(QLatin1Char('S')) ? m_previousPatch : Card();
}

bool StructureBuilder::checkWire(const Card& card, double radius)
{
    const int tag = card.integer(1);
    const int count = card.integer(2);
    const int errorsBefore = m_findings.errorCount();
    if (tag < 0) {
        m_findings.add(FindingKind::BadTag, card.line, {QString::number(tag)});
    }
    if (count < 1) {
        m_findings.addAtWire(FindingKind::BadSegmentCount, card.line, tag,
                             {QString::number(count)});
    }
    if (!(radius > 0)) {
        m_findings.addAtWire(FindingKind::BadRadius, card.line, tag, {QString::number(radius)});
    }
    return m_findings.errorCount() == errorsBefore && hasRoom(card, count);
}

bool StructureBuilder::hasRoom(const Card& card, qint64 added)
{
    if (m_structure.segmentCount() + added <= mostSegments) {
        return true;
    }
    m_findings.add(FindingKind::TooManySegments, card.line, {QString::number(mostSegments)});
    m_full = true;
    return false;
}

// True when the structure can take this many copies of a part, with this increment of their tags.
bool StructureBuilder::canCopy(const Card& card, int copies, int segments)
{
    if (std::abs(static_cast<double>(card.integer(1))) > largestTagIncrement) {
        m_findings.add(FindingKind::BadTransformation, card.line,
                       {QStringLiteral("the tag increment is out of range")});
        return false;
    }
    // Copies of a part without segments take time too.
    return hasRoom(card, static_cast<qint64>(copies) * qMax(segments, 1));
}

void StructureBuilder::append(const Card& card, double radius, const QVector<Point>& points)
{
    checkSharedTag(card);
    Wire wire;
    wire.tag = card.integer(1);
    wire.line = card.line;
    wire.radius = radius;
    wire.points = points;
    m_structure.wires.append(wire);
}

// One tag for several wires is allowed, but the segments are then counted through all of them.
void StructureBuilder::checkSharedTag(const Card& card)
{
    for (const Wire& wire : qAsConst(m_structure.wires)) {
        if (wire.tag == card.integer(1) && wire.tag != 0 && !wire.isCopy) {
            m_findings.addAtWire(FindingKind::SharedTag, card.line, wire.tag,
                                 {QString::number(wire.tag), QString::number(wire.line)});
            return;
        }
    }
}

void StructureBuilder::addWire(const Card& card)
{
    const double radius = card.number(7);
    const bool isTapered = radius == 0 && card.fields.size() >= 9;
    if (distance(endPoint(card, 1), endPoint(card, 4)) == 0) {
        m_findings.addAtWire(FindingKind::ZeroLengthWire, card.line, card.integer(1));
        return;
    }
    if (isTapered) {
        m_pendingTaper = card;
    } else if (checkWire(card, radius)) {
        append(card, radius,
               straightPoints(endPoint(card, 1), endPoint(card, 4), card.integer(2), 1));
    }
}

void StructureBuilder::addTaperedWire(const Card& card)
{
    const Card wire = m_pendingTaper;
    m_pendingTaper = Card();
    const double ratio = card.number(1);
    const double thickest = qMax(card.number(2), card.number(3));
    if (wire.line == 0) {
        m_findings.add(FindingKind::TaperWithoutWire, card.line);
    } else if (!(card.number(2) > 0 && card.number(3) > 0)) {
        m_findings.addAtWire(FindingKind::BadRadius, card.line, wire.integer(1),
                             {QString::number(qMin(card.number(2), card.number(3)))});
    } else if (!(ratio > 0)) {
        m_findings.add(FindingKind::BadTransformation, card.line,
                       {QStringLiteral("the ratio of the segment lengths must be greater than 0")});
    } else if (checkWire(wire, thickest)) {
        append(wire, thickest,
               straightPoints(endPoint(wire, 1), endPoint(wire, 4), wire.integer(2), ratio));
    }
}

void StructureBuilder::addArc(const Card& card)
{
    const double arcRadius = card.number(1);
    const double from = card.number(2);
    const double sweep = card.number(3) - from;
    if (!(arcRadius > 0) || sweep == 0 || std::abs(sweep) > 360) {
        m_findings.add(FindingKind::BadArc, card.line,
                       {QStringLiteral("the arc needs a radius greater than 0 and an angle up to "
                                       "360 degrees other than 0")});
        return;
    }
    if (!checkWire(card, card.number(4))) {
        return;
    }
    QVector<Point> points;
    for (int i = 0; i <= card.integer(2); ++i) {
        const double angle = (from + sweep * i / card.integer(2)) * degreesToRadians;
        points.append({arcRadius * std::cos(angle), 0, arcRadius * std::sin(angle)});
    }
    append(card, card.number(4), points);
}

void StructureBuilder::addHelix(const Card& card)
{
    const double spacing = card.number(1);
    const double length = card.number(2);
    if (spacing == 0 || length == 0 || !(card.number(3) > 0) || !(card.number(4) > 0)) {
        m_findings.add(FindingKind::BadHelix, card.line,
                       {QStringLiteral("the helix needs a turn spacing, a length and radii other "
                                       "than 0")});
        return;
    }
    if (!checkWire(card, card.number(7))) {
        return;
    }
    append(card, card.number(7), helixPoints(card));
}

// GM with a count of copies repeats the move that often and keeps the original; without one it
// moves the original. Only wires from the first with the tag in the last field on take part.
void StructureBuilder::move(const Card& card)
{
    const int copies = card.integer(2);
    const Transformation motion(card);
    const int firstTag = static_cast<int>(qBound(-1.0, card.number(7) + 0.5, 1e9));
    QVector<Wire>& wires = m_structure.wires;
    int first = 0;
    while (firstTag != 0 && first < wires.size() && wires.at(first).tag != firstTag) {
        ++first;
    }
    const bool hasFirst = firstTag == 0 || first < wires.size();
    if (copies < 0 || !hasFirst) {
        m_findings.add(FindingKind::BadTransformation, card.line,
                       {hasFirst ? QStringLiteral("the number of copies must not be negative")
                                 : QStringLiteral("no wire has the tag to move from")});
        return;
    }
    const QVector<Wire> moved = wires.mid(first);
    Structure part;
    part.wires = moved;
    if (!canCopy(card, copies, part.segmentCount())) {
        return;
    }
    if (copies == 0) {
        wires.resize(first);
        wires += motion.applied(moved, card.integer(1), 1, false);
    }
    for (int i = 1; i <= copies; ++i) {
        wires += motion.applied(moved, card.integer(1), i, true);
    }
}

void StructureBuilder::rotate(const Card& card)
{
    const int total = card.integer(2);
    if (total < 1) {
        m_findings.add(FindingKind::BadTransformation, card.line,
                       {QStringLiteral("the structure must stand at least once around the axis")});
        return;
    }
    if (!canCopy(card, total - 1, m_structure.segmentCount())) {
        return;
    }
    const QVector<Wire> original = m_structure.wires;
    const Transformation turn = Transformation::aroundZ(360.0 / total);
    for (int i = 1; i < total; ++i) {
        m_structure.wires += turn.applied(original, card.integer(1), i, true);
    }
}

// The digits of the second field say along which axes to mirror; z comes first, x last, and each
// mirroring doubles the tag increment of the next.
void StructureBuilder::mirror(const Card& card)
{
    const int digits = card.integer(2);
    const int axes[] = {digits % 10, digits / 10 % 10, digits / 100};
    if (digits < 0 || digits > 111 || axes[0] > 1 || axes[1] > 1) {
        m_findings.add(FindingKind::BadTransformation, card.line,
                       {QStringLiteral("the axes to mirror along must be three digits 0 or 1")});
        return;
    }
    int increment = card.integer(1);
    for (int axis = 0; axis < 3; ++axis) {
        if (axes[axis] == 0) {
            continue;
        }
        if (!canCopy(card, 1, m_structure.segmentCount())) {
            return;
        }
        appendMirrorImage(2 - axis, increment);
        increment *= 2;
    }
}

void StructureBuilder::appendMirrorImage(int axis, int tagIncrement)
{
    const Transformation reflection = Transformation::mirror(axis);
    m_structure.wires += reflection.applied(m_structure.wires, tagIncrement, 1, true);
}

void StructureBuilder::scale(const Card& card)
{
    const double factor = card.number(1);
    if (!(factor > 0)) {
        m_findings.add(FindingKind::BadTransformation, card.line,
                       {QStringLiteral("the scale must be greater than 0")});
        return;
    }
    m_structure.wires = Transformation::scale(factor).applied(m_structure.wires, 0, 1, false);
    for (Wire& wire : m_structure.wires) {
        wire.radius *= factor;
    }
}

// Patches of shapes other than 0, and surfaces, are continued by an SC card.
void StructureBuilder::addPatch(const Card& card)
{
    const bool isSurface = card.mnemonic == QLatin1String("SM");
    ++m_structure.patchCards;
    m_previousPatch = card;
    if (isSurface || card.integer(2) != 0) {
        m_pendingPatch = card;
    }
}

void StructureBuilder::continuePatch(const Card& card)
{
    if (m_previousPatch.line == 0) {
        m_findings.add(FindingKind::PatchContinuation, card.line,
                       {QStringLiteral("an SC card must follow an SP or SM card")});
    }
}

void StructureBuilder::end(const Card& card)
{
    m_structure.groundFlag = card.integer(1);
    if (m_structure.groundFlag == 0) {
        return;
    }
    for (const Wire& wire : qAsConst(m_structure.wires)) {
        const bool isBelow = wire.lowestZ() < -1e-3 * wire.shortestSegment();
        if (isBelow || wire.isInPlaneZ0()) {
            m_findings.addAtWire(
                FindingKind::WireBelowGround, wire.line, wire.tag,
                {isBelow ? QStringLiteral("goes below") : QStringLiteral("lies in")});
        }
    }
}

} // namespace suite
