// SPDX-License-Identifier: MIT
#include <TestRandom.h>

#include <common_LineStyle.h>
#include <common_MarkupReader.h>

#include <QElapsedTimer>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QtTest>

#include <ctime>

namespace {

using Line = common_MarkupReader::Line;

QString textOf(const Line& line)
{
    QString text;
    for (const common_FormattedText& part : line) {
        text += part.text;
    }
    return text;
}

QStringList textsOf(const QString& markup)
{
    QStringList texts;
    const QVector<Line> lines = common_MarkupReader().read(markup, {});
    for (const Line& line : lines) {
        texts << textOf(line);
    }
    return texts;
}

QVariantList shownIn(const QTextDocument& document)
{
    QVariantList shown;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        shown << block.text();
        for (auto fragment = block.begin(); !fragment.atEnd(); ++fragment) {
            shown << fragment.fragment().text() << QVariant(fragment.fragment().charFormat());
        }
    }
    return shown;
}

QVariantList shownByQt(const QString& markup)
{
    QTextDocument document;
    QTextCursor(&document).insertHtml(markup);
    return shownIn(document);
}

QVariantList shownByReader(const QVector<Line>& lines)
{
    QTextDocument document;
    QTextCursor writer(&document);
    for (int number = 0; number < lines.size(); ++number) {
        if (number > 0) {
            writer.insertBlock(QTextBlockFormat(), QTextCharFormat());
        }
        for (const common_FormattedText& part : lines[number]) {
            writer.insertText(part.text, part.format);
        }
    }
    return shownIn(document);
}

QTextCharFormat formatAt(const QString& markup, const QString& text)
{
    const QVector<Line> lines = common_MarkupReader().read(markup, {});
    for (const Line& line : lines) {
        for (const common_FormattedText& part : line) {
            if (part.text.contains(text)) {
                return part.format;
            }
        }
    }
    return {};
}

double secondsToRead(const QString& markup)
{
    const std::clock_t begin = std::clock();
    common_MarkupReader().read(markup, {});
    return static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
}

} // namespace

class tst_common_MarkupReader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsInlineFormattingAsQtDoes_data();
    void readsInlineFormattingAsQtDoes();
    void readsRandomMarkupAsQtDoes();
    void readsStyledTextAsWithinTags_data();
    void readsStyledTextAsWithinTags();
    void showsBlocksAsLines_data();
    void showsBlocksAsLines();
    void formatsCharactersInBlocks();
    void limitsWhatAnyoneMayAskFor();
    void takesTimeLinearInTheLength_data();
    void takesTimeLinearInTheLength();
};

void tst_common_MarkupReader::readsInlineFormattingAsQtDoes_data()
{
    QTest::addColumn<QString>("markup");

    for (const char* const markup : {"<b>bold</b> <i>italic</i> <u>under</u> <s>struck</s>",
                                     "<b>a<i>b</b>c</i>d",
                                     "<tt>a</tt><code>b</code><kbd>c</kbd><samp>d</samp>",
                                     "<em>a</em><strong>b</strong><cite>c</cite><var>d</var>",
                                     "<dfn>a</dfn><address>b</address>c",
                                     "<big>a</big><small>b</small>c",
                                     "x<sub>a</sub><sup>b</sup>",
                                     "<font color=red size=+2 face='A, B'>a</font>",
                                     "<font color=\"#12ab34\" size=1>a</font>b",
                                     "<span style='color:blue; font-weight:bold'>a</span>b",
                                     "<span style='font-size:12pt;font-style:italic'>a</span>",
                                     "<span style='text-decoration: underline'>a</span>b",
                                     "<span style='background-color: yellow'>a<b>b</b></span>c",
                                     "<a href='http://localhost/'>a</a>b",
                                     "<nobr>a  b c</nobr> d  e",
                                     "a<br>  b <br/>c <br> d",
                                     "&lt;b&gt; &amp; &quot;&nbsp;&eacute;&#65;&#x42;&#128;&apos;",
                                     "&; &unknown; &#; &#x; &#xzz; &toolonganame; &lt &amp",
                                     "a<!-- b -->  c<!--d--><!e>f",
                                     "a<!-- open <b>b</b>",
                                     "a<!---->b-->c",
                                     "a<!--->b-->c",
                                     "a<!-->b-->c",
                                     "a<!->b-->c",
                                     "a<!-b>c-->d",
                                     "a<!-",
                                     "a<!--",
                                     "a<!--b",
                                     "<b title='a > b'>c</b>",
                                     "<b title=\"a > b &quot;\">c</b>",
                                     "<b title='a\\'>b'>c</b>",
                                     "a&#00000000065;b",
                                     "<b x=1 y z='>' =>a</b>b",
                                     "<  b  >a</b>b",
                                     "<B>a</B><FONT COLOR=RED>b</FONT>",
                                     "<unknown>a</unknown><b>b</unknown>c</b>d",
                                     "<b/>a<i />b",
                                     "<>a</>b< >c",
                                     "<b a",
                                     "<b a='",
                                     "<b><",
                                     "a  b\tc\nd\r\ne",
                                     "\u00a0a\u2003 \u2028b\u200bc"}) {
        QTest::newRow(markup) << QString::fromUtf8(markup);
    }
}

void tst_common_MarkupReader::readsInlineFormattingAsQtDoes()
{
    QFETCH(QString, markup);
    QCOMPARE(shownByReader(common_MarkupReader().read(markup, {})), shownByQt(markup));
}

void tst_common_MarkupReader::readsRandomMarkupAsQtDoes()
{
    const QStringList pieces =
        QString::fromUtf8(
            "a|b|word| |  |\t|&|&lt;|&amp;|&eacute;|&#65;|&#x4|;|<|>|<b>|</b>|<i>|</i>|<br>|<br/>x"
            "|</font>|#|\"|'|=|/"
            "|\u00e9|\u00a0|\u2003|\u2028|\U0001f600|\ufffd|\u0001|\u007f|1|%1|\\"
            "|-|*|: |\u00ad|\u200b|<font color=#00ff00>|<font color=red>|<u>|<s>|<sub>|</sub>|<tt>"
            "|</tt>|<nobr>|</nobr>|<span style='background-color:red'>|</span>|<!--|-->|<a "
            "href='x'>"
            "|</a>")
            .split(QLatin1Char('|'));
    QRandomGenerator random = TestRandom::usual(7);
    common_MarkupReader reader;
    for (int round = 0; round < 20000; ++round) {
        QString markup = QStringLiteral("<b>");
        for (int left = random.bounded(12); left > 0; --left) {
            markup += pieces.at(random.bounded(pieces.size()));
        }
        const QVariantList shown = shownByReader(reader.read(markup, {}));
        QVERIFY2(shown == shownByQt(markup), qPrintable(markup));
    }
}

void tst_common_MarkupReader::readsStyledTextAsWithinTags_data()
{
    QTest::addColumn<QString>("text");

    for (const char* const text :
         {"", " ", "text", "  a  b ", "a</font>b", "a</b>b", "a</b></font>b", "<i>a", "a & b &lt;",
          "&lt", "a < b", "<font color=blue>a</font>b", "<!--", "<b>a</b>b", "<br>"}) {
        QTest::newRow(text) << QString::fromUtf8(text);
    }
}

void tst_common_MarkupReader::readsStyledTextAsWithinTags()
{
    QFETCH(QString, text);
    common_MarkupReader reader;
    QCOMPARE(shownByReader(reader.read(text, {Qt::red})),
             shownByQt(QStringLiteral("<font color=#ff0000>") + text + QStringLiteral("</font>")));
    QCOMPARE(shownByReader(reader.read(text, {QColor(QStringLiteral("orange")), true})),
             shownByQt(QStringLiteral("<font color=#ffa500><b>") + text +
                       QStringLiteral("</b></font>")));
}

void tst_common_MarkupReader::showsBlocksAsLines_data()
{
    QTest::addColumn<QString>("markup");
    QTest::addColumn<QStringList>("lines");

    const auto row = [](const char* markup, const QStringList& lines) {
        QTest::newRow(markup) << QString::fromUtf8(markup) << lines;
    };
    const auto texts = [](std::initializer_list<const char*> list) {
        QStringList result;
        for (const char* const text : list) {
            result << QString::fromUtf8(text);
        }
        return result;
    };
    row("<p>a</p><p>b</p>", texts({"a", "b"}));
    row("a<p>b<p>c</p> <p> d", texts({"a", "b", "c", "d"}));
    row("<p></p><p></p>", texts({""}));
    row("<p>a</p>b c  d", texts({"a", "b c d"}));
    row("<pre>  a</pre>", texts({"  a"}));
    row("<div>a</div>b<div><div>c</div></div>d", texts({"a", "b", "c", "d"}));
    row("<h1>a</h1>b", texts({"a", "b"}));
    row("<center>a</center><blockquote>b</blockquote>c", texts({"a", "b", "c"}));
    row("<pre>a  b\n c\r\n</pre>d  e", texts({"a  b", " c", "d e"}));
    row("<dl><dt>a<dd>b<dt>c</dl>d", texts({"a", "b", "c", "d"}));
    row("<ul><li>a<li>b</ul>c", texts({"\u2022 a", "\u2022 b", "c"}));
    row("<ul><li><p>a</p></li> <li></li><li>b</li></ul>",
        texts({"\u2022 a", "\u2022 ", "\u2022 b"}));
    row("<ol><li>a<ol><li>b<li>c</ol><li>d</ol>", texts({"1. a", "  1. b", "  2. c", "2. d"}));
    row("<li>a", texts({"\u2022 a"}));
    row("<table><tr><td>a</td> <td>b</td></tr>\n<tr><th>c<th>d</table>e",
        texts({"a\tb", "c\td", "e"}));
    row("<table><tr><td><p>a</p></td><td><div>b</div><div>c</div></td></tr></table>",
        texts({"a\tb", "c"}));
    row("<table><tr><td></td><td>x</td></tr></table>", texts({"\tx"}));
    row("<table><tr><td>a<table><tr><td>b<td>c</table><td>d</table>", texts({"a", "b\tc\td"}));
    row("<table><tr><td>a<table><td>b<td>c</table></table>", texts({"a", "b\tc"}));
    row("<table><caption>a</caption><thead><tr><th>b</thead><tbody><tr><td>c</table>",
        texts({"a", "b", "c"}));
    row("<td>a</td><td>b", texts({"a\tb"}));
    row("<tr><td>a<tr><td>b", texts({"a", "b"}));
    row("a<hr>b", texts({"a", "----------------------------------------", "b"}));
    row("a <img src='b.png'> c", texts({"a [b.png] c"}));
    row("<img src='b.png' alt='a picture'>", texts({"[a picture]"}));
    row("<img>", texts({"[image]"}));
    row("<img src='b.png' width=5000 height=5000>", texts({"[b.png]"}));
    row("<html><head><title>a</title><style>b</style></head><body>c</body></html>", texts({"c"}));
    row("a<script>b<p>c</p></script>d", texts({"ad"}));
    row("<body bgcolor=red background='x.png'>a", texts({"a"}));
    row("a\u2029b", texts({"a", "b"}));
    row("", texts({""}));
}

void tst_common_MarkupReader::showsBlocksAsLines()
{
    QFETCH(QString, markup);
    QFETCH(QStringList, lines);
    QCOMPARE(textsOf(markup), lines);
}

void tst_common_MarkupReader::formatsCharactersInBlocks()
{
    const QString b = QStringLiteral("b");
    QVERIFY(formatAt(QStringLiteral("<p><i>a<p>b"), b).isEmpty());
    const QString marked = QStringLiteral("<span style='background-color:red'>a%1b");
    QVERIFY(
        formatAt(marked.arg(QStringLiteral("<i>")), b).hasProperty(QTextFormat::BackgroundBrush));
    QVERIFY(
        !formatAt(marked.arg(QStringLiteral("<p>")), b).hasProperty(QTextFormat::BackgroundBrush));
    QCOMPARE(formatAt(QStringLiteral("<h1>a</h1>b"), QStringLiteral("a")).fontWeight(),
             static_cast<int>(QFont::Bold));
    QVERIFY(!formatAt(QStringLiteral("<h1>a</h1>b"), QStringLiteral("b"))
                 .hasProperty(QTextFormat::FontWeight));
    QCOMPARE(formatAt(QStringLiteral("<table><tr><th>a<td>b"), QStringLiteral("a")).fontWeight(),
             static_cast<int>(QFont::Bold));
    QVERIFY(!formatAt(QStringLiteral("<table><tr><th>a<td>b"), QStringLiteral("b"))
                 .hasProperty(QTextFormat::FontWeight));
    QCOMPARE(formatAt(QStringLiteral("<p style='color:#00ff00'>a<b>b"), QStringLiteral("b"))
                 .foreground()
                 .color(),
             QColor(Qt::green));
    QVERIFY(
        !formatAt(QStringLiteral("<td bgcolor=red style='background:red'>a"), QStringLiteral("a"))
             .hasProperty(QTextFormat::BackgroundBrush));
}

void tst_common_MarkupReader::limitsWhatAnyoneMayAskFor()
{
    const QString big = QStringLiteral("<span style='font-size:%1'>a</span>");
    const QString a = QStringLiteral("a");
    QVERIFY(formatAt(big.arg(QStringLiteral("99999999pt")), a).fontPointSize() <= 100);
    QVERIFY(formatAt(big.arg(QStringLiteral("99999999px")), a)
                .intProperty(QTextFormat::FontPixelSize) <= 100);
    QCOMPARE(formatAt(big.arg(QStringLiteral("12pt")), a).fontPointSize(), 12.0);
    QVERIFY(formatAt(QStringLiteral("<span style='letter-spacing:9999px;word-spacing:9999px;"
                                    "background-image:url(x.png)'>a</span>"),
                     a)
                .isEmpty());
}

void tst_common_MarkupReader::takesTimeLinearInTheLength_data()
{
    QTest::addColumn<QString>("piece");

    for (const char* const piece : {"<table><tr><td>",
                                    "<table>",
                                    "<td>",
                                    "<ul><li>",
                                    "<b>",
                                    "<b><i>",
                                    "<b></i>",
                                    "<p>",
                                    "<b><p></p>",
                                    "<p><b>",
                                    "<div>",
                                    "</div>",
                                    "<div></div>",
                                    "<pre>",
                                    "<font color=red>",
                                    "<font color=red></b>",
                                    "<",
                                    "<!",
                                    "<!--",
                                    "&",
                                    "&lt;",
                                    "&a",
                                    "<a b='",
                                    "<a b=\"",
                                    "'",
                                    "\"",
                                    "<x ",
                                    "<br>",
                                    "<img>",
                                    "<hr>",
                                    "<tr>",
                                    "<li>",
                                    "<style>",
                                    "<span style='color:red'>",
                                    "a ",
                                    "a",
                                    "\u2029"}) {
        QTest::newRow(piece) << QString::fromUtf8(piece);
    }
}

// Of the processor's time: eight times the text may take sixteen times as long, and a second more
// in case both are too short to be told apart.
void tst_common_MarkupReader::takesTimeLinearInTheLength()
{
    QFETCH(QString, piece);
    constexpr int length = 1 << 15;
    const double few = secondsToRead(piece.repeated(length / piece.size()));
    const double many = secondsToRead(piece.repeated(8 * length / piece.size()));
    QVERIFY2(many < 16 * few + 1, qPrintable(QStringLiteral("%1 %2").arg(few).arg(many)));
}

QTEST_MAIN(tst_common_MarkupReader)
#include "tst_common_MarkupReader.moc"
