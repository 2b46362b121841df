// SPDX-License-Identifier: MIT
#pragma once

#include "ChartNames.h"
#include "Result.h"

#include <QChartView>
#include <QValueAxis>

#include <optional>

class QGraphicsLineItem;

/// The range of frequencies that charts show together, in MHz.
struct FrequencyWindow
{
    double lowest = 0;
    double highest = 1;
};

/// One quantity of all results over frequency. The pointer's frequency is signalled, and marked by
/// a line.
class QuantityChart : public QChartView
{
    Q_OBJECT

public:
    QuantityChart(suite::Quantity quantity, QWidget* parent);

    /// Draws these results anew, each in the colour of its place in the list.
    void show(const QVector<Result>& results, FrequencyWindow window);

    /// Puts the line at a frequency, or hides it.
    void mark(std::optional<double> frequency);

    /// The room that the labels beside the plot take, in pixels.
    double labelRoom() const { return m_labelRoom; }

    /// Makes the plot begin behind so much room: those of several charts stand below each other.
    void setLabelRoom(double room);

    /// Whether the frequencies are named below the chart, as in the last of several.
    void setFrequencyTitle(bool isShown);

    /// The name with its unit, as at the axis.
    static QString title(suite::Quantity quantity);

    /// The colour of the result at a place in the list, which differs visibly from the background.
    QColor colour(int place) const;

Q_SIGNALS:
    /// The pointer moved to a frequency, or away.
    void pointed(std::optional<double> frequency);

    /// The plot has another place or size.
    void laidOut();

protected:
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void makeAxes();
    void applyColours();
    void addCurves(const Result& result, const QColor& colour);
    void addCurve(const QVector<QPointF>& points, const QColor& colour, const QString& name);
    void scaleFrequencies(FrequencyWindow window);
    void scaleValues(const QVector<Result>& results);
    void scaleRatios(double highest);
    void noteLayout();
    void placeMark();

    suite::Quantity m_quantity;
    QValueAxis* m_frequencyAxis = nullptr;
    QValueAxis* m_valueAxis = nullptr;
    QGraphicsLineItem* m_mark = nullptr;
    std::optional<double> m_marked;
    double m_labelRoom = 0;
};
