// SPDX-License-Identifier: MIT
#include "Result.h"

#include <FileName.h>
#include <VisibleText.h>

#include <QFileInfo>

#include <algorithm>
#include <cmath>
#include <utility>

using suite::Quantity;
using suite::ResultPoint;

namespace {

bool isEarlier(const ResultPoint& left, const ResultPoint& right)
{
    return left.frequency < right.frequency;
}

} // namespace

Result Result::read(const QString& path)
{
    Result result = ofTable(suite::ResultTable::read(path));
    result.path = suite::FileName::absolute(path);
    return result;
}

Result Result::parse(const QByteArray& bytes)
{
    return ofTable(suite::ResultTable::parse(bytes));
}

Result Result::ofTable(suite::ResultTable table)
{
    Result result;
    result.error = table.error;
    result.points = std::move(table.points);
    std::stable_sort(result.points.begin(), result.points.end(), isEarlier);
    return result;
}

QString Result::name() const
{
    return QFileInfo(path).completeBaseName();
}

QString Result::shownName() const
{
    return suite::visibleText(name());
}

std::optional<double> Result::valueAt(double frequency, Quantity quantity) const
{
    ResultPoint wanted;
    wanted.frequency = frequency;
    const auto right = std::lower_bound(points.begin(), points.end(), wanted, isEarlier);
    if (right == points.end()) {
        return std::nullopt;
    }
    double value = right->value(quantity);
    if (right->frequency > frequency) {
        if (right == points.begin()) {
            return std::nullopt;
        }
        const ResultPoint& left = *(right - 1);
        const double part = (frequency - left.frequency) / (right->frequency - left.frequency);
        value = left.value(quantity) + part * (value - left.value(quantity));
    }
    return std::isfinite(value) ? std::optional<double>(value) : std::nullopt;
}

bool Result::has(Quantity quantity) const
{
    return std::any_of(points.begin(), points.end(), [quantity](const ResultPoint& point) {
        return std::isfinite(point.value(quantity));
    });
}
