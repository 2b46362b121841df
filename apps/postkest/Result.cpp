#include "Result.h"

#include <QDir>
#include <QFile>
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
    return QString::fromUtf8(line.left(mostShown));
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
    const QFileInfo info(path);
    QFile file(path);
    Result result;
    if (path.isEmpty()) {
        result = failed(QStringLiteral("no file is named"));
    } else if (info.isDir()) {
        result = failed(QStringLiteral("it is a folder"));
    } else if (info.exists() && !info.isFile()) {
        result = failed(QStringLiteral("it is no ordinary file")); // to read it might never end
    } else if (!file.open(QIODevice::ReadOnly)) {
        result = failed(file.errorString());
    } else if (file.size() > largestTable) {
        result = failed(QStringLiteral("it is too large for a table of results"));
    } else {
        result = parsed(file.readAll());
    }
    result.path = info.absoluteFilePath();
    return result;
}

Result Result::parsed(const QByteArray& bytes)
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
