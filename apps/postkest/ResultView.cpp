#include "ResultView.h"

#include <QKeyEvent>
#include <QLabel>
#include <QVBoxLayout>

#include <algorithm>

namespace {

const QString nothingPointed =
    QStringLiteral("Point at a chart, or use the arrow keys, to read values.");

FrequencyWindow windowOf(const QVector<Result>& results)
{
    if (results.isEmpty()) {
        return {};
    }
    FrequencyWindow window = {qInf(), -qInf()};
    for (const Result& result : results) {
        window.lowest = std::min(window.lowest, result.points.first().frequency);
        window.highest = std::max(window.highest, result.points.last().frequency);
    }
    if (window.lowest == window.highest) {
        window.lowest -= 1;
        window.highest += 1;
    }
    return window;
}

QString number(const Result& result, double frequency, Quantity quantity, int decimals)
{
    const std::optional<double> value = result.valueAt(frequency, quantity);
    return value ? QString::number(*value, 'f', decimals) : QStringLiteral("-");
}

} // namespace

ResultView::ResultView(QWidget* parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("resultView"));
    setFocusPolicy(Qt::StrongFocus);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    m_chartArea = new QWidget(this);
    m_chartArea->setBackgroundRole(QPalette::Base);
    m_chartArea->setAutoFillBackground(true);
    layout->addWidget(m_chartArea, 1);
    auto* charts = new QVBoxLayout(m_chartArea);
    charts->setContentsMargins(0, 0, 0, 0);
    charts->setSpacing(0);
    for (int i = 0; i < quantityCount; ++i) {
        auto* chart = new QuantityChart(static_cast<Quantity>(i), m_chartArea);
        connect(chart, &QuantityChart::pointed, this, &ResultView::point);
        charts->addWidget(chart, 1);
        m_charts.append(chart);
    }
    m_charts.last()->setFrequencyTitle(true);
    m_readout = new QLabel(nothingPointed, this);
    m_readout->setObjectName(QStringLiteral("readout"));
    m_readout->setTextFormat(Qt::RichText);
    m_readout->setMargin(4);
    layout->addWidget(m_readout);
}

void ResultView::setResults(const QVector<Result>& results)
{
    m_results.clear();
    std::copy_if(results.begin(), results.end(), std::back_inserter(m_results),
                 [](const Result& result) { return result.error.isEmpty(); });
    m_window = windowOf(m_results);
    for (QuantityChart* chart : qAsConst(m_charts)) {
        chart->show(m_results, m_window);
    }
    point(m_pointed);
}

QString ResultView::readout(double frequency) const
{
    QString text = QStringLiteral("<table><tr><td><b>%1 MHz</b></td></tr>")
                       .arg(QString::number(frequency, 'f', 3));
    for (int place = 0; place < m_results.size(); ++place) {
        const Result& result = m_results.at(place);
        const QString cells = QStringLiteral("<td>%1 + j %2 \u03a9&nbsp;&nbsp;</td><td>SWR %3</td>")
                                  .arg(number(result, frequency, Quantity::Resistance, 2),
                                       number(result, frequency, Quantity::Reactance, 2),
                                       number(result, frequency, Quantity::StandingWaveRatio, 3));
        text += QStringLiteral("<tr><td><font color=\"") + colour(place).name() +
                QStringLiteral("\">") + result.name().toHtmlEscaped() +
                QStringLiteral("</font>&nbsp;&nbsp;</td>") + cells + QStringLiteral("</tr>");
    }
    return text + QStringLiteral("</table>");
}

void ResultView::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Left:
        step(-1);
        break;
    case Qt::Key_Right:
        step(1);
        break;
    case Qt::Key_Escape:
        point(std::nullopt);
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

void ResultView::point(std::optional<double> frequency)
{
    m_pointed = frequency;
    for (QuantityChart* chart : qAsConst(m_charts)) {
        chart->mark(frequency);
    }
    m_readout->setText(frequency && !m_results.isEmpty() ? readout(*frequency) : nothingPointed);
}

// To the next frequency of the first result.
void ResultView::step(int direction)
{
    if (m_results.isEmpty()) {
        return;
    }
    const QVector<ResultPoint>& points = m_results.first().points;
    if (!m_pointed) {
        point(direction > 0 ? points.first().frequency : points.last().frequency);
        return;
    }
    const auto isBeyond = [&](const ResultPoint& candidate) {
        return direction > 0 ? candidate.frequency > *m_pointed : candidate.frequency < *m_pointed;
    };
    if (direction > 0) {
        const auto found = std::find_if(points.begin(), points.end(), isBeyond);
        point(found == points.end() ? points.last().frequency : found->frequency);
    } else {
        const auto found = std::find_if(points.rbegin(), points.rend(), isBeyond);
        point(found == points.rend() ? points.first().frequency : found->frequency);
    }
}
