// SPDX-License-Identifier: MIT
#include "Export.h"
#include "ResultView.h"
#include "ResultViewStage.h"

#include <common_Contrast.h>

#include <QGraphicsLineItem>
#include <QImage>
#include <QLabel>
#include <QLineSeries>
#include <QScrollArea>
#include <QSet>
#include <QSvgRenderer>
#include <QTemporaryDir>
#include <QtTest>

// The charts show the results, the pointer reads them, files keep them.
class tst_result_view : public QObject, protected ResultViewStage
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }

    void cleanup() { m_view.reset(); }

    void everyResultIsACurveInEveryChart()
    {
        m_view->setResults(twoResults());
        for (const QuantityChart* chart : qAsConst(m_charts)) {
            const auto curves = chart->chart()->series();
            QCOMPARE(curves.size(), 2);
            QCOMPARE(curves.at(0)->name(), QStringLiteral("first"));
            QCOMPARE(curves.at(1)->name(), QStringLiteral("second"));
            QVERIFY(!chart->chart()->legend()->isVisible());
        }
        const auto* reactance =
            qobject_cast<QLineSeries*>(m_charts.at(1)->chart()->series().first());
        QCOMPARE(reactance->points().toVector(),
                 (QVector<QPointF>{{100, -50}, {200, 0}, {300, 60}}));
    }

    void markStandsAtThePointedFrequencyWhateverTheSize()
    {
        m_view->setResults(twoResults());
        m_view->setFocus();
        QTest::keyClick(m_view.get(), Qt::Key_Right);
        QTest::keyClick(m_view.get(), Qt::Key_Right);
        for (const QSize& size : {QSize(800, 700), QSize(500, 600), QSize(1000, 800)}) {
            m_view->resize(size);
            QCoreApplication::processEvents();
            const QChart* chart = m_charts.first()->chart();
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

    // Labels have one, four or more characters; the same frequency is at the same place all the
    // same.
    void plotsStandExactlyBelowEachOther()
    {
        for (const QByteArray& lines :
             {QByteArray("1,1,1,1\n2,2,2,2\n"), QByteArray("100,12345678,-0.5,5\n200,70,0,1.4\n"),
              QByteArray("100,1,-98765,1.1\n1234.5,2,0,1.4\n")}) {
            m_view->setResults({makeResult(QStringLiteral("one"), lines)});
            for (const QSize& size : {QSize(800, 700), QSize(501, 603), QSize(1000, 800)}) {
                m_view->resize(size);
                QTRY_COMPARE(plotOf(1).left(), plotOf(0).left());
                QTRY_COMPARE(plotOf(2).left(), plotOf(0).left());
                QCOMPARE(plotOf(1).right(), plotOf(0).right());
                QCOMPARE(plotOf(2).right(), plotOf(0).right());
                QVERIFY(plotOf(0).left() < size.width() / 3.0);
                QVERIFY(qAbs(plotOf(0).left() - qRound(plotOf(0).left())) < 1e-3);
            }
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
        QVERIFY2(legendText().contains(QStringLiteral("third")), qPrintable(legendText()));
        QVERIFY(!legendText().contains(QStringLiteral("first")));
    }

    void legendNamesEachResultOnceInItsColour()
    {
        m_view->setResults({makeResult(QStringLiteral("gap <b>"), "1,1,1,1\n2,,,\n3,1,1,1\n"),
                            makeResult(QStringLiteral("two"), "1,1,1,1\n2,2,2,2\n")});
        const QString text = legendText();
        QCOMPARE(text.count(QStringLiteral("gap&nbsp;&lt;b&gt;")), 1);
        QVERIFY(text.indexOf(m_view->colour(0).name()) < text.indexOf(QStringLiteral("gap")));
        QVERIFY(text.indexOf(QStringLiteral("gap")) < text.indexOf(m_view->colour(1).name()));
        QVERIFY(text.indexOf(m_view->colour(1).name()) < text.indexOf(QStringLiteral("two")));
        m_view->setResults({});
        QVERIFY(!m_view->findChild<QLabel*>(QStringLiteral("legend"))->isVisible());
    }

    void chartsKeepTheirHeightWhenValuesAreRead()
    {
        m_view->setResults(twoResults());
        QCoreApplication::processEvents();
        const int before = m_view->charts().height();
        m_view->setFocus();
        QTest::keyClick(m_view.get(), Qt::Key_Right);
        QCoreApplication::processEvents();
        QCOMPARE(m_view->charts().height(), before);
        QVERIFY(m_view->findChild<QScrollArea*>()->height() >=
                m_view->findChild<QLabel*>(QStringLiteral("readout"))->sizeHint().height());
        QVector<Result> many;
        for (int i = 0; i < 60; ++i) {
            many.append(makeResult(QString::number(i), "1,1,1,1\n2,2,2,2\n"));
        }
        m_view->setResults(many);
        QCoreApplication::processEvents();
        QVERIFY(m_view->charts().height() > 400);
        QVERIFY(m_view->findChild<QScrollArea*>()->height() < 300);
    }

    void longCurveKeepsItsEndsAndPeaks()
    {
        // A dip close behind a peak, and an end that is neither.
        const QHash<int, QByteArray> odd = {
            {54321, "999"}, {54330, "1"}, {99998, "40"}, {99999, "60"}};
        QByteArray lines;
        for (int i = 1; i <= 100000; ++i) {
            lines += QByteArray::number(i) + ',' + odd.value(i, "50") + ",3,1\n";
        }
        m_view->setResults({makeResult(QStringLiteral("long"), lines)});
        const auto* curve = qobject_cast<QLineSeries*>(m_charts.first()->chart()->series().first());
        const QVector<QPointF> points = curve->points().toVector();
        QVERIFY2(points.size() <= 10000, qPrintable(QString::number(points.size())));
        QCOMPARE(points.first(), QPointF(1, 50));
        QCOMPARE(points.last(), QPointF(100000, 50));
        QVERIFY(points.contains(QPointF(54321, 999)));
        QVERIFY(points.contains(QPointF(54330, 1)));
        QVERIFY(std::is_sorted(points.begin(), points.end(),
                               [](const QPointF& a, const QPointF& b) { return a.x() < b.x(); }));
        QVERIFY(m_view->readout(54321).contains(QStringLiteral("999.00")));
        QCOMPARE(axisOf(0, Qt::Vertical)->max() >= 999, true);
    }

    void darkBackgroundHasBrighterColours()
    {
        m_view->setResults(twoResults());
        QPalette dark = m_view->palette();
        dark.setColor(QPalette::Base, QColor(20, 20, 20));
        dark.setColor(QPalette::Text, Qt::white);
        const QColor before = m_view->colour(0);
        m_view->setPalette(dark);
        QCoreApplication::processEvents();
        QVERIFY(m_view->colour(0).lightness() > before.lightness());
        QVERIFY(legendText().contains(m_view->colour(0).name()));
        const auto* curve = qobject_cast<QLineSeries*>(m_charts.first()->chart()->series().first());
        QCOMPARE(curve->pen().color(), m_view->colour(0));
        QCOMPARE(axisOf(0, Qt::Vertical)->labelsColor(), QColor(Qt::white));
        QCOMPARE(m_charts.first()->backgroundBrush().color(), QColor(20, 20, 20));
    }

    void coloursCanBeReadOnDarkAndLight()
    {
        for (const QColor& base :
             {QColor(Qt::white), QColor(20, 20, 20), QColor(0x23, 0x26, 0x29)}) {
            QPalette palette = m_view->palette();
            palette.setColor(QPalette::Base, base);
            m_view->setPalette(palette);
            QSet<QRgb> colours;
            for (int place = 0; place < 7; ++place) {
                const QColor colour = m_charts.first()->colour(place);
                colours.insert(colour.rgb());
                QVERIFY2(common_Contrast::ratio(colour, base) >= common_Contrast::least,
                         qPrintable(base.name() + colour.name()));
            }
            QCOMPARE(colours.size(), 7);
        }
    }

    void viewThatIsNotShownIsLaidOutForExport()
    {
        ResultView view;
        view.setResults({makeResult(QStringLiteral("one"), "100,12345678,-0.5,5\n200,70,0,1.4\n")});
        view.layOut({700, 600});
        QCOMPARE(view.charts().size(), QSize(700, 600));
        const auto charts = view.findChildren<QuantityChart*>();
        QVERIFY(charts.at(0)->chart()->plotArea().width() > 300);
        for (const QuantityChart* chart : charts) {
            QCOMPARE(chart->chart()->plotArea().left(), charts.at(0)->chart()->plotArea().left());
        }
        QVERIFY(!view.isVisible());
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
    QString legendText() const
    {
        return m_view->findChild<QLabel*>(QStringLiteral("legend"))->text();
    }

    QRectF plotOf(int place) const
    {
        const QuantityChart* chart = m_charts.at(place);
        return QRectF(chart->chart()->mapRectToScene(chart->chart()->plotArea()))
            .translated(chart->mapTo(m_view.get(), chart->mapFromScene(QPointF())));
    }

    QString readoutText() const
    {
        return m_view->findChild<QLabel*>(QStringLiteral("readout"))->text();
    }
};

QTEST_MAIN(tst_result_view)
#include "tst_result_view.moc"
