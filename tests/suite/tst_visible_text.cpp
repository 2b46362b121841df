// SPDX-License-Identifier: MIT
#include "VisibleText.h"

#include "FileName.h"

#include <Text.h>

#include <QtTest>

using suite::visibleText;

// What steers a line is seen instead.
class tst_visible_text : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ordinaryTextStays_data()
    {
        QTest::addColumn<QString>("ordinary");
        QTest::newRow("nothing") << QString();
        QTest::newRow("letters") << text("a model.nec");
        QTest::newRow("other scripts") << text("Modèle, Модель, 模型, نموذج, דגם");
        QTest::newRow("beyond sixteen bits") << text("\U0001f600\U00020000");
        QTest::newRow("joined emoji") << text("\U0001f469\u200d\U0001f52c");
        QTest::newRow("joiners of Persian") << text("می\u200cخواهم");
        QTest::newRow("accent of its own") << text("e\u0301");
        QTest::newRow("tab") << text("a\tb");
        QTest::newRow("markup") << text("<b>&amp;</b>");
        QTest::newRow("replaced before") << text("a\ufffdb");
    }

    void ordinaryTextStays()
    {
        QFETCH(QString, ordinary);
        QCOMPARE(visibleText(ordinary), ordinary);
    }

    void charactersThatTurnTheLineAreSeen_data()
    {
        QTest::addColumn<int>("code");
        for (const int code :
             {0x200e, 0x200f, 0x061c, 0x202a, 0x202b, 0x202c, 0x202d, 0x202e, 0x2066, 0x2067,
              0x2068, 0x2069, 0x2028, 0x2029, 0x200b, 0xfeff, 0x00ad, 0xe0041}) {
            QTest::addRow("U+%04X", static_cast<unsigned>(code)) << code;
        }
    }

    void charactersThatTurnTheLineAreSeen()
    {
        QFETCH(int, code);
        const auto wide = static_cast<uint>(code);
        const QString hidden =
            QChar::requiresSurrogates(wide)
                ? QString(QChar(QChar::highSurrogate(wide))) + QChar(QChar::lowSurrogate(wide))
                : QString(QChar(static_cast<ushort>(wide)));
        const QString seen =
            text("<U+%1>").arg(QString::number(code, 16).toUpper(), 4, QLatin1Char('0'));
        QCOMPARE(visibleText(text("a") + hidden + text("b")), text("a") + seen + text("b"));
        QCOMPARE(visibleText(hidden), seen);
    }

    void controlCharactersAreReplaced()
    {
        for (int code = 0; code < 0xa0; ++code) {
            const QString one(QChar{static_cast<ushort>(code)});
            const bool isControl = (code < 0x20 && code != '\t') || code >= 0x7f;
            QCOMPARE(visibleText(one),
                     isControl ? QString(QChar(QChar::ReplacementCharacter)) : one);
        }
    }

    void brokenPairsAreReplaced()
    {
        const QChar high(0xd83d);
        const QChar low(0xde00);
        const QString seen(QChar::ReplacementCharacter);
        QCOMPARE(visibleText(QString(high)), seen);
        QCOMPARE(visibleText(high + text("a")), seen + text("a"));
        QCOMPARE(visibleText(QString(low)), seen);
        QCOMPARE(visibleText(QString(low) + high), seen + seen);
    }

    void bytesThatAreNoTextAreSeen()
    {
#ifdef Q_OS_WIN
        QSKIP("on Windows, all names are text");
#endif
        QCOMPARE(visibleText(suite::FileName::fromNative("caf\xe9\xff.nec")),
                 text("caf\\xE9\\xFF.nec"));
    }

    void linesStayApart()
    {
        QCOMPARE(suite::visibleLines(text("a\nb\u202e\n\nc\r\n")),
                 text("a\nb<U+202E>\n\nc\ufffd\n"));
        QCOMPARE(visibleText(text("a\nb")), text("a\ufffdb"));
    }

    void namesOfFilesLoseTheirFolder()
    {
        QCOMPARE(suite::visibleFileName(text("/tmp/\u202ea/b\u202e.nec")), text("b<U+202E>.nec"));
        QCOMPARE(suite::visiblePath(text("/tmp/\u202ea")),
                 QDir::toNativeSeparators(text("/tmp/")) + text("<U+202E>a"));
    }
};

QTEST_GUILESS_MAIN(tst_visible_text)
#include "tst_visible_text.moc"
