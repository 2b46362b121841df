// SPDX-License-Identifier: MIT
#pragma once

#include "EngineOutput.h"
#include "SweepDeck.h"

#include <QRegularExpression>
#include <QVector>

#include <optional>

class QJsonObject;

namespace suite {

/// One solved frequency of an adaptive run, in MHz, with the engine's output.
struct AnalysisPoint
{
    AnalysisPoint() = default;
    AnalysisPoint(double frequency, const EngineOutput& output);

    [[nodiscard]] EngineOutput output() const;

    double frequency = 0;
    Impedance impedance;
    QByteArray packedOutput;
};

/// The files in which an adaptive run keeps its results, one for each of its rounds ("analyses"),
/// counted from 1.
class AnalysisFiles
{
public:
    /// The key identifies what the results depend on: files with another key are not read.
    AnalysisFiles(QString folder, QByteArray key);

    /// The key for a model and a tolerance.
    static QByteArray keyOf(const Model& model, double tolerance);

    /// A pattern for the names of such files, including those that a killed run has left half
    /// written.
    static QRegularExpression names();

    /// Writes an analysis, in one step, and removes later ones, which an earlier run may have left.
    /// On failure returns false and sets error().
    bool save(int number, const QVector<AnalysisPoint>& points);

    /// Whether anything exists at the path of an analysis.
    [[nodiscard]] bool exists(int number) const;

    /// Reads an analysis. On failure returns nothing and sets error().
    std::optional<QVector<AnalysisPoint>> load(int number);

    /// Why the last operation failed.
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
