// SPDX-License-Identifier: MIT
#pragma once

#include <Structure.h>

#include <QVector>

namespace suite {
struct Model;
}

/// What happens at a segment besides conducting.
enum class MarkKind {
    Feed,
    Load,            ///< at one place: a component, an impedance
    DistributedLoad, ///< along the segment: its conductivity for example
};

/// A segment with a source or a load at it, both counted from 0.
struct SegmentMark
{
    int wire = 0;
    int segment = 0;
    MarkKind kind = MarkKind::Feed;
};

/// What there is to see of a model, in metres.
struct Scene
{
    suite::Structure structure;
    QVector<SegmentMark> marks;
    bool hasGround = false;
    bool isCut = false; ///< the structure has more segments than can be held

    [[nodiscard]] int feedCount() const;
    [[nodiscard]] int loadCount() const; ///< of both kinds
};

/// The scene of a model, or of what could be read of it: cards that name segments which are not
/// there mark nothing.
Scene sceneOf(const suite::Model& model);
