#pragma once

#include "EngineOutput.h"
#include "SweepDeck.h"

#include <QRegularExpression>
#include <QVector>

#include <optional>

class QJsonObject;

namespace suite {

/// One solved frequency of an adaptive run, in MHz, with what the engine wrote.
struct AnalysisPoint
{
    AnalysisPoint() = default;
    AnalysisPoint(double frequency, const EngineOutput& output);

    [[nodiscard]] EngineOutput output() const;

    double frequency = 0;
    Impedance impedance;
    QByteArray packedOutput;
};

/// The files in which an adaptive run keeps what it has solved, one for each of its rounds
/// ("analyses"), counted from 1.
class AnalysisFiles
{
public:
    /// The key says what the results depend on: files with another key are not read.
    AnalysisFiles(QString folder, QByteArray key);

    /// What the results of a model depend on, with the tolerance in use.
    static QByteArray keyOf(const Model& model, double tolerance);

    /// The names of such files, those that a killed run left half written among them.
    static QRegularExpression names();

    /// Writes an analysis, in one step. Later ones, which an earlier run may have left, go.
    bool save(int number, const QVector<AnalysisPoint>& points);

    /// Whether there is anything in the place of an analysis.
    [[nodiscard]] bool exists(int number) const;

    /// Reads an analysis; nothing when it cannot be used.
    std::optional<QVector<AnalysisPoint>> load(int number);

    /// What went wrong.
    [[nodiscard]] QString error() const { return m_error; }

private:
    [[nodiscard]] QString path(int number) const;
    [[nodiscard]] QString problemOf(const QJsonObject& object, int number) const;
    void removeAfter(int number);
    bool refuse(int number, const QString& reason);

    QString m_folder;
    QByteArray m_key;
    QString m_error;
};

} // namespace suite
