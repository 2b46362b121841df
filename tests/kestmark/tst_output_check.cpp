// SPDX-License-Identifier: MIT
#include "CheckedOutput.h"

#include <MarkerScan.h>

#include <MarkerPattern.h>
#include <TestRandom.h>
#include <Text.h>

#include <common_KestProcessMessage.h>

#include <QtTest>

namespace {

using Type = common_IProcessMessage::Type;

QString page(const char* name)
{
    QFile file(text(KEST_DOCS) + QLatin1Char('/') + text(name));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

// What a pattern captures in all places of a text where it fits.
QStringList captures(const QString& all, const char* pattern)
{
    QStringList result;
    const QRegularExpression expression(text(pattern), QRegularExpression::MultilineOption);
    auto matches = expression.globalMatch(all);
    while (matches.hasNext()) {
        result.append(matches.next().captured(1));
    }
    return result;
}

QByteArray lines(const QByteArray& line, int count)
{
    return QByteArray(line + '\n').repeated(count);
}

// What is said about a line.
const struct
{
    const char* line;
    const char* remarks;   // their words
    const char* part = ""; // of their texts
} lineRows[] = {
    {"Solving", ""},
    {"", ""},
    {"  \t ", ""},
    {"-*-error-*-disk full", ""},
    {"  -*-error-*- disk full", ""},
    {"-*-error-*-a: b: c", ""},
    {"-*-warning-*-WARNING 12: too fine", ""},
    {"-*-warning-*- warning 12: too fine", ""},
    {"-*-notice-*-NOTE 12: all is well", ""},
    {"-*-percentage-*-45%", ""},
    {"-*-percentage-*- 45% done", ""},
    {"-*-percentage-*-Done 45%", ""},
    {"-*-percentage-*-45", ""},
    {"-*-total-percentage-*-100%", ""},
    {"-*-file-*-a.out", ""},
    {"-*-linefeed-*-", ""},
    {"-*-error-*-disk full-*-notice-*-NOTE 1: x", ""},
    {"-*-percentage-*-45%-*-total-percentage-*-", ""},
    {"*error* **warning** -error- 2*3-1", ""},
    {"a - * - b", ""},
    {"NOTE the error above", ""},
    {"100% done", ""},
    {"\r", ""},

    {"-*-Error-*-x", "near-miss", "write -*-error-*-"},
    {"-*-ERROR-*-x", "near-miss", "write -*-error-*-"},
    {"-*- error -*-x", "near-miss", "write -*-error-*-"},
    {"- * - error - * - x", "near-miss", "write -*-error-*-"},
    {"-*-error-* x", "near-miss", "write -*-error-*-"},
    {"*-error-*- x", "near-miss", "write -*-error-*-"},
    {"*-error*- x", "near-miss", "write -*-error-*-"},
    {"-*error-* x", "near-miss", "write -*-error-*-"},
    {"* error * x", ""},
    {"-*-error: x", "near-miss", "write -*-error-*-"},
    {"error-*- x", "near-miss", "write -*-error-*-"},
    {"-*-total_percentage-*-5%", "near-miss", "write -*-total-percentage-*-"},
    {"-*-Total Percentage-*-5%", "near-miss", "write -*-total-percentage-*-"},
    {"-*-total-per-centage-*-5%", "near-miss", "write -*-total-percentage-*-"},
    {"\xe2\x80\x93*\xe2\x80\x93"
     "error\xe2\x80\x93*\xe2\x80\x93",
     "near-miss", "write -*-error-*-"},
    {"-*-a-b-c-*-", "near-miss", "at most one"},
    {"-*-error2-*-", "near-miss", "write -*-error-*-"},
    {"-*-2-*-", "near-miss", "at most one"},
    {"-*-notice-*-NOTE 1: x -*-Error-*- y", "near-miss", "write -*-error-*-"},
    {"-*-Error-*- y -*-file-*-x", "text-before-marker near-miss", "\"-*-Error-*- y\" is dropped"},

    {"-*-eror-*-x", "unknown-marker", "-*-error-*- was probably meant"},
    {"-*-totalpercentage-*-1%", "unknown-marker", "-*-total-percentage-*- was probably meant"},
    {"-*-warnings-*-x", "unknown-marker", "-*-warning-*- was probably meant"},
    {"-*-foo-*-bar", "unknown-marker", "has no meaning"},
    {"-*--*-bar", "unknown-marker", "has no meaning"},
    {"abc -*-error-*- bad value", "text-before-marker", "\"abc\" is dropped"},
    {"-*-linefeed-*-text", "text-after-linefeed", "\"text\" is dropped"},
    {"-*-file-*- ", "no-text"},
    {"-*-error-*-", "no-text"},

    {"-*-warning-*-too fine", "not-listed", "\"WARNING \" is missing"},
    {"-*-warning-*-WARNING: too fine", "not-listed", "\"WARNING \" is missing"},
    {"-*-warning-*-WARNING 12 too fine", "not-listed", "no \":\""},
    {"-*-notice-*-WARNING 12: x", "not-listed", "\"NOTE \" is missing"},
    {"-*-warning-*-WARNING : x", "not-listed", "no \":\""},
    {"-*-warning-*-WARNING 12: field 2: x", "several-colons"},
    {"-*-notice-*-NOTE 12:", "no-text", "without a description"},
    {"ERROR 12: x", "unmarked-message", "write -*-error-*-"},
    {"  NOTE 3 : x", "unmarked-message", "write -*-notice-*-"},

    {"-*-percentage-*-45.5%", "percentage-misread", "read as 5"},
    {"-*-percentage-*-45,5%", "percentage-misread", "read as 5"},
    {"-*-percentage-*-1000%", "percentage-misread", "read as 0"},
    {"-*-percentage-*-45 %", "percentage-misread", "read as 0"},
    {"-*-percentage-*--5%", "percentage-misread", "read as 5"},
    {"-*-percentage-*-45 done", "percentage-misread", "read as 0"},
    {"-*-percentage-*-", "percentage-misread", "no number is read as 0"},
    {"-*-percentage-*-half", "percentage-misread", "\"half\" is read as 0"},
    {"-*-percentage-*-101%", "out-of-range", "101 % is ignored"},
    {"-*-total-percentage-*-999%", "out-of-range"},

    {"-*-variable-*-L=1", "variable"},
    {"a\rb", "carriage-return"},
    {"10%\r20%\r", "carriage-return"},
    {"\x1b[1mbold", "control-character"},
    {"caf\xe9", "not-utf-8"},
    {"\xef\xbf\xbd", ""},
    {"[0] sock error: Error = 10058", "runtime-text"},
    {"state machine failed.", "runtime-text"},
    {"x -*-error-*-state machine failed.", "text-before-marker runtime-text no-text"},
};

} // namespace

// What kestmark says about a component's output.
class tst_output_check : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void linesGetRemarks_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<QString>("remarks");
        QTest::addColumn<QString>("part");
        for (const auto& row : lineRows) {
            QTest::newRow(row.line) << QByteArray(row.line) << text(row.remarks) << text(row.part);
        }
    }

    void linesGetRemarks()
    {
        QFETCH(QByteArray, line);
        QFETCH(QString, remarks);
        QFETCH(QString, part);
        for (const char* const end : {"\n", "\r\n"}) {
            const CheckedOutput output = CheckedOutput::of(line + end);
            QStringList found = output.pieceRemarks();
            QStringList expected = remarks.split(QLatin1Char(' '), Qt::SkipEmptyParts);
            found.sort();
            expected.sort();
            QCOMPARE(found, expected);
            if (!part.isEmpty()) {
                QStringList texts;
                for (const Remark& remark : output.pieces.constFirst().remarks) {
                    texts.append(remark.text);
                }
                QVERIFY2(texts.join(QLatin1Char('\n')).contains(part),
                         qPrintable(texts.join(u'\n')));
            }
        }
    }

    void orderGetsRemarks_data()
    {
        QTest::addColumn<QByteArray>("output");
        QTest::addColumn<QString>("remarks");
        const auto row = [](const char* name, const char* marker, const char* numbers,
                            const char* remarks) {
            QByteArray output;
            const QStringList each = words(numbers);
            for (const QString& number : each) {
                output += QStringLiteral("-*-%1-*-%2%\n").arg(text(marker), number).toUtf8();
            }
            QTest::newRow(name) << output << text(remarks);
        };
        row("forward", "percentage", "0 10 10 100", "");
        row("next phase", "percentage", "0 10 100 0 10 100", "");
        row("phase that is left early", "percentage", "0 10 0 10 100", "");
        row("phase that begins late", "percentage", "0 100 20 100", "");
        row("phase backwards", "percentage", "0 10 9", "percentage-backwards");
        row("out of range in between", "percentage", "10 200 20 5",
            "out-of-range percentage-backwards");
        row("total forward", "total-percentage", "0 0 10 100", "");
        row("total backwards", "total-percentage", "10 9 8 100",
            "percentage-backwards percentage-backwards");
        row("total from the start", "total-percentage", "100 0", "percentage-backwards");
        QTest::newRow("two in a line")
            << QByteArray("-*-total-percentage-*-9%-*-total-percentage-*-8%\n")
            << text("percentage-backwards");
        QTest::newRow("variables") << lines("-*-variable-*-a=1", 3) << text("variable");
    }

    void orderGetsRemarks()
    {
        QFETCH(QByteArray, output);
        QFETCH(QString, remarks);
        QCOMPARE(CheckedOutput::of(output).pieceRemarks().join(u' '), remarks);
    }

    void wholeGetsRemarks_data()
    {
        QTest::addColumn<QByteArray>("output");
        QTest::addColumn<QString>("remarks");
        const auto row = [](const char* output, const char* remarks) {
            QTest::newRow(output) << QByteArray(output) << text(remarks);
        };
        row("", "not-complete");
        row("Solving\n", "not-complete");
        row("-*-total-percentage-*-99%\n", "not-complete");
        row("-*-total-percentage-*-100%\n", "");
        row("-*-total-percentage-*-100%\nend", "no-line-end");
        row("-*-total-percentage-*-100%", "no-line-end not-complete");
        row("-*-error-*-no licence\n", "");
        row("-*-error-*-no licence", "no-line-end not-complete");
    }

    void wholeGetsRemarks()
    {
        QFETCH(QByteArray, output);
        QFETCH(QString, remarks);
        QCOMPARE(CheckedOutput::of(output).otherRemarks().join(u' '), remarks);
    }

    void isCounted()
    {
        const CheckedOutput output =
            CheckedOutput::of("a\n\n-*-error-*-x-*-linefeed-*-\n-*-total-percentage-*-7%\nrest");
        QCOMPARE(output.summary.lines, qint64(4));
        QCOMPARE(output.summary.blankLines, qint64(1));
        QCOMPARE(output.summary.messages[Type::Output], qint64(1));
        QCOMPARE(output.summary.messages[Type::Error], qint64(1));
        QCOMPARE(output.summary.messages[Type::LineFeed], qint64(1));
        QCOMPARE(output.summary.totalPercentage, 7);
        QCOMPARE(output.summary.remarks, qint64(1));
        QCOMPARE(output.pieces[3].line, qint64(4));
    }

    void repeatedTextIsMarked()
    {
        const CheckedOutput output =
            CheckedOutput::of("-*-file-*--*-error-*-full-*-linefeed-*--*-warning-*-\n");
        QVector<bool> repeated;
        for (const CheckedMessage& message : output.pieces.constFirst().messages) {
            repeated.append(message.isRepeated);
        }
        QCOMPARE(repeated, (QVector<bool>{false, false, false, true}));
    }

    void longLinesAreCut()
    {
        const QByteArray cutMarker = QByteArray(1020, 'x') + "-*-error-*-lost";
        const CheckedOutput output = CheckedOutput::of(cutMarker + '\n');
        QCOMPARE(output.pieceRemarks(), words("long-line near-miss cut-marker"));
        QCOMPARE(output.pieces.size(), 2);
        QCOMPARE(output.pieces[1].number, qint64(2));
        QCOMPARE(output.summary.lines, qint64(1));

        const QByteArray cutCharacter = QByteArray(1022, 'x') + "\xc3\xa9";
        QCOMPARE(CheckedOutput::of(cutCharacter + '\n').pieceRemarks(),
                 words("long-line cut-character"));
        const QByteArray wrongAtTheCut = QByteArray(1022, 'x') + "\xe9" + "abc";
        QVERIFY(!CheckedOutput::of(wrongAtTheCut + '\n').pieceRemarks().isEmpty());
        QCOMPARE(CheckedOutput::of(QByteArray(1022, 'x') + '\n').pieceRemarks(), QStringList());
        QCOMPARE(CheckedOutput::of(QByteArray(1023, 'x') + '\n').pieceRemarks(),
                 words("long-line"));
    }

    // Of a line that never ends, nothing counts, however long it is.
    void endlessLineCountsForNothing()
    {
        const QByteArray start = lines("-*-total-percentage-*-5%", 1);
        const QByteArray endless = QByteArray("-*-total-percentage-*-100%").repeated(200000);
        const CheckedOutput output = CheckedOutput::of(start + endless, 1 << 16);
        QCOMPARE(output.otherRemarks(), words("no-line-end not-complete"));
        QCOMPARE(output.summary.messages[Type::TotalPercentage], qint64(1));
        QCOMPARE(output.summary.totalPercentage, 5);
        QCOMPARE(output.summary.remarks, qint64(2));
    }

    void sizeOfWhatIsReadPlaysNoPart_data()
    {
        QTest::addColumn<int>("size");
        for (const int size : {1, 2, 7, 1022, 1023, 1024, 65536}) {
            QTest::addRow("%d", size) << size;
        }
    }

    void sizeOfWhatIsReadPlaysNoPart()
    {
        QFETCH(int, size);
        QByteArray all;
        for (const int length : {0, 1, 1021, 1022, 1023, 1024, 2045, 2046, 2047, 5000}) {
            all += "-*-error-*-" + QByteArray(length, 'a') + '\n';
        }
        const CheckedOutput whole = CheckedOutput::of(all + "rest");
        const CheckedOutput parts = CheckedOutput::of(all + "rest", size);
        QCOMPARE(parts.pieces.size(), whole.pieces.size());
        QCOMPARE(parts.summary.messages, whole.summary.messages);
        QCOMPARE(parts.pieceRemarks(), whole.pieceRemarks());
        for (int i = 0; i < whole.pieces.size(); ++i) {
            QCOMPARE(parts.pieces[i].messages.size(), whole.pieces[i].messages.size());
            QCOMPARE(parts.pieces[i].number, whole.pieces[i].number);
        }
    }

    // The markers of kestmark are those of the library, in any text.
    void findsTheLibrarysMarkers()
    {
        QRandomGenerator random = TestRandom::usual(20261122);
        const QStringList parts = {text("-"),     text("*"),           text("-*-"),
                                   text("error"), text("file"),        text("a"),
                                   text("Z"),     text(" "),           text("total-percentage"),
                                   text("5%"),    text("-*-notice-*-")};
        for (int round = 0; round < 20000; ++round) {
            QString line;
            for (int count = random.bounded(1, 14); count > 0; --count) {
                line += parts[random.bounded(parts.size())];
            }
            const auto messages = common_KestProcessMessage::parseOutput(line);
            const auto markers = MarkerScan::markers(line);
            const bool isText = markers.isEmpty();
            QVERIFY2(line.trimmed().isEmpty() || messages.size() == (isText ? 1 : markers.size()),
                     qPrintable(line));
            for (int i = 0; i < markers.size(); ++i) {
                const auto expected = MarkerPattern::message(markers[i].text, text("x"));
                QVERIFY2(messages[i].getType() == expected.first, qPrintable(line));
                QVERIFY2(MarkerScan::isKnown(markers[i].text) ||
                             expected.first == common_IProcessMessage::Output,
                         qPrintable(line));
            }
            CheckedOutput::of(line.toUtf8() + '\n'); // whatever the text is, there is an answer
        }
    }

    void eachKindHasAWord()
    {
        const QVector<Remark::Kind> kinds = Remark::kinds();
        QCOMPARE(kinds.size(), static_cast<int>(Remark::Kind::Variable) + 1);
        QStringList found;
        for (const Remark::Kind kind : kinds) {
            QVERIFY(!Remark::word(kind).isEmpty());
            found.append(Remark::word(kind));
        }
        QCOMPARE(QSet<QString>(found.begin(), found.end()).size(), kinds.size());
        QCOMPARE(captures(page("help/kestmark.md"), "^\\| `([a-z0-9-]+)` \\|"), found);
    }

    // The protocol's page has the markers and the numbers that the parser has.
    void pageIsTheProtocol()
    {
        const QString protocol = page("marker-protocol.md");
        const QStringList markers = captures(protocol, R"(^\| `(-\*-[a-z-]+-\*-)` \| `)");
        QCOMPARE(markers.size(), static_cast<int>(Type::Variable));
        for (const QString& marker : markers) {
            QVERIFY2(MarkerScan::isKnown(marker), qPrintable(marker));
        }
        const QRegularExpression row(text(R"(^\| (`-\*-percentage.*`) \| ([0-9]+))"),
                                     QRegularExpression::MultilineOption);
        auto rows = row.globalMatch(protocol);
        int examples = 0;
        while (rows.hasNext()) {
            const QRegularExpressionMatch match = rows.next();
            const QStringList shown = captures(match.captured(1), "`([^`]+)`");
            for (const QString& line : shown) {
                const auto messages = common_KestProcessMessage::parseOutput(line);
                QCOMPARE(messages.size(), 1);
                QCOMPARE(messages.constFirst().getText(), match.captured(2));
                ++examples;
            }
        }
        QCOMPARE(examples, 10);
    }
};

QTEST_GUILESS_MAIN(tst_output_check)
#include "tst_output_check.moc"
