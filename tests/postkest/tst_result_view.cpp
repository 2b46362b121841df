#include "Export.h"
#include "ResultView.h"

#include <QGraphicsLineItem>
#include <QImage>
#include <QLabel>
#include <QLegendMarker>
#include <QLineSeries>
#include <QSignalSpy>
#include <QSvgRenderer>
#include <QTemporaryDir>
#include <QValueAxis>
#include <QtTest>

namespace {

const QByteArray header = "frequency_MHz,resistance_ohm,reactance_ohm,swr\n";

Result makeResult(const QString& name, const QByteArray& lines)
{
    Result result = Result::parsed(header + lines);
    result.path = QStringLiteral("/models/") + name + QStringLiteral(".csv");
    return result;
}

QVector<Result> twoResults()
{
    return {makeResult(QStringLiteral("first"), "100,10,-50,5\n200,70,0,1.4\n300,90,60,2\n"),
            makeResult(QStringLiteral("second"), "150,20,-20,30\n250,80,20,1.5\n")};
}

} // namespace

// The charts show the results, the pointer reads them, files keep them.
class tst_result_view : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_view = std::make_unique<ResultView>();
        m_view->resize(800, 700);
        m_view->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_view.get()));
        m_charts = m_view->findChildren<QuantityChart*>();
        QCOMPARE(m_charts.size(), quantityCount);
    }

    void cleanup() { m_view.reset(); }

    void everyResultIsACurveInEveryChart()
    {
        m_view->setResults(twoResults());
        for (const QuantityChart* chart : qAsConst(m_charts)) {
            const auto curves = chart->chart()->series();
            QCOMPARE(curves.size(), 2);
            QCOMPARE(curves.at(0)->name(), QStringLiteral("first"));
            QCOMPARE(curves.at(1)->name(), QStringLiteral("second"));
            QVERIFY(chart->chart()->legend()->isVisible());
        }
        const auto* reactance =
            qobject_cast<QtCharts::QLineSeries*>(m_charts.at(1)->chart()->series().first());
        QCOMPARE(reactance->pointsVector(), (QVector<QPointF>{{100, -50}, {200, 0}, {300, 60}}));
    }

    void allChartsHaveTheFrequenciesOfAllResults()
    {
        m_view->setResults(twoResults());
        for (const QuantityChart* chart : qAsConst(m_charts)) {
            const auto* axis =
                qobject_cast<QtCharts::QValueAxis*>(chart->chart()->axes(Qt::Horizontal).first());
            QCOMPARE(axis->min(), 100.0);
            QCOMPARE(axis->max(), 300.0);
        }
    }

    void standingWaveRatiosAboveTenAreOutOfTheChart()
    {
        m_view->setResults(twoResults());
        const auto* axis = qobject_cast<QtCharts::QValueAxis*>(
            m_charts.at(2)->chart()->axes(Qt::Vertical).first());
        QVERIFY2(axis->min() >= 0 && axis->min() <= 1, qPrintable(QString::number(axis->min())));
        QVERIFY2(axis->max() >= 10 && axis->max() < 15, qPrintable(QString::number(axis->max())));
    }

    void markStandsAtThePointedFrequencyWhateverTheSize()
    {
        m_view->setResults(twoResults());
        m_view->setFocus();
        QTest::keyClick(m_view.get(), Qt::Key_Right);
        QTest::keyClick(m_view.get(), Qt::Key_Right);
        for (const QSize& size : {QSize(800, 700), QSize(500, 600), QSize(1000, 800)}) {
            m_view->resize(size);
            QTest::qWait(50);
            const QtCharts::QChart* chart = m_charts.first()->chart();
            const auto lines = chart->childItems();
            const auto found = std::find_if(lines.begin(), lines.end(), [](const auto* item) {
                return item->type() == QGraphicsLineItem::Type;
            });
            QVERIFY(found != lines.end());
            const QLineF line = static_cast<QGraphicsLineItem*>(*found)->line();
            QVERIFY(qAbs(line.x1() - chart->plotArea().center().x()) < 1);
            QVERIFY(qAbs(line.y2() - chart->plotArea().bottom()) < 1);
        }
    }

    void curveIsInterruptedWhereNothingIsKnown()
    {
        m_view->setResults(
            {makeResult(QStringLiteral("gap"), "1,1,1,1\n2,1,1,1\n3,,,\n4,1,1,1\n5,1,1,1\n")});
        const auto curves = m_charts.first()->chart()->series();
        QCOMPARE(curves.size(), 2);
        QCOMPARE(curves.at(0)->name(), QStringLiteral("gap"));
        QCOMPARE(curves.at(1)->name(), QString());
    }

    void newResultsTakeThePlaceOfOldOnes()
    {
        m_view->setResults(twoResults());
        m_view->setResults({makeResult(QStringLiteral("third"), "1,1,1,1\n2,2,2,2\n")});
        QCOMPARE(m_charts.first()->chart()->series().size(), 1);
        QVERIFY(!m_charts.first()->chart()->legend()->isVisible());
    }

    void resultsWithErrorsAreLeftOut()
    {
        QVector<Result> results = twoResults();
        results[0].error = QStringLiteral("broken");
        results[0].points.clear();
        m_view->setResults(results);
        QCOMPARE(m_charts.first()->chart()->series().size(), 1);
    }

    void pointerReadsValues()
    {
        m_view->setResults(twoResults());
        QCoreApplication::processEvents();
        QuantityChart* chart = m_charts.first();
        const QPointF place = chart->chart()->mapToPosition(QPointF(200, 50));
        QMouseEvent move(QEvent::MouseMove, chart->mapFromScene(chart->chart()->mapToScene(place)),
                         Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(chart->viewport(), &move);
        const QString text = readoutText();
        QVERIFY2(text.contains(QStringLiteral("first")), qPrintable(text));
        const double frequency =
            text.section(QStringLiteral("<b>"), 1).section(QLatin1Char(' '), 0, 0).toDouble();
        QVERIFY2(qAbs(frequency - 200) < 1, qPrintable(text));
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(chart, &leave);
        QVERIFY(!readoutText().contains(QStringLiteral("first")));
    }

    void readoutTellsWhatIsKnown()
    {
        m_view->setResults(twoResults());
        const QString text = m_view->readout(125);
        QVERIFY2(text.contains(QStringLiteral("25.00 + j -37.50")), qPrintable(text));
        QVERIFY2(text.contains(QStringLiteral("- + j - ")), qPrintable(text));
    }

    void namesCannotBeMarkup()
    {
        m_view->setResults({makeResult(QStringLiteral("<img src=x>"), "1,1,1,1\n2,2,2,2\n")});
        QVERIFY(m_view->readout(1).contains(QStringLiteral("&lt;img src=x&gt;")));
    }

    void arrowKeysStepThroughTheFirstResult()
    {
        m_view->setResults(twoResults());
        m_view->setFocus();
        const auto shownFrequency = [this] {
            return readoutText().section(QStringLiteral("<b>"), 1).section(QLatin1Char(' '), 0, 0);
        };
        QTest::keyClick(m_view.get(), Qt::Key_Right);
        QCOMPARE(shownFrequency(), QStringLiteral("100.000"));
        QTest::keyClick(m_view.get(), Qt::Key_Right);
        QCOMPARE(shownFrequency(), QStringLiteral("200.000"));
        QTest::keyClick(m_view.get(), Qt::Key_Right);
        QTest::keyClick(m_view.get(), Qt::Key_Right);
        QCOMPARE(shownFrequency(), QStringLiteral("300.000"));
        QTest::keyClick(m_view.get(), Qt::Key_Left);
        QCOMPARE(shownFrequency(), QStringLiteral("200.000"));
        QTest::keyClick(m_view.get(), Qt::Key_Escape);
        QCOMPARE(shownFrequency(), QString());
    }

    void chartsAreExportedAsPictures()
    {
        m_view->setResults(twoResults());
        const QTemporaryDir folder;
        const QString png = folder.filePath(QStringLiteral("charts.png"));
        QCOMPARE(Export::write(png, *m_view, twoResults()), QString());
        const QImage image(png);
        QCOMPARE(image.size(), m_view->charts().size() * m_view->devicePixelRatio());
        QSet<QRgb> colours;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                colours.insert(image.pixel(x, y));
            }
        }
        QVERIFY(colours.contains(m_charts.first()->colour(0).rgb()));
        QVERIFY(colours.contains(m_charts.first()->colour(1).rgb()));

        const QString svg = folder.filePath(QStringLiteral("charts.SVG"));
        QCOMPARE(Export::write(svg, *m_view, twoResults()), QString());
        QVERIFY(QSvgRenderer(svg).isValid());
        QFile file(svg);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QVERIFY(file.readAll().contains("Resistance"));
    }

    void exportThatFailsSaysWhyAndKeepsTheOldFile()
    {
        m_view->setResults(twoResults());
        const QTemporaryDir folder;
        QVERIFY(Export::write(folder.filePath(QStringLiteral("charts.pdf")), *m_view, {})
                    .contains(QStringLiteral("neither")));
        QVERIFY(!Export::write(folder.filePath(QStringLiteral("none/charts.png")), *m_view, {})
                     .isEmpty());
        QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("taken.csv")));
        QVERIFY(
            !Export::write(folder.filePath(QStringLiteral("taken.csv")), *m_view, {}).isEmpty());
        QVERIFY(QFileInfo(folder.filePath(QStringLiteral("taken.csv"))).isDir());
    }

private:
    QString readoutText() const
    {
        return m_view->findChild<QLabel*>(QStringLiteral("readout"))->text();
    }

    std::unique_ptr<ResultView> m_view;
    QList<QuantityChart*> m_charts;
};

QTEST_MAIN(tst_result_view)
#include "tst_result_view.moc"
