// SPDX-License-Identifier: MIT
#pragma once

#include "QuantityChart.h"
#include "Result.h"

#include <QWidget>

class QLabel;
class QScrollArea;

/// The charts of some results, one below the other, and the values under the pointer.
class ResultView : public QWidget
{
    Q_OBJECT

public:
    explicit ResultView(QWidget* parent = nullptr);

    /// Shows these results; those with an error are left out.
    void setResults(const QVector<Result>& results);

    /// The part with the charts and their legend alone.
    QWidget& charts() { return *m_chartArea; }

    /// Gives the charts this size and lays them out in a view that is never shown.
    void layOut(const QSize& size);

    /// The colour of the curves of the result at a place in the list.
    QColor colour(int place) const { return m_charts.first()->colour(place); }

    /// The values of all results at a frequency, a line each, as rich text.
    QString readout(double frequency) const;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void makeCharts();
    void makeReadout();
    void align();
    void reserveReadout();
    void showReadout();
    QString legend() const;
    void point(std::optional<double> frequency);
    void step(int direction);

    QVector<Result> m_results;
    FrequencyWindow m_window;
    QWidget* m_chartArea = nullptr;
    QVector<QuantityChart*> m_charts;
    QLabel* m_legend = nullptr;
    QLabel* m_readout = nullptr;
    QScrollArea* m_readoutArea = nullptr;
    std::optional<double> m_pointed;
};
