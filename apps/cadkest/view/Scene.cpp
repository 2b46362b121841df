// SPDX-License-Identifier: MIT
#include "Scene.h"

#include <Model.h>

#include <QHash>

#include <algorithm>

namespace {

// EX cards of these types sit at a segment; the others are waves that come from afar.
constexpr int appliedVoltage = 0;
constexpr int currentSlope = 5;

// LD cards of the other types are components at one place.
constexpr int seriesPerMetre = 2;
constexpr int parallelPerMetre = 3;
constexpr int conductivity = 5;

struct Place
{
    int wire = 0;
    int segment = 0;
};

// Finds segments as cards name them: the n-th of a tag, or with tag 0 of the whole structure.
class SegmentIndex
{
public:
    explicit SegmentIndex(const suite::Structure& structure)
    {
        for (int wire = 0; wire < structure.wires.size(); ++wire) {
            const suite::Wire& each = structure.wires.at(wire);
            for (int segment = 0; segment < each.segmentCount(); ++segment) {
                m_places[0].append({wire, segment});
                if (each.tag != 0) {
                    m_places[each.tag].append({wire, segment});
                }
            }
        }
    }

    // The segments from the first to the last, counted from 1, as far as they exist.
    [[nodiscard]] QVector<Place> range(int tag, int first, int last) const
    {
        const QVector<Place> places = m_places.value(tag);
        const int begin = std::max(first, 1) - 1;
        return places.mid(std::min<int>(begin, places.size()),
                          std::max(0, std::min<int>(last, places.size()) - begin));
    }

    [[nodiscard]] QVector<Place> all(int tag) const { return m_places.value(tag); }

private:
    QHash<int, QVector<Place>> m_places;
};

QVector<Place> feedPlaces(const suite::Card& card, const SegmentIndex& index)
{
    const int type = card.integer(1);
    if (type != appliedVoltage && type != currentSlope) {
        return {};
    }
    return index.range(card.integer(2), card.integer(3), card.integer(3));
}

QVector<Place> loadPlaces(const suite::Card& card, const SegmentIndex& index)
{
    const int first = card.integer(3);
    const int last = card.integer(4);
    if (card.integer(1) < 0) {
        return {};
    }
    return first == 0 && last == 0 ? index.all(card.integer(2))
                                   : index.range(card.integer(2), first, std::max(first, last));
}

void mark(Scene& scene, const QVector<Place>& places, MarkKind kind)
{
    for (const Place& place : places) {
        scene.marks.append({place.wire, place.segment, kind});
    }
}

MarkKind kindOfLoad(const suite::Card& card)
{
    const int type = card.integer(1);
    const bool isDistributed =
        type == seriesPerMetre || type == parallelPerMetre || type == conductivity;
    return isDistributed ? MarkKind::DistributedLoad : MarkKind::Load;
}

// A load of type -1 takes all loads before it away.
bool clearsLoads(const suite::Card& card)
{
    return card.integer(1) == -1;
}

void removeLoads(Scene& scene)
{
    scene.marks.erase(
        std::remove_if(scene.marks.begin(), scene.marks.end(),
                       [](const SegmentMark& each) { return each.kind != MarkKind::Feed; }),
        scene.marks.end());
}

// Several cards may name one segment, which is marked once.
void removeRepeated(QVector<SegmentMark>& marks)
{
    const auto key = [](const SegmentMark& each) {
        return std::make_tuple(each.kind, each.wire, each.segment);
    };
    std::sort(marks.begin(), marks.end(), [&](const SegmentMark& left, const SegmentMark& right) {
        return key(left) < key(right);
    });
    marks.erase(std::unique(marks.begin(), marks.end(),
                            [&](const SegmentMark& left, const SegmentMark& right) {
                                return key(left) == key(right);
                            }),
                marks.end());
}

} // namespace

int Scene::feedCount() const
{
    return int(std::count_if(marks.begin(), marks.end(),
                             [](const SegmentMark& each) { return each.kind == MarkKind::Feed; }));
}

int Scene::loadCount() const
{
    return marks.size() - feedCount();
}

Scene sceneOf(const suite::Model& model)
{
    Scene scene;
    scene.structure = model.structure;
    scene.hasGround = model.structure.groundFlag != 0 || model.groundType >= 0;
    const SegmentIndex index(scene.structure);
    for (const suite::Card& card : model.deck.cards) {
        if (!card.isValid) {
            continue;
        }
        if (card.mnemonic == QLatin1String("EX")) {
            mark(scene, feedPlaces(card, index), MarkKind::Feed);
        } else if (card.mnemonic == QLatin1String("LD") && clearsLoads(card)) {
            removeLoads(scene);
        } else if (card.mnemonic == QLatin1String("LD")) {
            mark(scene, loadPlaces(card, index), kindOfLoad(card));
        }
        // Thousands of cards may each load everything.
        if (scene.marks.size() > 4 * model.structure.segmentCount()) {
            removeRepeated(scene.marks);
        }
    }
    removeRepeated(scene.marks);
    return scene;
}
