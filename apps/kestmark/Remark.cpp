// SPDX-License-Identifier: MIT
#include "Remark.h"

#include <algorithm>
#include <array>

namespace {

struct Row
{
    Remark::Kind kind;
    const char* word;
};

// clang-format off
constexpr std::array<Row, 21> rows = {{
    {Remark::Kind::CarriageReturn,      "carriage-return"},
    {Remark::Kind::ControlCharacter,    "control-character"},
    {Remark::Kind::CutCharacter,        "cut-character"},
    {Remark::Kind::CutMarker,           "cut-marker"},
    {Remark::Kind::LongLine,            "long-line"},
    {Remark::Kind::NearMiss,            "near-miss"},
    {Remark::Kind::NoLineEnd,           "no-line-end"},
    {Remark::Kind::NoText,              "no-text"},
    {Remark::Kind::NotComplete,         "not-complete"},
    {Remark::Kind::NotListed,           "not-listed"},
    {Remark::Kind::NotUtf8,             "not-utf-8"},
    {Remark::Kind::OutOfRange,          "out-of-range"},
    {Remark::Kind::PercentageBackwards, "percentage-backwards"},
    {Remark::Kind::PercentageMisread,   "percentage-misread"},
    {Remark::Kind::RuntimeText,         "runtime-text"},
    {Remark::Kind::SeveralColons,       "several-colons"},
    {Remark::Kind::TextAfterLineFeed,   "text-after-linefeed"},
    {Remark::Kind::TextBeforeMarker,    "text-before-marker"},
    {Remark::Kind::UnknownMarker,       "unknown-marker"},
    {Remark::Kind::UnmarkedMessage,     "unmarked-message"},
    {Remark::Kind::Variable,            "variable"},
}};
// clang-format on

} // namespace

QString Remark::word(Kind kind)
{
    const auto* const row = std::find_if(rows.begin(), rows.end(),
                                         [kind](const Row& each) { return each.kind == kind; });
    return row == rows.end() ? QString() : QLatin1String(row->word);
}

QVector<Remark::Kind> Remark::kinds()
{
    QVector<Kind> result;
    for (const Row& row : rows) {
        result.append(row.kind);
    }
    return result;
}
