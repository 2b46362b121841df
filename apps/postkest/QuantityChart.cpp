#include "QuantityChart.h"

#include <QChart>
#include <QGraphicsLineItem>
#include <QLegendMarker>
#include <QLineSeries>
#include <QMouseEvent>
#include <QValueAxis>

#include <algorithm>
#include <cmath>
#include <utility>

using namespace QtCharts;

namespace {

constexpr double bestRatio = 1;
constexpr double mostShownRatio = 10; // above it nothing is to be read from a curve
constexpr double margin = 0.05;       // of the range, above and below the curves
constexpr double curveWidth = 1.6;
constexpr int leastHeight = 130;
constexpr int tickCount = 5;

// clang-format off
const struct { Quantity quantity; const char* title; } titles[] = {
    {Quantity::Resistance,        "Resistance / \u03a9"},
    {Quantity::Reactance,         "Reactance / \u03a9"},
    {Quantity::StandingWaveRatio, "SWR (50 \u03a9)"},
};

// Told apart by people who do not see all colours, and in this order the most different first.
const char* const curveColours[] = {
    "#0072b2", "#d55e00", "#009e73", "#cc79a7", "#e69f00", "#56b4e9", "#999999",
};
// clang-format on

std::pair<double, double> valueRange(const QVector<Result>& results, Quantity quantity)
{
    double lowest = qInf();
    double highest = -qInf();
    for (const Result& result : results) {
        for (const ResultPoint& point : result.points) {
            const double value = point.value(quantity);
            if (std::isfinite(value)) {
                lowest = std::min(lowest, value);
                highest = std::max(highest, value);
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
    chart()->setBackgroundRoundness(0);
    chart()->setBackgroundBrush(palette().base());
    chart()->setMargins(QMargins(2, 2, 2, 2));
    chart()->legend()->setLabelColor(palette().color(QPalette::Text));
    makeAxes();
    m_mark = new QGraphicsLineItem(chart());
    m_mark->setPen(QPen(palette().color(QPalette::Text), 1, Qt::DashLine));
    m_mark->setZValue(1000);
    m_mark->hide();
    connect(chart(), &QChart::plotAreaChanged, this, &QuantityChart::placeMark);
}

void QuantityChart::makeAxes()
{
    const QColor text = palette().color(QPalette::Text);
    QColor grid = text;
    grid.setAlphaF(0.2);
    m_frequencyAxis = new QValueAxis(chart());
    m_valueAxis = new QValueAxis(chart());
    m_valueAxis->setTitleText(title(m_quantity));
    m_valueAxis->setLabelFormat(QStringLiteral("%g"));
    m_frequencyAxis->setLabelFormat(QStringLiteral("%g"));
    for (QValueAxis* axis : {m_frequencyAxis, m_valueAxis}) {
        axis->setLabelsColor(text);
        axis->setTitleBrush(text);
        axis->setLinePenColor(text);
        axis->setGridLineColor(grid);
    }
    chart()->addAxis(m_frequencyAxis, Qt::AlignBottom);
    chart()->addAxis(m_valueAxis, Qt::AlignLeft);
}

void QuantityChart::show(const QVector<Result>& results, FrequencyWindow window)
{
    chart()->removeAllSeries();
    for (int place = 0; place < results.size(); ++place) {
        addCurves(results.at(place), colour(place));
    }
    chart()->legend()->setVisible(results.size() > 1);
    scale(results, window);
    placeMark();
}

// A curve is interrupted where the quantity is not known.
void QuantityChart::addCurves(const Result& result, const QColor& colour)
{
    QVector<QPointF> run;
    QString name = result.name();
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

// One name a result stands in the legend.
void QuantityChart::addCurve(const QVector<QPointF>& points, const QColor& colour,
                             const QString& name)
{
    auto* series = new QLineSeries(chart());
    series->setName(name);
    series->setPen(QPen(colour, curveWidth));
    series->setPointsVisible(points.size() == 1);
    series->replace(points);
    chart()->addSeries(series);
    series->attachAxis(m_frequencyAxis);
    series->attachAxis(m_valueAxis);
    const QList<QLegendMarker*> markers = chart()->legend()->markers(series);
    for (QLegendMarker* marker : markers) {
        marker->setVisible(!name.isEmpty());
    }
}

void QuantityChart::scale(const QVector<Result>& results, FrequencyWindow window)
{
    m_frequencyAxis->setRange(window.lowest, window.highest);
    auto [lowest, highest] = valueRange(results, m_quantity);
    if (m_quantity == Quantity::StandingWaveRatio) {
        lowest = bestRatio;
        highest = std::clamp(highest, bestRatio + 1, mostShownRatio);
    } else {
        const double space = std::max((highest - lowest) * margin, 1e-6 + std::abs(highest) * 1e-3);
        lowest -= space;
        highest += space;
    }
    m_valueAxis->setTickCount(tickCount);
    m_valueAxis->setRange(lowest, highest);
    m_valueAxis->applyNiceNumbers();
}

void QuantityChart::setFrequencyTitle(bool isShown)
{
    m_frequencyAxis->setTitleText(isShown ? QStringLiteral("Frequency / MHz") : QString());
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
    return QString::fromUtf8(row->title);
}

QColor QuantityChart::colour(int place) const
{
    const auto base = QColor(QLatin1String(curveColours[place % std::size(curveColours)]));
    const bool isDark = palette().color(QPalette::Base).lightnessF() < 0.5;
    return isDark ? base.lighter(140) : base;
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
