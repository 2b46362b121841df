// SPDX-License-Identifier: MIT
// A table of results as postkest reads it.

#include "Fuzzing.h"

#include <Result.h>

#include <algorithm>
#include <cmath>

using suite::Quantity;
using suite::ResultPoint;
using suite::ResultTable;

namespace {

constexpr Quantity quantities[] = {Quantity::Resistance, Quantity::Reactance,
                                   Quantity::StandingWaveRatio};

void requireValues(const Result& result, Quantity quantity)
{
    const double first = result.points.first().frequency;
    const double last = result.points.last().frequency;
    require(!result.valueAt(first / 2, quantity), "there is nothing below the result");
    require(!result.valueAt(last * 2, quantity), "there is nothing above the result");
    bool found = false;
    for (const ResultPoint& point : result.points) {
        const std::optional<double> value = result.valueAt(point.frequency, quantity);
        require(!value || std::isfinite(*value), "a value that is known is finite");
        found = found || std::isfinite(point.value(quantity));
    }
    require(result.has(quantity) == found, "a quantity is there when a point has it");
}

void requireSameAgain(const ResultTable& table)
{
    const ResultTable again = ResultTable::parse(table.bytes());
    require(again.error.isEmpty(), "a table that was written can be read");
    require(again.points.size() == table.points.size(), "with as many points");
    require(again.bytes() == table.bytes(), "and the same digits");
}

} // namespace

void fuzz(FuzzedInput input)
{
    const QByteArray bytes = input.rest();
    const Result result = Result::parse(bytes);
    require(result.error.isEmpty() != result.points.isEmpty(), "there is a result or an error");
    if (!result.error.isEmpty()) {
        return;
    }
    requireSameAgain(ResultTable::parse(bytes));
    const auto isEarlier = [](const ResultPoint& left, const ResultPoint& right) {
        return left.frequency < right.frequency;
    };
    require(std::is_sorted(result.points.cbegin(), result.points.cend(), isEarlier),
            "points come by rising frequency");
    require(result.points.first().frequency > 0 && std::isfinite(result.points.last().frequency),
            "frequencies are positive and finite");
    for (const Quantity quantity : quantities) {
        requireValues(result, quantity);
    }
}
