// SPDX-License-Identifier: MIT
#include "MessageValue.h"

#include <MarkerPattern.h>
#include <SystemSkips.h>
#include <TestRandom.h>

#include <common_KestProcessMessage.h>

#include <QtTest>

namespace {

using Message = common_KestProcessMessage;
using Expected = MarkerPattern::Message;

QString described(const QVector<Expected>& messages)
{
    QStringList lines;
    for (const Expected& message : messages) {
        lines.append(QStringLiteral("%1'%2'").arg(int(message.first)).arg(message.second));
    }
    return lines.join(QLatin1Char(' '));
}

QVector<Expected> parse(const QString& line)
{
    QVector<Expected> messages;
    const QVector<Message> found = Message::parseOutput(line);
    for (const Message& message : found) {
        messages.append({message.getType(), message.getText()});
    }
    return messages;
}

QString text(const char* latin1)
{
    return QString::fromLatin1(latin1);
}

// Fragments that bring the scanner to all its corners when they are strung together.
QString randomChunk(QRandomGenerator& random)
{
    // clang-format off
    static const char* const fragments[] = {
        "-*-", "-", "*", "-*", "*-", "a", "z", "error", "A", "-*-A-*-",
        "-*-error-*-", "-*-warning-*-", "-*-notice-*-", "-*-linefeed-*-", "-*-percentage-*-",
        "-*-total-percentage-*-", "-*-file-*-", "-*-variable-*-", "-*-foo-*-", "-*-a-b-*-",
        "-*-a-b-c-*-", "-*-ERROR-*-",
        "%", "1", "45%", "1000%", "99999999999", "-7", "+8%",
        " ", "  ", "\t", "\r", "\n", "\r\n", ".",
        "state machine failed.", "sock error: Error = 10058", "unable to close the stdin context.",
        "state machine ", "failed.", "unable to post a write for the next command,",
        "\xc3\xa9", "\xd9\xa3%",
    };
    // clang-format on
    constexpr int fragmentCount = sizeof(fragments) / sizeof(*fragments);
    QString chunk;
    const int count = random.bounded(1, 12);
    for (int i = 0; i < count; ++i) {
        const int fragment = random.bounded(fragmentCount + 1);
        chunk +=
            fragment < fragmentCount ? QString::fromUtf8(fragments[fragment]) : QString(QChar(0));
    }
    return chunk;
}

struct Decoding
{
    const char* name;
    const char* line;
    const char* messages; ///< as described() writes them
};

// clang-format off
const Decoding decodings[] = {
    {"empty",                              "",                                            ""},
    {"blanks",                             "  \t \r\n",                                   ""},
    {"no marker",                          "Solving",                                     "0'Solving'"},
    {"no marker, not trimmed",             "  Solving  \n",                               "0'  Solving  '"},
    {"line ends inside",                   "a\rb\nc",                                     "0'abc'"},
    {"error, front dropped",               "abc -*-error-*- bad value",                   "4' bad value'"},
    {"warning",                            "-*-warning-*-WARNING 1: hot ",                "5'WARNING 1: hot '"},
    {"notice",                             "-*-notice-*-NOTE 2: wet",                     "6'NOTE 2: wet'"},
    {"linefeed loses its text",            "-*-linefeed-*-text",                          "1''"},
    {"file trimmed",                       "-*-file-*-  out.log  ",                       "7'out.log'"},
    {"variable trimmed",                   "-*-variable-*-\ta = 1 ",                      "8'a = 1'"},
    {"percentage",                         "-*-percentage-*- 45% done",                   "2'45'"},
    {"total percentage",                   "-*-total-percentage-*-100%",                  "3'100'"},
    {"percentage of four digits",          "-*-percentage-*-1000%",                       "2'0'"},
    {"percentage of three digits",         "-*-percentage-*-999%",                        "2'999'"},
    {"percentage, last digits",            "-*-percentage-*-12345%",                      "2'345'"},
    {"percentage without sign",            "-*-percentage-*-45",                          "2'45'"},
    {"percentage without sign, blanks",    "-*-percentage-*- 45 ",                        "2'45'"},
    {"percentage, text without sign",      "-*-percentage-*-45 of 100",                   "2'0'"},
    {"percentage alone",                   "-*-percentage-*-",                            "2'0'"},
    {"percentage, sign alone",             "-*-percentage-*-%",                           "2'0'"},
    {"percentage, blank in front of sign", "-*-percentage-*-45 %",                        "2'0'"},
    {"percentage, first sign counts",      "-*-percentage-*-7% of 50%",                   "2'7'"},
    {"percentage, leading zero",           "-*-percentage-*-007%",                        "2'7'"},
    {"percentage, fraction",               "-*-percentage-*-12.5%",                       "2'5'"},
    {"percentage, minus with sign",        "-*-percentage-*--5%",                         "2'5'"},
    {"percentage, minus",                  "-*-percentage-*--5",                          "2'-5'"},
    {"percentage beyond int",              "-*-percentage-*-99999999999",                 "2'0'"},
    {"percentage at the end of int",       "-*-percentage-*-2147483647",                  "2'2147483647'"},
    {"percentage, other script",           "-*-percentage-*-\xd9\xa3%",                   "2'0'"},
    {"carry-over at the end",              "-*-error-*-disk full-*-warning-*-",           "4'disk full' 5'disk full'"},
    {"carry-over in the middle",           "-*-error-*-a-*-warning-*--*-notice-*-b",      "4'a' 5'a' 6'b'"},
    {"carry-over over two",                "-*-error-*-a-*-warning-*--*-notice-*-",       "4'a' 5'a' 6'a'"},
    {"nothing to carry over",              "-*-error-*--*-warning-*-b",                   "4'' 5'b'"},
    {"nothing carried from linefeed",      "-*-error-*-a-*-linefeed-*-x-*-notice-*-",     "4'a' 1'' 6'a'"},
    {"carried over to a percentage",       "-*-error-*-45%-*-percentage-*-",              "4'45%' 2'45'"},
    {"body carried untrimmed",             "-*-file-*- f -*-error-*-",                    "7'f' 4' f '"},
    {"blank body is a body",               "-*-error-*-a-*-warning-*- ",                  "4'a' 5' '"},
    {"unknown marker",                     "-*-foo-*-bar",                                "0'bar'"},
    {"unknown marker with hyphen",         "-*-foo-bar-*-baz",                            "0'baz'"},
    {"two inner hyphens",                  "-*-a-b-c-*-",                                 "0'-*-a-b-c-*-'"},
    {"upper case is no marker",            "-*-Error-*-x",                                "0'-*-Error-*-x'"},
    {"digit is no marker",                 "-*-a1-*-x",                                   "0'-*-a1-*-x'"},
    {"blank is no marker",                 "-*-a b-*-x",                                  "0'-*-a b-*-x'"},
    {"empty marker",                       "-*--*-x",                                     "0'x'"},
    {"empty marker with hyphen",           "-*---*-x",                                    "0'x'"},
    {"hyphen in front",                    "-*--a-*-x",                                   "0'x'"},
    {"hyphen behind",                      "-*-a--*-x",                                   "0'x'"},
    {"fences share a hyphen",              "-*-*-",                                       "0'-*-*-'"},
    {"fence in front of a marker",         "-*-*-error-*-x",                              "4'x'"},
    {"hyphens in front of a marker",       "---*-error-*-x",                              "4'x'"},
    {"fence is used once",                 "-*-error-*-warning-*-x",                      "4'warning-*-x'"},
    {"unfinished marker",                  "-*-error-*",                                  "0'-*-error-*'"},
    {"fence only",                         "-*-",                                         "0'-*-'"},
    {"marker cut at a chunk's end",        "-*-err",                                      "0'-*-err'"},
    {"bogus error, prefix kept",           "[0] sock error: Error = 10058",               "0'[0] '"},
    {"bogus error alone",                  "state machine failed.",                       "0''"},
    {"bogus error twice",                  "state machine failed.state machine failed.",  "0''"},
    {"bogus error in a body",              "-*-error-*-x state machine failed. y",        "4'x  y'"},
    {"bogus error, wrong case",            "State machine failed.",                       "0'State machine failed.'"},
    {"marker freed of a bogus error",      "-*-errstate machine failed.or-*-x",           "4'x'"},
    {"body emptied of a bogus error",      "-*-error-*-a-*-warning-*-state machine failed.", "4'a' 5'a'"},
    {"later text brought together",        "state mastate machine failed.chine failed.",  "0'state machine failed.'"},
    {"removed in the order listed",        "state machinesock error: Error = 10058 failed.", "0''"},
    {"not out of order",                   "sock erstate machine failed.ror: Error = 10058", "0'sock error: Error = 10058'"},
};
// clang-format on

} // namespace

class tst_common_KestProcessMessage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isEmptyOutputByDefault() { MessageValue<Message>::isEmptyOutputByDefault(); }

    void copiesAndMovesBothFields() { MessageValue<Message>::copiesAndMovesBothFields(); }

    void decodes_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QString>("messages");
        for (const Decoding& each : decodings) {
            QTest::newRow(each.name)
                << QString::fromUtf8(each.line) << QString(QLatin1String(each.messages));
        }
        for (const char* each : MarkerPattern::bogusErrors) {
            QTest::newRow(each) << QStringLiteral("<%1>").arg(QLatin1String(each)) << "0'<>'";
        }
    }

    void decodes()
    {
        QFETCH(QString, line);
        QFETCH(QString, messages);
        QCOMPARE(described(parse(line)), messages);
        QCOMPARE(described(MarkerPattern::parse(line)), messages);
    }

    void standardErrorIsDecodedTheSameWay()
    {
        const QVector<Message> messages = Message::parseError(text("-*-warning-*-x"));
        QCOMPARE(messages.size(), 1);
        QCOMPARE(messages[0].getType(), Message::Warning);
        QCOMPARE(Message::parseError(text("plain")).at(0).getType(), Message::Output);
    }

    void remembersNothingFromChunkToChunk()
    {
        QCOMPARE(described(parse(text("-*-error-*-a"))), text("4'a'"));
        QCOMPARE(described(parse(text("-*-warning-*-"))), text("5''"));
        QCOMPARE(described(parse(text("-*-err"))), text("0'-*-err'"));
        QCOMPARE(described(parse(text("or-*-x"))), text("0'or-*-x'"));
    }

    void findsWhatTheRegularExpressionsFind()
    {
        QRandomGenerator random = TestRandom::usual(20260);
        // To build expressions takes many times as long under Wine.
        const int count = Wine::isHere() ? 10000 : 200000;
        int marked = 0;
        for (int i = 0; i < count; ++i) {
            const QString chunk = randomChunk(random);
            const QVector<Expected> expected = MarkerPattern::parse(chunk);
            const QVector<Expected> found = parse(chunk);
            if (found != expected) {
                QFAIL(qPrintable(QStringLiteral("'%1' gives %2 and should give %3")
                                     .arg(chunk, described(found), described(expected))));
            }
            marked += expected.size() > 1 ? 1 : 0;
        }
        QVERIFY2(marked > count / 10, "the chunks are not worth much");
    }

    void findsEveryShortMarker()
    {
        // All texts of up to nine, or seven, of the four characters that matter.
        const int longest = Wine::isHere() ? 7 : 9;
        const QString alphabet = text("-*a%");
        for (int length = 1; length <= longest; ++length) {
            for (int number = 0; number < 1 << (2 * length); ++number) {
                QString chunk;
                for (int i = 0; i < length; ++i) {
                    chunk += alphabet[(number >> (2 * i)) & 3];
                }
                if (chunk.count(QLatin1Char('*')) >= 2 &&
                    parse(chunk) != MarkerPattern::parse(chunk)) {
                    QFAIL(qPrintable(chunk));
                }
            }
        }
    }

    void needsTimeInProportionToTheLength_data()
    {
        QTest::addColumn<QString>("piece");
        QTest::newRow("fences") << "-*-";
        QTest::newRow("begun markers") << "-*-a";
        QTest::newRow("letters") << "a";
        QTest::newRow("almost markers") << "-*-a-b-c";
        QTest::newRow("markers") << "-*-error-*-x";
        QTest::newRow("bogus errors") << "state machine failed.";
    }

    // In quadratic time 16 MB would take hours, so no clock is needed: the test's time limit is
    // check enough.
    void needsTimeInProportionToTheLength()
    {
        QFETCH(QString, piece);
        for (const int size : {64 << 10, 1 << 20, 16 << 20}) {
            const QString chunk = piece.repeated(size / piece.size());
            const QVector<Message> messages = Message::parseOutput(chunk);
            QVERIFY(!messages.isEmpty());
        }
        QCOMPARE(Message::parseOutput(text("-*-error-*-x").repeated(100000)).size(), 100000);
    }
};

QTEST_GUILESS_MAIN(tst_common_KestProcessMessage)
#include "tst_common_KestProcessMessage.moc"
