#ifndef RESULTVIEW_H
#define RESULTVIEW_H

#include "QuantityChart.h"
#include "Result.h"

#include <QWidget>

class QLabel;

/// The charts of some results, one below the other, and the values under the pointer.
class ResultView : public QWidget
{
    Q_OBJECT

public:
    explicit ResultView(QWidget* parent = nullptr);

    /// Shows these results; those with an error are left out.
    void setResults(const QVector<Result>& results);

    /// The part with the charts alone.
    QWidget& charts() { return *m_chartArea; }

    /// The colour of the curves of the result at a place in the list.
    QColor colour(int place) const { return m_charts.first()->colour(place); }

    /// The values of all results at a frequency, a line each, as rich text.
    QString readout(double frequency) const;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void point(std::optional<double> frequency);
    void step(int direction);

    QVector<Result> m_results;
    FrequencyWindow m_window;
    QWidget* m_chartArea = nullptr;
    QVector<QuantityChart*> m_charts;
    QLabel* m_readout = nullptr;
    std::optional<double> m_pointed;
};

#endif
