// SPDX-License-Identifier: MIT
#include "ResultView.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QScrollArea>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

using suite::Quantity;
using suite::ResultPoint;

namespace {

constexpr double longNumber = 1e9; // is shown with its power of ten
constexpr int mostReadoutLines = 8;
constexpr double leastWindow = 1e-6; // of a frequency: a smaller one has no numbers for its labels

QString nothingPointed()
{
    return ResultView::tr("Point at a chart, or use the arrow keys, to read values.");
}

QString nothingShown()
{
    return ResultView::tr("Open results of runs (Ctrl+O), or drop them on this window.");
}

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
    if (window.highest - window.lowest < leastWindow * window.highest) {
        const double middle = window.lowest;
        window = {middle * 0.99, middle * 1.01};
    }
    return window;
}

QString number(const Result& result, double frequency, Quantity quantity, int decimals)
{
    const std::optional<double> value = result.valueAt(frequency, quantity);
    if (!value) {
        return QStringLiteral("-");
    }
    const bool isLong = std::abs(*value) >= longNumber;
    return isLong ? QString::number(*value, 'g') : QString::number(*value, 'f', decimals);
}

} // namespace

ResultView::ResultView(QWidget* parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("resultView"));
    setFocusPolicy(Qt::StrongFocus);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    makeCharts();
    makeReadout();
    layout->addWidget(m_chartArea, 1);
    layout->addWidget(m_readoutArea);
    setResults({});
}

void ResultView::makeCharts()
{
    m_chartArea = new QWidget(this);
    m_chartArea->setBackgroundRole(QPalette::Base);
    m_chartArea->setAutoFillBackground(true);
    auto* layout = new QVBoxLayout(m_chartArea);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    m_legend = new QLabel(m_chartArea);
    m_legend->setObjectName(QStringLiteral("legend"));
    m_legend->setForegroundRole(QPalette::Text);
    m_legend->setTextFormat(Qt::RichText);
    m_legend->setAlignment(Qt::AlignCenter);
    m_legend->setWordWrap(true);
    m_legend->setMargin(4);
    layout->addWidget(m_legend);
    for (int i = 0; i < suite::quantityCount; ++i) {
        auto* chart = new QuantityChart(static_cast<Quantity>(i), m_chartArea);
        connect(chart, &QuantityChart::pointed, this, &ResultView::point);
        connect(chart, &QuantityChart::laidOut, this, &ResultView::align);
        layout->addWidget(chart, 1);
        m_charts.append(chart);
    }
    m_charts.last()->setFrequencyTitle(true);
}

void ResultView::makeReadout()
{
    m_readout = new QLabel(this);
    m_readout->setObjectName(QStringLiteral("readout"));
    m_readout->setTextFormat(Qt::RichText);
    m_readout->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    m_readout->setMargin(4);
    m_readoutArea = new QScrollArea(this);
    m_readoutArea->setFrameShape(QFrame::NoFrame);
    m_readoutArea->setFocusPolicy(Qt::NoFocus);
    m_readoutArea->setWidgetResizable(true);
    m_readoutArea->setWidget(m_readout);
}

void ResultView::setResults(const QVector<Result>& results)
{
    QVector<Result> shown;
    std::copy_if(results.begin(), results.end(), std::back_inserter(shown),
                 [](const Result& result) { return result.error.isEmpty(); });
    m_results = shown;
    m_window = windowOf(m_results);
    m_legend->setText(legend());
    m_legend->setVisible(!m_results.isEmpty());
    for (QuantityChart* chart : qAsConst(m_charts)) {
        chart->show(m_results, m_window);
    }
    point(m_pointed);
    reserveReadout();
}

// Pointing at a chart must not change its height; many results are to be scrolled.
void ResultView::reserveReadout()
{
    m_readout->setText(m_results.isEmpty() ? nothingShown() : readout(0));
    const int mostHeight = mostReadoutLines * fontMetrics().lineSpacing();
    m_readoutArea->setFixedHeight(std::min(m_readout->sizeHint().height(), mostHeight));
    showReadout();
}

void ResultView::showReadout()
{
    if (m_results.isEmpty()) {
        m_readout->setText(nothingShown());
    } else {
        m_readout->setText(m_pointed ? readout(*m_pointed) : nothingPointed());
    }
}

void ResultView::layOut(const QSize& size)
{
    m_readoutArea->hide();
    resize(size);
    static_cast<void>(grab());            // sizes for all, as if they were shown
    QCoreApplication::sendPostedEvents(); // and what follows from them
}

// The labels of one chart are wider than those of another. Whole pixels are drawn at the same place
// in all charts; halves are rounded here up and there down.
void ResultView::align()
{
    constexpr double noise = 1e-6; // of adding and subtracting margins
    double room = 0;
    for (const QuantityChart* chart : qAsConst(m_charts)) {
        room = std::max(room, chart->labelRoom());
    }
    for (QuantityChart* chart : qAsConst(m_charts)) {
        chart->setLabelRoom(std::ceil(room - noise));
    }
}

QString ResultView::legend() const
{
    QString text;
    for (int place = 0; place < m_results.size(); ++place) {
        text += QStringLiteral("<font color=\"%1\">\u25a0</font>&nbsp;").arg(colour(place).name()) +
                m_results.at(place).shownName().toHtmlEscaped().replace(QLatin1Char(' '),
                                                                        QStringLiteral("&nbsp;")) +
                QStringLiteral("&nbsp;&nbsp; ");
    }
    return text;
}

QString ResultView::readout(double frequency) const
{
    QString text = QStringLiteral("<table><tr><td><b>%1 MHz</b></td></tr>")
                       .arg(QString::number(frequency, 'f', 3));
    for (int place = 0; place < m_results.size(); ++place) {
        const Result& result = m_results.at(place);
        const QString ratio =
            tr("SWR %1").arg(number(result, frequency, Quantity::StandingWaveRatio, 3));
        const QString cells = QStringLiteral("<td>%1 + j %2 \u03a9&nbsp;&nbsp;</td><td>%3</td>")
                                  .arg(number(result, frequency, Quantity::Resistance, 2),
                                       number(result, frequency, Quantity::Reactance, 2), ratio);
        text += QStringLiteral("<tr><td><font color=\"") + colour(place).name() +
                QStringLiteral("\">") + result.shownName().toHtmlEscaped() +
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

void ResultView::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        // When the charts have it, too: in colours that can be told from the new background.
        QTimer::singleShot(0, this, [this] { setResults(m_results); });
    }
}

void ResultView::point(std::optional<double> frequency)
{
    m_pointed = frequency;
    for (QuantityChart* chart : qAsConst(m_charts)) {
        chart->mark(frequency);
    }
    showReadout();
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
