// SPDX-License-Identifier: MIT
#include <common_Contrast.h>

#include <QtTest>

class tst_common_Contrast : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ratioIsThatOfTheGuidelines_data()
    {
        QTest::addColumn<QColor>("one");
        QTest::addColumn<QColor>("other");
        QTest::addColumn<double>("ratio");
        // clang-format off
        QTest::newRow("black and white")  << QColor(Qt::black)   << QColor(Qt::white)   << 21.0;
        QTest::newRow("the same")         << QColor(10, 20, 30)  << QColor(10, 20, 30)  << 1.0;
        QTest::newRow("red on white")     << QColor(255, 0, 0)   << QColor(Qt::white)   << 3.998;
        QTest::newRow("blue on white")    << QColor(0, 0, 255)   << QColor(Qt::white)   << 8.592;
        QTest::newRow("just enough grey") << QColor(118, 118, 118) << QColor(Qt::white)   << 4.542;
        // clang-format on
    }

    void ratioIsThatOfTheGuidelines()
    {
        QFETCH(QColor, one);
        QFETCH(QColor, other);
        QFETCH(double, ratio);
        QVERIFY(qAbs(common_Contrast::ratio(one, other) - ratio) < 0.001);
        QCOMPARE(common_Contrast::ratio(other, one), common_Contrast::ratio(one, other));
    }

    void everyColourBecomesReadableOnEveryBase()
    {
        const QVector<QColor> colours = {Qt::red,   Qt::blue,  QColor(255, 165, 0),
                                         Qt::black, Qt::white, QColor(128, 128, 128)};
        for (int grey = 0; grey < 256; ++grey) {
            const QColor base(grey, grey, grey);
            for (const QColor& colour : colours) {
                const QColor shade = common_Contrast::readable(colour, base);
                QVERIFY2(common_Contrast::ratio(shade, base) >= common_Contrast::least,
                         qPrintable(base.name() + colour.name() + shade.name()));
            }
        }
    }

    void colourThatCanBeReadStaysAsItIs()
    {
        const QColor blue(0, 0, 255, 200);
        QCOMPARE(common_Contrast::readable(blue, Qt::white), blue);
    }

    void shadeIsTheNearestOfItsColour()
    {
        const QColor base(0x23, 0x26, 0x29);
        const QColor shade = common_Contrast::readable(QColor(0, 0, 255), base);
        QCOMPARE(shade.blue(), 255);
        QCOMPARE(shade.red(), shade.green());
        QVERIFY(common_Contrast::ratio(shade, base) < common_Contrast::least + 0.3);
    }
};

QTEST_GUILESS_MAIN(tst_common_Contrast)

#include "tst_common_Contrast.moc"
