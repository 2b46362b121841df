// SPDX-License-Identifier: MIT
#include "OutputViews.h"

#include <DialogStage.h>
#include <TestRandom.h>

#include <QtTest>

#include <array>

class tst_common_KestProcessOutputTabWidget_markup : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void appendsParagraphs();
    void appendsAsQTextEditDoes_data();
    void appendsAsQTextEditDoes();
    void appendsRandomLinesAsQTextEditDoes();
    void appendsALongLineInPieces();
    void beginsPlainWhereverTheCursorIs();
    void endsMarkupWithItsLine_data();
    void endsMarkupWithItsLine();
    void endsMarkupWithTheFirstLine_data();
    void endsMarkupWithTheFirstLine();
};

void tst_common_KestProcessOutputTabWidget_markup::appendsParagraphs()
{
    const DialogStage stage;
    stage.runner->output(QStringLiteral("first"));
    stage.runner->say(common_IProcessMessage::LineFeed, QStringLiteral("not shown"));
    stage.runner->output(QStringLiteral("  two  blanks\tand a tab "));
    stage.runner->say(common_IProcessMessage::File, QStringLiteral("  out  of.log \t"));
    QCOMPARE(stage.text(), QStringLiteral("first\n\n  two  blanks\tand a tab \nout  of.log"));
}

void tst_common_KestProcessOutputTabWidget_markup::appendsAsQTextEditDoes_data()
{
    QTest::addColumn<QString>("line");

    const std::array<const char*, 40> lines = {"",
                                               " ",
                                               "plain",
                                               "  leading",
                                               "trailing  ",
                                               "inner   blanks",
                                               "\ttab\ttab",
                                               "a\nb",
                                               "\n",
                                               "a\rb",
                                               "<",
                                               ">",
                                               "&",
                                               "a < b",
                                               "a <b",
                                               "a<b>c</b>",
                                               "&amp;",
                                               "a &lt; b",
                                               "&nbsp;x",
                                               "<b>bold</b>",
                                               "<b>open",
                                               "</b>",
                                               "<i><b>crossed</i></b>",
                                               "<font color=red>red</font>",
                                               "<font color=#ff0000>red</font>",
                                               "<font color=#ff00>short</font>",
                                               "<font color=#ff000g>wrong</font>",
                                               "<font color=#ff0000>a</font>b</font>",
                                               "<font color=#ff0000><b>a</font></b>",
                                               "<font color=#ff0000><b></b></font>",
                                               "<font color=#ff0000></font>",
                                               "<font color=></font>",
                                               "<br>",
                                               "a<br>b",
                                               "<pre>a  b</pre>",
                                               "<!-- comment -->",
                                               "<!-- open",
                                               "<style>p{color:red}</style>x",
                                               "<h1>x</h1>",
                                               "<a href='http://localhost/'>x</a>"};
    int number = 0;
    for (const char* const line : lines) {
        QTest::addRow("%d", number++) << QString::fromUtf8(line);
    }
    QTest::newRow("long") << QStringLiteral("word ").repeated(5000);
    QTest::newRow("two attributes") << QStringLiteral("<font color=#00ff00 size=7>x</font>");
    QTest::newRow("long colour") << QStringLiteral("<font color=#00ff001>x</font>");
    QTest::newRow("null") << QString::fromUtf8("a\0b", 3);
    for (const ushort character : {0x2029, 0xfdd0, 0xfdd1, 0xfeff, 0xfffc}) {
        QTest::addRow("character %x", static_cast<uint>(character))
            << QLatin1Char('a') + QString(QChar(character)) + QLatin1Char('b');
    }
    QTest::newRow("long without blanks") << QString(20000, QLatin1Char('x'));
}

// Also as an error, a warning and a notice, which are coloured by markup.
void tst_common_KestProcessOutputTabWidget_markup::appendsAsQTextEditDoes()
{
    QFETCH(QString, line);
    const auto check = [&line](common_IProcessMessage::Type type, const QString& expected) {
        const DialogStage stage;
        stage.runner->output(QStringLiteral("before"));
        stage.runner->say(type, line);
        QCOMPARE(appearance(stage.output()->document(), 1), plainAppearance(expected));
    };
    check(common_IProcessMessage::Output, line);
    check(common_IProcessMessage::Error, red(line));
    check(common_IProcessMessage::Warning, orange(line));
    check(common_IProcessMessage::Notice, blue(line));
}

void tst_common_KestProcessOutputTabWidget_markup::appendsRandomLinesAsQTextEditDoes()
{
    const QStringList pieces =
        QString::fromUtf8("a|b|word| |  |\t|&|&lt;|&amp;|<|>|<b>|</b>|<i>|</i>|<br>|</font>|#|;|\""
                          "|'|=|/|\u00e9|\u00a0|\u2003|\u2028|\U0001f600|\ufffd|\u0001|\u007f|1"
                          "|<font color=#00ff00>|<font color=red>|<u>|%1|\\|-|*|: |\u00ad|\u200b")
            .split(QLatin1Char('|'));
    QRandomGenerator random = TestRandom::usual(7);
    for (int round = 0; round < 30; ++round) {
        const DialogStage stage;
        QTextEdit plain;
        plain.setReadOnly(true);
        for (int number = 0; number < 100; ++number) {
            QString line;
            for (int left = random.bounded(9); left > 0; --left) {
                line += pieces.at(random.bounded(pieces.size()));
            }
            stage.runner->output(line);
            plain.append(line);
            stage.runner->error(line);
            plain.append(red(line));
            stage.runner->warning(line);
            plain.append(orange(line));
            stage.runner->notice(line);
            plain.append(blue(line));
        }
        QCOMPARE(appearance(stage.output()->document()), appearance(plain.document()));
        QCOMPARE(stage.output()->toHtml().section(QStringLiteral("<p"), 1),
                 plain.toHtml().section(QStringLiteral("<p"), 1));
    }
}

void tst_common_KestProcessOutputTabWidget_markup::appendsALongLineInPieces()
{
    const TabStage stage;
    const QString piece(1023, QLatin1Char('x'));
    QElapsedTimer timer;
    timer.start();
    for (int left = 1 << 20; left > 0; left -= piece.size()) {
        stage.runner->output(piece);
    }
    QCoreApplication::processEvents();
    QVERIFY2(timer.elapsed() < 20000, qPrintable(QString::number(timer.elapsed())));
    QCOMPARE(stage.output()->document()->blockCount(), 1026);
}

void tst_common_KestProcessOutputTabWidget_markup::beginsPlainWhereverTheCursorIs()
{
    const TabStage stage;
    stage.runner->error(QStringLiteral("red"));
    stage.runner->warning(QStringLiteral("bold"));
    stage.moveCursorTo(5);
    stage.runner->output(QStringLiteral("plain"));
    QCOMPARE(appearance(stage.output()->document(), 2), plainAppearance(QStringLiteral("plain")));
}

void tst_common_KestProcessOutputTabWidget_markup::endsMarkupWithItsLine_data()
{
    QTest::addColumn<QString>("line");

    for (const char* const line : {"<b>x",
                                   "<font color=red>x",
                                   "<font size=7>x",
                                   "<table><tr><td>x",
                                   "<ul><li>x",
                                   "<ol><li>x<ol><li>y",
                                   "<pre>x",
                                   "x<!-- y",
                                   "<!--",
                                   "<style>p{color:red}",
                                   "x<style>* {color:red} </style>",
                                   "<head>x",
                                   "<title>x",
                                   "<center>x",
                                   "<h1>x",
                                   "x<hr>",
                                   "<body bgcolor=red>x",
                                   "<html><body style='background:red'>x",
                                   "<div align=right>x",
                                   "<p align=right>x<p align=right>y",
                                   "<blockquote>x<p>y",
                                   "<p dir=rtl>x<p dir=rtl>y",
                                   "<a href='http://localhost/'>x",
                                   "<a name=x>y",
                                   "<u>x",
                                   "<p style='margin-left:50px'>x<p>y",
                                   "<script>x",
                                   "<textarea>x",
                                   "<",
                                   "<b",
                                   "<b x='",
                                   "&",
                                   "<?xml x",
                                   "<!DOCTYPE html><b>x",
                                   "<p style='page-break-after:always'>x",
                                   "<qt>x",
                                   "<dl><dd>x",
                                   "</font></b><i>x"}) {
        QTest::newRow(line) << QString::fromUtf8(line);
    }
}

void tst_common_KestProcessOutputTabWidget_markup::endsMarkupWithItsLine()
{
    QFETCH(QString, line);
    const QVariantList next = plainAppearance(QStringLiteral("next"));
    for (const auto type : {common_IProcessMessage::Output, common_IProcessMessage::Error,
                            common_IProcessMessage::Warning, common_IProcessMessage::Notice}) {
        const DialogStage stage;
        stage.runner->output(QStringLiteral("before"));
        const QVariantList before = appearance(stage.output()->document());
        const QTextFrameFormat frame = stage.output()->document()->rootFrame()->frameFormat();
        stage.runner->say(type, line);
        stage.runner->output(QStringLiteral("next"));
        const QTextDocument* const document = stage.output()->document();
        QCOMPARE(appearance(document, document->blockCount() - 1), next);
        QCOMPARE(appearance(document, 0, 0), before);
        QVERIFY(document->rootFrame()->frameFormat() == frame);

        stage.runner->error(QStringLiteral("next"));
        QCOMPARE(appearance(document, document->blockCount() - 1),
                 plainAppearance(red(QStringLiteral("next"))));
        if (type == common_IProcessMessage::Error) {
            const QTextDocument* const errors = stage.errors()->document();
            QCOMPARE(appearance(errors, errors->blockCount() - 1),
                     plainAppearance(red(QStringLiteral("next"))));
        }
    }
}

void tst_common_KestProcessOutputTabWidget_markup::endsMarkupWithTheFirstLine_data()
{
    endsMarkupWithItsLine_data();
    for (const char* const line :
         {"<p align=right></p>", "<ul><li></ul>", "<ol><li>", "<b></b>", "<h1></h1>",
          "<body bgcolor=red>", "<p style='margin-left:50px'></p>", "<center></center>", "<hr>",
          "<i>"}) {
        QTest::newRow(line) << QString::fromUtf8(line);
    }
}

// Also where it leaves nothing that could be seen.
void tst_common_KestProcessOutputTabWidget_markup::endsMarkupWithTheFirstLine()
{
    QFETCH(QString, line);
    const QString bold = QStringLiteral("<b>next</b>");
    for (const QString& next : {QStringLiteral("next"), bold}) {
        for (const auto type : {common_IProcessMessage::Output, common_IProcessMessage::Notice}) {
            const DialogStage stage;
            const QTextDocument* const document = stage.output()->document();
            const QTextFrameFormat frame = document->rootFrame()->frameFormat();
            stage.runner->say(type, line);
            stage.runner->output(next);
            QCOMPARE(appearance(document, document->blockCount() - 1), plainAppearance(next));
            QVERIFY(document->rootFrame()->frameFormat() == frame);
        }
    }
}

QTEST_MAIN(tst_common_KestProcessOutputTabWidget_markup)
#include "tst_common_KestProcessOutputTabWidget_markup.moc"
