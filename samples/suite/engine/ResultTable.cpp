#include "ResultTable.h"

#include <QFile>
#include <QFileInfo>

namespace suite {

namespace {

constexpr int FrequencyCell = 0;
constexpr int ResistanceCell = 1;
constexpr int ReactanceCell = 2;
constexpr int CellCount = 4;

// False when the line is no line of the table.
bool readPoint(const QByteArray& line, SweepPoint& point)
{
    const QList<QByteArray> cells = line.split(',');
    bool isFrequency = false;
    point.frequency = cells.at(FrequencyCell).toDouble(&isFrequency);
    if (cells.size() != CellCount || !isFrequency) {
        return false;
    }
    if (cells.at(ResistanceCell).isEmpty()) {
        return true;
    }
    bool isResistance = false;
    bool isReactance = false;
    Impedance impedance;
    impedance.resistance = cells.at(ResistanceCell).toDouble(&isResistance);
    impedance.reactance = cells.at(ReactanceCell).toDouble(&isReactance);
    point.impedance = impedance;
    return isResistance && isReactance;
}

} // namespace

ResultTable ResultTable::read(const QString& path)
{
    ResultTable result;
    const QString name = QFileInfo(path).fileName();
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        result.error =
            QStringLiteral("the result file '%1' cannot be read, %2").arg(name, file.errorString());
        return result;
    }
    file.readLine(); // the header
    while (!file.atEnd()) {
        SweepPoint point;
        const QByteArray line = file.readLine().trimmed();
        if (!readPoint(line, point)) {
            result.points.clear();
            result.error =
                QStringLiteral("the result file '%1' holds a line that is no result, '%2'")
                    .arg(name, QString::fromUtf8(line));
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
