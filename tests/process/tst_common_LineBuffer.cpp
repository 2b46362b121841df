// SPDX-License-Identifier: MIT
#include <common_LineBuffer.h>

#include <QBuffer>
#include <QtTest>

namespace {

void feed(common_LineBuffer& lines, const QByteArray& bytes)
{
    QBuffer device;
    device.setData(bytes);
    device.open(QIODevice::ReadOnly);
    lines.readFrom(device);
}

QStringList taken(common_LineBuffer& lines)
{
    QStringList pieces;
    while (lines.hasLine()) {
        pieces.append(lines.takePiece());
    }
    return pieces;
}

QString line(const char* text)
{
    return QString::fromLatin1(text);
}

QVector<int> lengths(const QStringList& pieces)
{
    QVector<int> result;
    for (const QString& piece : pieces) {
        result.append(piece.size());
    }
    return result;
}

} // namespace

class tst_common_LineBuffer : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void givesWholeLinesWithTheirEnds()
    {
        common_LineBuffer lines;
        feed(lines, "a\n\nb\r\nc");
        QCOMPARE(taken(lines), QStringList({line("a\n"), line("\n"), line("b\r\n")}));
    }

    void keepsTheBeginningOfALine()
    {
        common_LineBuffer lines;
        feed(lines, "a\nbc");
        QCOMPARE(taken(lines), QStringList(line("a\n")));
        feed(lines, "d");
        QVERIFY(!lines.hasLine());
        feed(lines, "e\nf");
        QCOMPARE(taken(lines), QStringList(line("bcde\n")));
        lines.clear();
        feed(lines, "g\n");
        QCOMPARE(taken(lines), QStringList(line("g\n")));
    }

    void cutsLongLines_data()
    {
        QTest::addColumn<int>("bytes"); // line end not counted
        QTest::addColumn<QVector<int>>("pieces");
        QTest::newRow("1021") << 1021 << QVector<int>{1022};
        QTest::newRow("1022") << 1022 << QVector<int>{1023};
        QTest::newRow("1023") << 1023 << QVector<int>{1023, 1};
        QTest::newRow("1024") << 1024 << QVector<int>{1023, 2};
        QTest::newRow("2045") << 2045 << QVector<int>{1023, 1023};
        QTest::newRow("2046") << 2046 << QVector<int>{1023, 1023, 1};
        QTest::newRow("3000") << 3000 << QVector<int>{1023, 1023, 955};
    }

    void cutsLongLines()
    {
        QFETCH(int, bytes);
        QFETCH(QVector<int>, pieces);
        common_LineBuffer lines;
        feed(lines, QByteArray(bytes, 'x'));
        QVERIFY(!lines.hasLine());
        feed(lines, "\nnext\n");
        QCOMPARE(lengths(taken(lines)), pieces + QVector<int>{5});
    }

    void moreMayArriveBetweenThePiecesOfALine()
    {
        common_LineBuffer lines;
        feed(lines, QByteArray(5000, 'x') + "\na\nb");
        QStringList pieces;
        for (int i = 0; i < 4; ++i) {
            QVERIFY(lines.hasLine());
            pieces.append(lines.takePiece());
            feed(lines, "c");
        }
        QCOMPARE(lengths(pieces), QVector<int>({1023, 1023, 1023, 1023}));
        feed(lines, "\n");
        QCOMPARE(lengths(taken(lines)), QVector<int>({909, 2, 6}));
    }

    void decodesUtf8AndKeepsZeros()
    {
        common_LineBuffer lines;
        feed(lines, QByteArray("\xc3\xa9\0x\n\xff\n", 7));
        QVERIFY(lines.hasLine());
        QCOMPARE(lines.takePiece(), QString(QStringLiteral("\u00e9\0x\n")));
        QVERIFY(lines.hasLine());
        QCOMPARE(lines.takePiece(), QString(QChar::ReplacementCharacter) + QStringLiteral("\n"));
    }

    void characterCutBetweenPiecesBecomesReplacements()
    {
        common_LineBuffer lines;
        feed(lines, QByteArray(1022, 'x') + "\xc3\xa9y\n");
        const QStringList pieces = taken(lines);
        QCOMPARE(pieces.size(), 2);
        QVERIFY(pieces[0].endsWith(QChar::ReplacementCharacter));
        QCOMPARE(pieces[1], QString(QChar::ReplacementCharacter) + QStringLiteral("y\n"));
    }

    // Were every piece a new search, 100,000 of them through 100 MB would outlast the time limit.
    void takesALineOf100MegabytesInOneGo()
    {
        common_LineBuffer lines;
        const QByteArray part(1 << 16, 'x');
        for (int i = 0; i < 1600; ++i) {
            feed(lines, part);
            QVERIFY(!lines.hasLine());
        }
        feed(lines, "\n");
        qint64 length = 0;
        int pieces = 0;
        while (lines.hasLine()) {
            length += lines.takePiece().size();
            ++pieces;
        }
        QCOMPARE(length, qint64(1600) * (1 << 16) + 1);
        QCOMPARE(pieces, 102501);
    }
};

QTEST_GUILESS_MAIN(tst_common_LineBuffer)
#include "tst_common_LineBuffer.moc"
