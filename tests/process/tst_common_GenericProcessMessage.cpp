// SPDX-License-Identifier: MIT
#include "MessageValue.h"

#include <common_GenericProcessMessage.h>

#include <QtTest>

#include <type_traits>

namespace {

using Message = common_GenericProcessMessage;

static_assert(std::has_virtual_destructor<common_IProcessMessage>::value, "handed out by the base");
static_assert(std::is_abstract<common_IProcessMessage>::value, "only an interface");

} // namespace

class tst_common_GenericProcessMessage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void typesHaveTheirNumbers()
    {
        QCOMPARE(int(Message::Output), 0);
        QCOMPARE(int(Message::LineFeed), 1);
        QCOMPARE(int(Message::Percentage), 2);
        QCOMPARE(int(Message::TotalPercentage), 3);
        QCOMPARE(int(Message::Error), 4);
        QCOMPARE(int(Message::Warning), 5);
        QCOMPARE(int(Message::Notice), 6);
        QCOMPARE(int(Message::File), 7);
        QCOMPARE(int(Message::Variable), 8);
    }

    void isEmptyOutputByDefault() { MessageValue<Message>::isEmptyOutputByDefault(); }

    void copiesAndMovesBothFields() { MessageValue<Message>::copiesAndMovesBothFields(); }

    void givesOneMessageWithTheText_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QString>("text");
        // clang-format off
        QTest::newRow("empty")                     << ""                 << "";
        QTest::newRow("line end only")             << "\r\n"             << "";
        QTest::newRow("blanks")                    << "  \t "            << "";
        QTest::newRow("line end removed")          << "abc\r\n"          << "abc";
        QTest::newRow("trimmed, inner blanks kept") << "  a  b  "        << "a  b";
        QTest::newRow("line ends in the middle")   << "a\rb\nc\r\nd"     << "abcd";
        QTest::newRow("blank before the line end") << "a \n"             << "a";
        QTest::newRow("blanks between line ends")  << "\n a \r"          << "a";
        QTest::newRow("marker is plain text")      << "-*-error-*-x"     << "-*-error-*-x";
        QTest::newRow("markup")                    << "<b>&amp;</b>"     << "<b>&amp;</b>";
        QTest::newRow("control characters")        << "a\x01\x7f" "b"    << "a\x01\x7f" "b";
        // clang-format on
        QTest::newRow("zero inside")
            << QString(QStringLiteral("a\0b")) << QString(QStringLiteral("a\0b"));
    }

    void givesOneMessageWithTheText()
    {
        QFETCH(QString, line);
        QFETCH(QString, text);
        for (const auto type : {Message::Output, Message::Error, Message::File}) {
            const QVector<Message> messages = Message::parse(type, line);
            QCOMPARE(messages.size(), 1);
            QCOMPARE(messages[0].getText(), text);
            QCOMPARE(messages[0].getType(), type);
        }
    }

    void whatIsNotAsciiIsDecodedTwice_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QString>("text");
        const QString replacement(QChar::ReplacementCharacter);
        QTest::newRow("e acute") << QStringLiteral("caf\u00e9!")
                                 << QStringLiteral("caf") + replacement + QStringLiteral("!");
        QTest::newRow("outside Latin-1") << QStringLiteral("\u20ac5") << "?5";
        QTest::newRow("surrogate pair") << QString::fromUtf8("\xf0\x9f\x98\x80") << "??";
        QTest::newRow("replacement character") << replacement << "?";
        QTest::newRow("Latin-1 that is UTF-8 again")
            << QString::fromLatin1("\xc3\xa9") << QStringLiteral("\u00e9");
        QTest::newRow("zero after it is not the end")
            << QString(QStringLiteral("\u20ac\0b")) << QString(QStringLiteral("?\0b"));
    }

    void whatIsNotAsciiIsDecodedTwice()
    {
        QFETCH(QString, line);
        QFETCH(QString, text);
        QCOMPARE(Message::parseOutput(line).at(0).getText(), text);
    }

    void channelDecidesTheType()
    {
        QCOMPARE(Message::parseOutput(QStringLiteral("ERROR")).at(0).getType(), Message::Output);
        QCOMPARE(Message::parseError(QStringLiteral("-*-warning-*-all is well")).at(0).getType(),
                 Message::Error);
        QCOMPARE(Message::parseError(QStringLiteral(" x ")).at(0).getText(), QStringLiteral("x"));
    }
};

QTEST_GUILESS_MAIN(tst_common_GenericProcessMessage)
#include "tst_common_GenericProcessMessage.moc"
