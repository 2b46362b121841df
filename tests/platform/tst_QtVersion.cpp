// SPDX-License-Identifier: MIT
#include <QtVersion.h>

#include <QFont>
#include <QTextStream>
#include <QtTest>

/// What differs between the versions of Qt.
class tst_QtVersion : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void weightsAreTheSame_data()
    {
        QTest::addColumn<int>("weight");
        QTest::addColumn<QFont::Weight>("named");
        QTest::newRow("light") << 25 << QFont::Light;
        QTest::newRow("normal") << 50 << QFont::Normal;
        QTest::newRow("demi-bold") << 63 << QFont::DemiBold;
        QTest::newRow("bold") << 75 << QFont::Bold;
        QTest::newRow("black") << 87 << QFont::Black;
    }

    void weightsAreTheSame()
    {
        QFETCH(int, weight);
        QFETCH(QFont::Weight, named);
        QCOMPARE(QtVersion::fontWeight(weight), static_cast<int>(named));
    }

    // The weight of the output views.
    void aWeightBelowAllNamesIsThin()
    {
        const QFont font(QStringLiteral("Courier"), 9, QtVersion::fontWeight(2), false);
        QVERIFY(font.weight() >= QFont::Thin);
        QVERIFY(font.weight() < QFont::ExtraLight);
    }

    void streamsAreUtf8()
    {
        QByteArray bytes;
        QTextStream stream(&bytes);
        QtVersion::setUtf8(stream);
        stream << QStringLiteral("\u00e9\u6f22");
        stream.flush();
        QCOMPARE(bytes, QByteArray("\xc3\xa9\xe6\xbc\xa2"));
    }
};

QTEST_APPLESS_MAIN(tst_QtVersion)
#include "tst_QtVersion.moc"
