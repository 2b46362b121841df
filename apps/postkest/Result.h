#pragma once

#include <QString>
#include <QVector>

#include <optional>

/// The quantities of a result, in the order of its table's columns.
enum class Quantity { Resistance, Reactance, StandingWaveRatio };

constexpr int quantityCount = 3;

/// One line of a result: the frequency in MHz, and what was found there. A quantity that is missing
/// or infinite is not finite.
struct ResultPoint
{
    double frequency = 0;
    double values[quantityCount] = {};

    double value(Quantity quantity) const { return values[static_cast<int>(quantity)]; }
};

/// What one run of a solver component found, as read from its table.
struct Result
{
    QString path;                ///< absolute
    QVector<ResultPoint> points; ///< by rising frequency
    QString error;               ///< why there are none; empty when it was read

    /// Reads a table (CSV) of a run.
    static Result read(const QString& path);

    /// Reads a table from its bytes.
    static Result parse(const QByteArray& bytes);

    /// Whether the file is a table of a run, by its first line.
    static bool isTable(const QString& path);

    /// File name without its suffix.
    QString name() const;

    /// The same as windows show it.
    QString shownName() const;

    /// The quantity at a frequency on the line between the points beside it; nothing outside the
    /// result, and beside points where it is not known.
    std::optional<double> valueAt(double frequency, Quantity quantity) const;

    /// Whether some point has the quantity.
    bool has(Quantity quantity) const;
};
