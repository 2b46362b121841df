#include "ResultTable.h"

#include <InputFile.h>

#include <QFileInfo>

namespace suite {

namespace {

constexpr int frequencyCell = 0;
constexpr int resistanceCell = 1;
constexpr int reactanceCell = 2;
constexpr int cellCount = 4;
constexpr qint64 largestTable = 64 << 20;

// False when the line is no line of the table.
bool readPoint(const QByteArray& line, SweepPoint& point)
{
    const QList<QByteArray> cells = line.split(',');
    bool isFrequency = false;
    point.frequency = cells.at(frequencyCell).toDouble(&isFrequency);
    if (cells.size() != cellCount || !isFrequency) {
        return false;
    }
    if (cells.at(resistanceCell).isEmpty()) {
        return true;
    }
    bool isResistance = false;
    bool isReactance = false;
    Impedance impedance;
    impedance.resistance = cells.at(resistanceCell).toDouble(&isResistance);
    impedance.reactance = cells.at(reactanceCell).toDouble(&isReactance);
    point.impedance = impedance;
    return isResistance && isReactance;
}

} // namespace

ResultTable ResultTable::read(const QString& path)
{
    ResultTable result;
    const QString name = QFileInfo(path).fileName();
    InputFile file(path);
    const std::optional<QByteArray> content = file.read(largestTable);
    if (!content) {
        result.error =
            QStringLiteral("the result file '%1' cannot be read, %2").arg(name, file.reason());
        return result;
    }
    QList<QByteArray> lines = content->split('\n');
    if (lines.last().isEmpty()) {
        lines.removeLast();
    }
    for (const QByteArray& line : lines.mid(1)) { // behind the header
        SweepPoint point;
        if (!readPoint(line.trimmed(), point)) {
            result.points.clear();
            result.error =
                QStringLiteral("the result file '%1' holds a line that is no result, '%2'")
                    .arg(name, QString::fromUtf8(line.trimmed()));
            return result;
        }
        result.points.append(point);
    }
    if (result.points.isEmpty()) {
        result.error = QStringLiteral("the result file '%1' is empty").arg(name);
    }
    return result;
}

} // namespace suite
