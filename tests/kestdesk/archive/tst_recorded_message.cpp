// SPDX-License-Identifier: MIT
#include <RecordedMessage.h>

#include <QSet>
#include <QtTest>

class tst_recorded_message : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyTypeHasAWordOfItsOwn()
    {
        QSet<QString> words;
        for (int type = 0; type <= common_IProcessMessage::Variable; ++type) {
            words.insert(RecordedMessage::word(static_cast<RecordedMessage::Type>(type)));
        }
        QCOMPARE(words.size(), common_IProcessMessage::Variable + 1);
    }

    void lineComesBackAsItWas_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("plain") << QStringLiteral("three words here");
        QTest::newRow("empty") << QString();
        QTest::newRow("quotes") << QStringLiteral("\"}\\ {\"type\":\"error\"}");
        QTest::newRow("line feeds") << QStringLiteral("a\nb\r\nc");
        QTest::newRow("NUL") << QString::fromUtf8("a\0b", 3);
        QTest::newRow("controls") << QStringLiteral("\x1b[31m\t\x7f");
        QTest::newRow("line separator") << QStringLiteral("a\u2028b");
        QTest::newRow("beyond the first plane") << QString::fromUtf8("\xf0\x9f\x93\xa1");
        QTest::newRow("long") << QString(1000000, QLatin1Char('x'));
    }

    void lineComesBackAsItWas()
    {
        QFETCH(QString, text);
        for (int type = 0; type <= common_IProcessMessage::Variable; ++type) {
            const RecordedMessage message{Q_INT64_C(123456789012),
                                          static_cast<RecordedMessage::Type>(type), text};
            QByteArray line = message.toLine();
            QCOMPARE(line.count('\n'), 1);
            QVERIFY(line.endsWith('\n'));
            line.chop(1);
            const auto read = RecordedMessage::parse(line);
            QVERIFY(read);
            QCOMPARE(read->time, message.time);
            QCOMPARE(read->type, message.type);
            QCOMPARE(read->text, text);
        }
    }

    void whatIsNoMessageIsRefused_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("torn") << QByteArray(R"({"text":"three words"})").chopped(8);
        QTest::newRow("zeros of a power cut") << QByteArray(40, '\0');
        QTest::newRow("array") << QByteArray("[1]");
        QTest::newRow("no type") << QByteArray(R"({"text":"a","time":1})");
        QTest::newRow("unknown type") << QByteArray(R"({"text":"a","time":1,"type":"shout"})");
    }

    void whatIsNoMessageIsRefused()
    {
        QFETCH(QByteArray, line);
        QVERIFY(!RecordedMessage::parse(line));
    }
};

QTEST_GUILESS_MAIN(tst_recorded_message)

#include "tst_recorded_message.moc"
