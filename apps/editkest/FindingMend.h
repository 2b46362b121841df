// SPDX-License-Identifier: MIT
#pragma once

#include <Finding.h>

#include <QString>
#include <QStringList>

#include <optional>

/// A change of one line that mends a finding.
struct FindingMend
{
    enum class Kind {
        Insert,  ///< a line in front of that one, or behind the last
        Replace, ///< that line
    };

    QString title; ///< of a button: "Insert GE"
    Kind kind = Kind::Insert;
    int line = 0; ///< from 1
    QString text; ///< the new line

    /// Nothing where the mend is not obvious, or where the lines are no longer those of the
    /// finding.
    static std::optional<FindingMend> of(const suite::Finding& finding, const QStringList& lines);
};
