// SPDX-License-Identifier: MIT
#include "QuantityChart.h"

#include <common_Contrast.h>

#include <QChart>
#include <QEvent>
#include <QGraphicsLayout>
#include <QGraphicsLineItem>
#include <QLineSeries>
#include <QMouseEvent>

#include <algorithm>
#include <cmath>
#include <utility>

using suite::Quantity;
using suite::ResultPoint;

namespace {

constexpr double bestRatio = 1;
constexpr double mostShownValue = 1e15; // a curve that goes beyond leaves the chart
constexpr double margin = 0.05;         // of the range, above and below the curves
constexpr double curveWidth = 1.6;
constexpr double edge = 6; // pixels around the plot and its labels
constexpr int leastHeight = 130;
constexpr int tickCount = 5;
constexpr int mostFrequencyTicks = 8;
constexpr int mostPoints = 8000; // of a curve: more than a screen has columns

// clang-format off
const struct { Quantity quantity; const char* title; } titles[] = {
    {Quantity::Resistance,        QT_TRANSLATE_NOOP("QuantityChart", "Resistance / Ω")},
    {Quantity::Reactance,         QT_TRANSLATE_NOOP("QuantityChart", "Reactance / Ω")},
    {Quantity::StandingWaveRatio, QT_TRANSLATE_NOOP("QuantityChart", "SWR (50 Ω)")},
};

// Axes of ratios: up to where, and the steps. Above the last nothing is to be read from a curve.
const struct { double highest; double step; } ratioAxes[] = {
    {2, 0.25}, {3, 0.5}, {6, 1}, {10, 3},
};

// Told apart by people who do not see all colours, and in this order the most different first.
const char* const curveColours[] = {
    "#0072b2", "#d55e00", "#009e73", "#cc79a7", "#e69f00", "#56b4e9", "#999999",
};
// clang-format on

// So that there are at most so many steps in a range, and each is 1, 2 or 5 times a power of ten.
double niceStep(double range, int mostSteps)
{
    const double least = range / mostSteps;
    const double power = std::pow(10, std::floor(std::log10(least)));
    const double factors[] = {1, 2, 5};
    const auto* factor = std::find_if(std::begin(factors), std::end(factors),
                                      [&](double each) { return each * power >= least; });
    return (factor == std::end(factors) ? 10 : *factor) * power;
}

// An axis draws at once what it is told: it must never have a small step in a large range.
void setTicks(QValueAxis& axis, double lowest, double highest, double step)
{
    axis.setTickInterval(std::max(axis.tickInterval(), highest - lowest));
    axis.setRange(lowest, highest);
    axis.setTickInterval(step);
}

// Of neighbours that a screen cannot show apart, the lowest and the highest are left.
QVector<QPointF> thinned(const QVector<QPointF>& points)
{
    if (points.size() <= mostPoints) {
        return points;
    }
    const auto isLower = [](const QPointF& left, const QPointF& right) {
        return left.y() < right.y();
    };
    const int bundle = 2 * points.size() / mostPoints + 1;
    QVector<QPointF> result = {points.first()};
    for (int first = 0; first < points.size(); first += bundle) {
        const auto ends = std::minmax_element(
            points.begin() + first, points.begin() + std::min<int>(first + bundle, points.size()),
            isLower);
        result.append(*std::min(ends.first, ends.second));
        result.append(*std::max(ends.first, ends.second));
    }
    result.append(points.last());
    return result;
}

std::pair<double, double> valueRange(const QVector<Result>& results, Quantity quantity)
{
    double lowest = qInf();
    double highest = -qInf();
    for (const Result& result : results) {
        for (const ResultPoint& point : result.points) {
            const double value = point.value(quantity);
            if (std::isfinite(value)) {
                const double shown = std::clamp(value, -mostShownValue, mostShownValue);
                lowest = std::min(lowest, shown);
                highest = std::max(highest, shown);
            }
        }
    }
    return lowest > highest ? std::make_pair(0.0, 1.0) : std::make_pair(lowest, highest);
}

} // namespace

QuantityChart::QuantityChart(Quantity quantity, QWidget* parent)
    : QChartView(parent), m_quantity(quantity)
{
    setObjectName(QStringLiteral("chart%1").arg(static_cast<int>(quantity)));
    setAccessibleName(title(quantity));
    setRenderHint(QPainter::Antialiasing);
    setMouseTracking(true);
    setMinimumHeight(leastHeight);
    setFrameShape(QFrame::NoFrame);
    chart()->setBackgroundVisible(false);
    chart()->setMargins(QMargins());
    chart()->layout()->setContentsMargins(edge, edge, edge, edge);
    chart()->legend()->hide();
    makeAxes();
    m_mark = new QGraphicsLineItem(chart());
    m_mark->setZValue(1000);
    m_mark->hide();
    applyColours();
    connect(chart(), &QChart::plotAreaChanged, this, &QuantityChart::noteLayout);
}

void QuantityChart::makeAxes()
{
    m_frequencyAxis = new QValueAxis(chart());
    m_valueAxis = new QValueAxis(chart());
    m_valueAxis->setTitleText(title(m_quantity));
    m_valueAxis->setLabelFormat(QStringLiteral("%g"));
    m_frequencyAxis->setLabelFormat(QStringLiteral("%.10g"));
    m_frequencyAxis->setTickType(QValueAxis::TicksDynamic);
    if (m_quantity == Quantity::StandingWaveRatio) {
        m_valueAxis->setTickType(QValueAxis::TicksDynamic);
        m_valueAxis->setTickAnchor(bestRatio);
    }
    chart()->addAxis(m_frequencyAxis, Qt::AlignBottom);
    chart()->addAxis(m_valueAxis, Qt::AlignLeft);
}

void QuantityChart::applyColours()
{
    const QColor text = palette().color(QPalette::Text);
    QColor grid = text;
    grid.setAlphaF(0.2);
    setBackgroundBrush(palette().base());
    m_mark->setPen(QPen(text, 1, Qt::DashLine));
    for (QValueAxis* axis : {m_frequencyAxis, m_valueAxis}) {
        axis->setLabelsColor(text);
        axis->setTitleBrush(text);
        axis->setLinePenColor(text);
        axis->setGridLineColor(grid);
    }
}

void QuantityChart::show(const QVector<Result>& results, FrequencyWindow window)
{
    chart()->removeAllSeries();
    for (int place = 0; place < results.size(); ++place) {
        addCurves(results.at(place), colour(place));
    }
    scaleFrequencies(window);
    scaleValues(results);
    placeMark();
}

// A curve is interrupted where the quantity is not known.
void QuantityChart::addCurves(const Result& result, const QColor& colour)
{
    QVector<QPointF> run;
    QString name = result.shownName();
    const auto finishRun = [&] {
        if (!run.isEmpty()) {
            addCurve(run, colour, std::exchange(name, QString()));
            run.clear();
        }
    };
    for (const ResultPoint& point : result.points) {
        const double value = point.value(m_quantity);
        if (std::isfinite(value)) {
            run.append(QPointF(point.frequency, value));
        } else {
            finishRun();
        }
    }
    finishRun();
}

// One curve of a result has its name.
void QuantityChart::addCurve(const QVector<QPointF>& points, const QColor& colour,
                             const QString& name)
{
    auto* series = new QLineSeries(chart());
    series->setName(name);
    series->setPen(QPen(colour, curveWidth));
    series->setPointsVisible(points.size() == 1);
    series->replace(thinned(points));
    chart()->addSeries(series);
    series->attachAxis(m_frequencyAxis);
    series->attachAxis(m_valueAxis);
}

void QuantityChart::scaleFrequencies(FrequencyWindow window)
{
    setTicks(*m_frequencyAxis, window.lowest, window.highest,
             niceStep(window.highest - window.lowest, mostFrequencyTicks));
}

void QuantityChart::scaleValues(const QVector<Result>& results)
{
    const auto [lowest, highest] = valueRange(results, m_quantity);
    if (m_quantity == Quantity::StandingWaveRatio) {
        scaleRatios(highest);
        return;
    }
    const double space = std::max((highest - lowest) * margin, 1e-6 + std::abs(highest) * 1e-3);
    m_valueAxis->setTickCount(tickCount);
    m_valueAxis->setRange(lowest - space, highest + space);
    m_valueAxis->applyNiceNumbers();
}

void QuantityChart::scaleRatios(double highest)
{
    const auto* axis =
        std::find_if(std::begin(ratioAxes), std::prev(std::end(ratioAxes)),
                     [highest](const auto& each) { return highest <= each.highest; });
    setTicks(*m_valueAxis, bestRatio, axis->highest, axis->step);
}

void QuantityChart::setLabelRoom(double room)
{
    chart()->layout()->setContentsMargins(edge + room - m_labelRoom, edge, edge, edge);
}

// The margin may be changed later than the plot follows: only now do they belong together.
void QuantityChart::noteLayout()
{
    double left = 0;
    chart()->layout()->getContentsMargins(&left, nullptr, nullptr, nullptr);
    m_labelRoom = chart()->plotArea().left() - left;
    placeMark();
    Q_EMIT laidOut();
}

void QuantityChart::setFrequencyTitle(bool isShown)
{
    m_frequencyAxis->setTitleText(isShown ? tr("Frequency / MHz") : QString());
}

void QuantityChart::mark(std::optional<double> frequency)
{
    m_marked = frequency;
    placeMark();
}

QString QuantityChart::title(Quantity quantity)
{
    const auto* row =
        std::find_if(std::begin(titles), std::end(titles),
                     [quantity](const auto& each) { return each.quantity == quantity; });
    return QuantityChart::tr(row->title);
}

QColor QuantityChart::colour(int place) const
{
    const auto base = QColor(QLatin1String(curveColours[place % std::size(curveColours)]));
    const QColor ground = palette().color(QPalette::Base);
    const bool isDark = ground.lightnessF() < 0.5;
    return common_Contrast::readable(isDark ? base.lighter(140) : base, ground);
}

void QuantityChart::mouseMoveEvent(QMouseEvent* event)
{
    const QPointF place = chart()->mapFromScene(mapToScene(event->pos()));
    if (chart()->plotArea().contains(place)) {
        Q_EMIT pointed(chart()->mapToValue(place).x());
    } else {
        Q_EMIT pointed(std::nullopt);
    }
    QChartView::mouseMoveEvent(event);
}

void QuantityChart::leaveEvent(QEvent* event)
{
    Q_EMIT pointed(std::nullopt);
    QChartView::leaveEvent(event);
}

void QuantityChart::changeEvent(QEvent* event)
{
    QChartView::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        applyColours();
    }
}

void QuantityChart::placeMark()
{
    const bool isShown =
        m_marked && *m_marked >= m_frequencyAxis->min() && *m_marked <= m_frequencyAxis->max();
    m_mark->setVisible(isShown);
    if (isShown) {
        const QRectF area = chart()->plotArea();
        const double x = chart()->mapToPosition(QPointF(*m_marked, m_valueAxis->min())).x();
        m_mark->setLine(x, area.top(), x, area.bottom());
    }
}
