// SPDX-License-Identifier: MIT
#include "ScriptedSettings.h"

#include <QtVersion.h>
#include <common_IniText.h>

#include <QtTest>

class tst_common_IniText : public QObject, protected SettingsStage
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }

    void writtenTextBecomesEscapes_data()
    {
        QTest::addColumn<QByteArray>("written");
        QTest::addColumn<QByteArray>("escaped");
        // clang-format off
        QTest::newRow("ASCII")             << QByteArray("[g]\na=\"b\\n;\"\n") << QByteArray("[g]\na=\"b\\n;\"\n");
        QTest::newRow("Latin-1")           << QByteArray("a=\xc3\xa9z\n")      << QByteArray("a=\\xe9z\n");
        QTest::newRow("before digits")     << QByteArray("a=\xc3\xa9" "1fg1\n")   << QByteArray("a=\\xe9\\x31\\x66g1\n");
        QTest::newRow("before an escape")  << QByteArray("a=\xc3\xa9\\n1\n")   << QByteArray("a=\\xe9\\n1\n");
        QTest::newRow("other scripts")     << QByteArray("a=\xe6\xbc\xa2, \xc3\xa9\n") << QByteArray("a=\\x6f22, \\xe9\n");
        QTest::newRow("two halves")        << QByteArray("a=\xf0\x9f\x94\x92\n") << QByteArray("a=\\xd83d\\xdd12\n");
        QTest::newRow("delete character")  << QByteArray("a=\x7f" "1\n")      << QByteArray("a=\\x7f\\x31\n");
        QTest::newRow("several values")    << QByteArray("a=\xc3\xa9\n1=\"\\\"=\xc3\xa9\"\n") << QByteArray("a=\\xe9\n1=\"\\\"=\\xe9\"\n");
        // clang-format on
    }

    void writtenTextBecomesEscapes()
    {
        QFETCH(QByteArray, written);
        QFETCH(QByteArray, escaped);
        QCOMPARE(common_IniText::escaped(written), escaped);
    }

    // What is expected is what Qt 5 reads.
    void typedTextIsReadAsLatin1_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("value");
        const QString key = QStringLiteral("key");
        const QString accented = QStringLiteral("\u00e9");
        // clang-format off
        QTest::newRow("Latin-1")             << QByteArray("key=\xe9\n")               << key << accented;
        QTest::newRow("UTF-8")               << QByteArray("key=\xc3\xa9\n")           << key << QStringLiteral("\u00c3\u00a9");
        QTest::newRow("before digits")       << QByteArray("key=\xe9" "1a\n")          << key << accented + QStringLiteral("1a");
        QTest::newRow("beside an escape")    << QByteArray("key=\xe9\\xe9\xe9\n")      << key << accented + accented + accented;
        QTest::newRow("after a backslash")   << QByteArray("key=a\\\xe9" "b\n")        << key << QStringLiteral("ab");
        QTest::newRow("in a key")            << QByteArray("k\xe9y=1\n")               << QStringLiteral("k\u00e9y") << QStringLiteral("1");
        QTest::newRow("in a quoted key")     << QByteArray("\"=\"\xe9=1\n")            << QStringLiteral("\"=\"\u00e9") << QStringLiteral("1");
        QTest::newRow("in a group")          << QByteArray("[\xe9]\nkey=1\n")          << QStringLiteral("\u00e9/key") << QStringLiteral("1");
        QTest::newRow("after a comment")     << QByteArray("; \"\xe9\nkey=\xe9\n")     << key << accented;
        QTest::newRow("comment behind")      << QByteArray("a=1;\"\nkey=\xe9\n")       << key << accented;
        QTest::newRow("two lines, quoted")   << QByteArray("key=\"\n=\xe9\"\n")        << key << QStringLiteral("\n=\u00e9");
        QTest::newRow("two lines, joined")   << QByteArray("key=a\\\nb\xe9\n")         << key << QStringLiteral("ab\u00e9");
        QTest::newRow("joined, CRLF")        << QByteArray("key=a\\\r\nb\xe9\r\n")     << key << QStringLiteral("ab\u00e9");
        QTest::newRow("byte order mark")     << QByteArray("\xef\xbb\xbf[g]\nkey=\xc3\xa9\n") << QStringLiteral("g/key") << accented;
        // clang-format on
    }

    void typedTextIsReadAsLatin1()
    {
        QFETCH(QByteArray, content);
        QFETCH(QString, key);
        QFETCH(QString, value);
        QVERIFY(write(m_file, content));
        ScriptedSettings settings(m_file, QString());
        QVariant read;
        settings.onRead = [&](QSettings& open) { read = open.value(key); };
        settings.readSettings();
        QCOMPARE(read.toString(), value);
        QCOMPARE(contentOf(m_file), unixLines(content));
    }

    // Qt 5 reads as it is to be.
    void onlyWhatWouldBeReadDifferentlyIsChanged()
    {
        const QByteArray typed = "key=\xe9\n";
        QCOMPARE(common_IniText::readable(typed) == typed, !QtVersion::readsSettingsAsUtf8);
        const QByteArray plain = "key=\\xe9\n";
        QCOMPARE(common_IniText::readable(plain), plain);
    }

    void filesAreAscii()
    {
        writeText(m_file, QStringLiteral("\u00e9\u6f22 1\U0001f512"));
        QCOMPARE(contentOf(m_file), QByteArray("[texts]\ntext=\\xe9\\x6f22 1\\xd83d\\xdd12\n"));
        writeText(m_file, QStringLiteral("\u00e9") + QStringLiteral("1;"));
        QCOMPARE(contentOf(m_file), QByteArray("[texts]\ntext=\"\\xe9\\x31;\"\n"));
    }

    // It has no place in UTF-8.
    void halfACharacterDoesNotPreventSaving()
    {
        writeText(m_file, QString(QChar(0xd83d)) + QStringLiteral("rest"));
        QVERIFY(textIn(m_file).endsWith(QStringLiteral("rest")));
    }
};

QTEST_GUILESS_MAIN(tst_common_IniText)
#include "tst_common_IniText.moc"
