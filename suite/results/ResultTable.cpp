// SPDX-License-Identifier: MIT
#include "ResultTable.h"

#include "InputFile.h"
#include "TableLine.h"
#include "VisibleText.h"

namespace suite {

namespace {

constexpr qint64 largestTable = 64 << 20; // bytes
constexpr double highestFrequency = 1e12; // MHz
constexpr int frequencyDigits = 10;
const QByteArray byteOrderMark = QByteArrayLiteral("\xef\xbb\xbf");

QByteArray header()
{
    return tableLine(ResultTable::columns()).trimmed();
}

QString excerpt(const QByteArray& line)
{
    constexpr int mostShown = 60;
    return visibleText(QString::fromUtf8(line.left(mostShown).trimmed()));
}

// A cell without a number: the run could not tell, or the ratio is infinite.
bool readCell(const QByteArray& cell, double& value)
{
    if (cell.isEmpty()) {
        value = std::numeric_limits<double>::quiet_NaN();
        return true;
    }
    bool isNumber = false;
    value = cell.toDouble(&isNumber); // knows "inf" and "nan"
    return isNumber;
}

bool readPoint(const QByteArray& line, ResultPoint& point)
{
    const QList<QByteArray> cells = line.split(',');
    if (cells.size() != quantityCount + 1) {
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

ResultTable failed(const QString& error)
{
    ResultTable result;
    result.error = error;
    return result;
}

} // namespace

ResultTable ResultTable::read(const QString& path)
{
    InputFile file(path);
    const std::optional<QByteArray> content = file.read(largestTable);
    return content ? parse(*content) : failed(file.reason());
}

ResultTable ResultTable::parse(const QByteArray& bytes)
{
    QList<QByteArray> lines = bytes.split('\n');
    if (lines.first().startsWith(byteOrderMark)) {
        lines.first().remove(0, byteOrderMark.size());
    }
    if (lines.takeFirst().trimmed() != header()) {
        return failed(QStringLiteral("it is no table of results, its first line should be \"%1\"")
                          .arg(QString::fromLatin1(header())));
    }
    ResultTable result;
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
    return result.points.isEmpty() ? failed(QStringLiteral("it holds no results")) : result;
}

bool ResultTable::isTable(const QString& path)
{
    const QByteArray start =
        InputFile(path).readStart(byteOrderMark.size() + header().size()).value_or(QByteArray());
    return start.startsWith(header()) || start == byteOrderMark + header();
}

QList<QByteArray> ResultTable::columns()
{
    return {"frequency_MHz", "resistance_ohm", "reactance_ohm", "swr"};
}

QList<QByteArray> ResultTable::cells(const ResultPoint& point)
{
    QList<QByteArray> result = {tableNumber(point.frequency, frequencyDigits)};
    for (const double value : point.values) {
        result.append(tableNumber(value));
    }
    return result;
}

QByteArray ResultTable::bytes() const
{
    QByteArray text = tableLine(columns());
    for (const ResultPoint& point : points) {
        text += tableLine(cells(point));
    }
    return text;
}

} // namespace suite
