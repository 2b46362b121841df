#include "Result.h"

#include <FileName.h>
#include <InputFile.h>
#include <VisibleText.h>

#include <QFileInfo>
#include <QtNumeric>

#include <algorithm>
#include <cmath>

namespace {

const QByteArray header = QByteArrayLiteral("frequency_MHz,resistance_ohm,reactance_ohm,swr");
constexpr qint64 largestTable = 64 << 20; // bytes
constexpr double highestFrequency = 1e12; // MHz
constexpr int cellCount = quantityCount + 1;
const QByteArray byteOrderMark = QByteArrayLiteral("\xef\xbb\xbf");

QString excerpt(const QByteArray& line)
{
    constexpr int mostShown = 60;
    return suite::visibleText(QString::fromUtf8(line.left(mostShown).trimmed()));
}

// A cell without a number: the run could not tell, or the ratio is infinite.
bool readCell(const QByteArray& cell, double& value)
{
    if (cell.isEmpty()) {
        value = qQNaN();
        return true;
    }
    bool isNumber = false;
    value = cell.toDouble(&isNumber); // knows "inf" and "nan"
    return isNumber;
}

bool readPoint(const QByteArray& line, ResultPoint& point)
{
    const QList<QByteArray> cells = line.split(',');
    if (cells.size() != cellCount) {
        return false;
    }
    bool isFrequency = false;
    point.frequency = cells.first().toDouble(&isFrequency);
    bool isGood = isFrequency && point.frequency > 0 && point.frequency <= highestFrequency;
    for (int i = 0; i < quantityCount; ++i) {
        isGood = readCell(cells.at(i + 1).trimmed(), point.values[i]) && isGood;
    }
    return isGood;
}

Result failed(const QString& error)
{
    Result result;
    result.error = error;
    return result;
}

bool isEarlier(const ResultPoint& left, const ResultPoint& right)
{
    return left.frequency < right.frequency;
}

} // namespace

Result Result::read(const QString& path)
{
    suite::InputFile file(path);
    const std::optional<QByteArray> content = file.read(largestTable);
    Result result = content ? parse(*content) : failed(file.reason());
    result.path = suite::FileName::absolute(path);
    return result;
}

bool Result::isTable(const QString& path)
{
    const QByteArray start = suite::InputFile(path)
                                 .readStart(byteOrderMark.size() + header.size())
                                 .value_or(QByteArray());
    return start.startsWith(header) || start == byteOrderMark + header;
}

Result Result::parse(const QByteArray& bytes)
{
    QList<QByteArray> lines = bytes.split('\n');
    if (lines.first().startsWith(byteOrderMark)) {
        lines.first().remove(0, byteOrderMark.size());
    }
    if (lines.takeFirst().trimmed() != header) {
        return failed(QStringLiteral("it is no table of results, its first line should be \"%1\"")
                          .arg(QString::fromLatin1(header)));
    }
    Result result;
    int number = 1;
    for (const QByteArray& line : qAsConst(lines)) {
        ++number;
        ResultPoint point;
        if (line.trimmed().isEmpty()) {
            continue;
        }
        if (!readPoint(line.trimmed(), point)) {
            return failed(
                QStringLiteral("line %1 is no result: \"%2\"").arg(number).arg(excerpt(line)));
        }
        result.points.append(point);
    }
    if (result.points.isEmpty()) {
        return failed(QStringLiteral("it holds no results"));
    }
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
    const auto* right = std::lower_bound(points.begin(), points.end(), wanted, isEarlier);
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
