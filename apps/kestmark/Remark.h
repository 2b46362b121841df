// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QVector>

/// Something about a component's output that its author should look at.
struct Remark
{
    enum class Kind {
        CarriageReturn,
        ControlCharacter,
        CutCharacter,
        CutMarker,
        LongLine,
        NearMiss,
        NoLineEnd,
        NoText,
        NotComplete,
        NotListed,
        NotUtf8,
        OutOfRange,
        PercentageBackwards,
        PercentageMisread,
        RuntimeText,
        SeveralColons,
        TextAfterLineFeed,
        TextBeforeMarker,
        UnknownMarker,
        UnmarkedMessage,
        Variable,
    };

    Kind kind;
    QString text; ///< what happens, and often what was meant; a clause without a full stop

    /// The kind in words that scripts may rely on: "near-miss".
    QString word() const { return word(kind); }
    static QString word(Kind kind);

    /// All kinds, in the order of their words.
    static QVector<Kind> kinds();
};
