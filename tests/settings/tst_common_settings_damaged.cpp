// SPDX-License-Identifier: MIT
#include "ScriptedSettings.h"
#include "UnixSettings.h"

#include <SettingsObjects.h>
#include <SpecialFile.h>
#include <Stopwatch.h>
#include <SystemSkips.h>
#include <TestRandom.h>

#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QtTest>

#include <ctime>

class tst_common_settings_damaged : public QObject, protected SettingsStage
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }

    void keepsACopyOfADamagedFile_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("text");
        const QString good = QStringLiteral("good");
        const QString none = TextSettings::defaultText();
        // clang-format off
        QTest::newRow("garbage")             << QByteArray("garbage\nand more\n") << none;
        QTest::newRow("byte order mark")     << QByteArray("\xef\xbb\xbf[texts]\ntext=good\n") << good;
        QTest::newRow("half a group")        << QByteArray("[texts]\ntext=good\n[oth") << good;
        QTest::newRow("half a key")          << QByteArray("[texts]\ntext=good\nmor") << good;
        QTest::newRow("junk between")        << QByteArray("[texts]\njunk\ntext=good\n") << good;
        QTest::newRow("nothing but NUL")     << QByteArray(4096, '\0') << none;
        QTest::newRow("NUL at the end")      << QByteArray("[texts]\ntext=good\n") + QByteArray(4096, '\0') << good;
        QTest::newRow("binary")              << QByteArray("\x7f" "ELF\2\1\1\0\0\xff\xfe\n\0\0\0\n\r\n\x80", 19) << none;
        QTest::newRow("bad variant")         << QByteArray("[texts]\nlook=@Variant(\\0\\0\\0)\ntext=good\n") << good;
        QTest::newRow("empty variant")       << QByteArray("[texts]\nlook=@Variant()\nnone=@Invalid()\ntext=good\n") << good;
        QTest::newRow("bad variant, asked")  << QByteArray("[texts]\ntext=@Variant(\\0\\0\\0)\n") << QString();
        // clang-format on
    }

    void keepsACopyOfADamagedFile()
    {
        QFETCH(QByteArray, content);
        QFETCH(QString, text);
        QVERIFY(write(m_file, content));
        const QString kept = m_file + QStringLiteral(".damaged");
        {
            const LogCatcher log;
            QCOMPARE(textIn(m_file), text);
            QCOMPARE(LogCatcher::lines().size(), 1);
            QVERIFY(LogCatcher::lines().constFirst().startsWith(QStringLiteral("warning: ")));
            QVERIFY(LogCatcher::lines().constFirst().contains(m_file));
            QVERIFY(LogCatcher::lines().constFirst().contains(kept));
            QCOMPARE(bytesOf(m_file), content);
            QCOMPARE(bytesOf(kept), content);
        }
        const LogCatcher log;
        QCOMPARE(textIn(m_file), text);
        writeText(m_file, QStringLiteral("new"));
        QCOMPARE(LogCatcher::lines(), QStringList());
        QCOMPARE(bytesOf(kept), content);
        QCOMPARE(textIn(m_file), QStringLiteral("new"));
    }

    void keepsTheValuesOfAFileWithAByteOrderMark()
    {
        const QByteArray content =
            "\xef\xbb\xbf[others]\nkey=\xc3\xa4\xe6\xbc\xa2\n[texts]\ntext=a\n";
        QVERIFY(write(m_file, content));
        const QString before = QString::fromUtf8("\xc3\xa4\xe6\xbc\xa2");
        QCOMPARE(storedValue(m_file, QStringLiteral("others/key")).toString(), before);
        writeText(m_file, QStringLiteral("new"));
        QCOMPARE(textIn(m_file), QStringLiteral("new"));
        QCOMPARE(storedValue(m_file, QStringLiteral("others/key")).toString(), before);
        QCOMPARE(bytesOf(m_file + QStringLiteral(".damaged")), content);
    }

    // QSettings would make the same key of both.
    void keepsAValueBesideAKeyThatNobodyCanAskFor()
    {
        QVERIFY(write(m_file, "[others]\nkey=good\n\\key=bad\nkey\\=bad\n"));
        writeText(m_file, QStringLiteral("new"));
        QCOMPARE(storedValue(m_file, QStringLiteral("others/key")).toString(),
                 QStringLiteral("good"));
        QCOMPARE(textIn(m_file), QStringLiteral("new"));
    }

    void keepsACopyAlsoWhenItOnlyWrites()
    {
        const QByteArray content = "[texts]\njunk\nelse=1\n";
        QVERIFY(write(m_file, content));
        const LogCatcher log;
        writeText(m_file, QStringLiteral("new"));
        QCOMPARE(LogCatcher::lines().size(), 1);
        QCOMPARE(bytesOf(m_file + QStringLiteral(".damaged")), content);
        QCOMPARE(contentOf(m_file), QByteArray("[texts]\nelse=1\ntext=new\n"));
    }

    void survivesALargeFile()
    {
        QByteArray content = "[others]\n";
        while (content.size() < common_settings::largestFile - (2 << 20)) {
            content +=
                "key" + QByteArray::number(content.size()) + '=' + QByteArray(1 << 20, 'x') + '\n';
        }
        QVERIFY(write(m_file, content + "[texts]\ntext=good\n"));
        QCOMPARE(textIn(m_file), QStringLiteral("good"));
        writeText(m_file, QStringLiteral("new"));
        QCOMPARE(textIn(m_file), QStringLiteral("new"));
        QVERIFY(QFileInfo(m_file).size() > content.size());
    }

    void survivesALargeFileOfJunk()
    {
        const QByteArray content(int(common_settings::largestFile), 'x');
        QVERIFY(write(m_file, content));
        const LogCatcher log;
        QCOMPARE(textIn(m_file), TextSettings::defaultText());
        QCOMPARE(LogCatcher::lines().size(), 1);
        QCOMPARE(QFileInfo(m_file + QStringLiteral(".damaged")).size(), qint64(content.size()));
    }

    // Whatever is in a file, it can be read and written, and what was in it is not lost.
    void writesIntoAnyNoise()
    {
        const QByteArray alphabet =
            QByteArrayLiteral("[[]]==\\/\"\";#%@(),x0gG \t\r\n\n\n\0\xff\xc3\xa4");
        const QList<QByteArray> words = {"[General]\n", "[%General]\n", "[texts]\n",  "text=",
                                         "%00",         "@Variant(",    "@Invalid()", "@ByteArray(",
                                         "\\x",         "size=",        "\\1\\x=",    "%U1234",
                                         "\xef\xbb\xbf"};
        QRandomGenerator random = TestRandom::usual(20260522);
        const int usual = Wine::isHere() ? 50 : 400; // which takes long for each
        const int files = qEnvironmentVariableIsSet("KEST_FULL_TESTS") ? 4000 : usual;
        for (int number = 0; number < files; ++number) {
            QByteArray content;
            while (content.size() < random.bounded(200)) {
                content += random.bounded(4) > 0
                               ? QByteArray(1, alphabet.at(random.bounded(alphabet.size())))
                               : words.at(random.bounded(words.size()));
            }
            QVERIFY(write(m_file, content));
            QFile::remove(m_file + QStringLiteral(".damaged"));
            const LogCatcher log;
            textIn(m_file);
            writeText(m_file, QStringLiteral("new"));
            QVERIFY2(textIn(m_file) == QStringLiteral("new"),
                     content.toPercentEncoding().constData());
            const QString kept = m_file + QStringLiteral(".damaged");
            for (const QString& line : qAsConst(LogCatcher::lines())) {
                QVERIFY2(!line.contains(QStringLiteral("was not")), qPrintable(line));
            }
            QVERIFY(!QFile::exists(kept) || bytesOf(kept) == content);
        }
    }

    // Four times the size takes about four times as long, whatever is in the file.
    void takesTimeInProportionToTheSize_data()
    {
        QTest::addColumn<QByteArray>("piece");
        // clang-format off
        QTest::newRow("letters")              << QByteArray("x");
        QTest::newRow("NUL")                  << QByteArray(1, '\0');
        QTest::newRow("line ends")            << QByteArray("\n");
        QTest::newRow("lines")                << QByteArray("x\n");
        QTest::newRow("open groups")          << QByteArray("[\n");
        QTest::newRow("open groups, CR")      << QByteArray("[g\r");
        QTest::newRow("open groups, blanks")  << QByteArray(" \t[g\r\n");
        QTest::newRow("groups")               << QByteArray("[g]\n");
        QTest::newRow("brackets")             << QByteArray("[");
        QTest::newRow("equals signs")         << QByteArray("=\n");
        QTest::newRow("backslashes")          << QByteArray("\\");
        QTest::newRow("backslashes, a key")   << QByteArray("\\a");
        QTest::newRow("lines that go on")     << QByteArray("v\\\n");
        QTest::newRow("quotes")               << QByteArray("\"");
        QTest::newRow("quoted lines")         << QByteArray("\"\n");
        QTest::newRow("percent signs")        << QByteArray("%41");
        QTest::newRow("comments")             << QByteArray(";\n");
        QTest::newRow("a list")               << QByteArray("v,");
        QTest::newRow("bad variants")         << QByteArray("k=@Variant(\\0)\n");
        // clang-format on
    }

    void takesTimeInProportionToTheSize()
    {
        QFETCH(QByteArray, piece);
        const LogCatcher log;
        const auto timeOf = [&](int size) {
            QByteArray content = "[group]\nkey=" + piece.repeated(size / piece.size());
            content += "=1\n"; // what came before may be a key
            QFile::remove(m_file + QStringLiteral(".damaged"));
            if (!write(m_file, content)) {
                return -1.0;
            }
            const std::clock_t begin = std::clock();
            textIn(m_file);
            writeText(m_file, QStringLiteral("new"));
            return double(std::clock() - begin) / CLOCKS_PER_SEC;
        };
        constexpr int size = 256 << 10;
        constexpr double shortest = 0.05; // below which other things count
        const double small = timeOf(size);
        const double large = timeOf(4 * size);
        QVERIFY(small >= 0 && large >= 0);
        QVERIFY2(
            large < 10 * qMax(small, shortest),
            qPrintable(QStringLiteral("%1 s, four times the size %2 s").arg(small).arg(large)));
        QCOMPARE(textIn(m_file), QStringLiteral("new"));
    }

    // Groups with no end are read as QSettings reads them, however many there are.
    void readsWhatIsBetweenManyOpenGroups()
    {
        const QByteArray open = QByteArray("[ope\n").repeated(1500);
        const QByteArray content = open + "[texts]\ntext=good\n" + open + "[half\nkey=1\n";
        QVERIFY(write(m_file, content));
        const LogCatcher log;
        QCOMPARE(textIn(m_file), QStringLiteral("good"));
        QCOMPARE(LogCatcher::lines().size(), 1);
        QCOMPARE(bytesOf(m_file + QStringLiteral(".damaged")), content);
        QCOMPARE(bytesOf(m_file), content);
        writeText(m_file, QStringLiteral("new"));
        QCOMPARE(LogCatcher::lines().size(), 1);
        QCOMPARE(unixSettings(contentOf(m_file)),
                 QByteArray("[half]\nkey=1\n\n[texts]\ntext=new\n"));
    }

    void neitherHangsOnNorChangesWhatIsNoFile_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<bool>("linked");
        QTest::addColumn<QString>("what");
        for (const bool linked : {false, true}) {
            const auto add = [linked](const char* what, int kind, const char* words) {
                QTest::addRow("%s%s", what, linked ? " behind a link" : "")
                    << kind << linked << QString::fromLatin1(words);
            };
            add("directory", S_IFDIR, "it is a directory");
            add("pipe", S_IFIFO, "it is a pipe");
            add("character device", S_IFCHR, "it is a device");
            add("block device", S_IFBLK, "it is a device");
            add("socket", S_IFSOCK, "it is a socket");
        }
    }

    void neitherHangsOnNorChangesWhatIsNoFile()
    {
        QFETCH(int, kind);
        QFETCH(bool, linked);
        QFETCH(QString, what);
        if (linked) {
            SKIP_WITHOUT_SYMBOLIC_LINKS();
        }
        const QString special = linked ? path("special") : m_file;
        SPECIAL_FILE_OR_SKIP(kind, special);
        QVERIFY(!linked || QFile::link(special, m_file));
        QVERIFY(write(m_defaults, "[texts]\ntext=installed\n"));
        const LogCatcher log;
        const Stopwatch timer;
        TextSettings settings(m_file);
        settings.text = QStringLiteral("mine");
        settings.writeSettings();
        QCOMPARE(settings.text, QStringLiteral("mine"));
        QCOMPARE(LogCatcher::lines(),
                 QStringList(QStringLiteral("warning: The settings file %1 was not written: %2.")
                                 .arg(m_file, what)));
        settings.readSettings();
        QCOMPARE(settings.text, TextSettings::defaultText()); // there is a user's file of a kind
        QCOMPARE(LogCatcher::lines().mid(1),
                 QStringList(QStringLiteral("warning: The settings file %1 was not read: %2.")
                                 .arg(m_file, what)));
        QVERIFY(timer.elapsed() < atOnce);
        QCOMPARE(SpecialFile::kindOf(special), kind);
        QCOMPARE(QFileInfo(m_file).isSymLink(), linked);
        QVERIFY(!QFileInfo::exists(m_file + QStringLiteral(".damaged")));
    }

    void doesNotHangOnADefaultIniThatIsNoFile()
    {
        SPECIAL_FILE_OR_SKIP(S_IFIFO, m_defaults);
        const LogCatcher log;
        QCOMPARE(textIn(m_file), TextSettings::defaultText());
        QCOMPARE(
            LogCatcher::lines(),
            QStringList(QStringLiteral("warning: The settings file %1 was not read: it is a pipe.")
                            .arg(m_defaults)));
        writeText(m_file, QStringLiteral("new"));
        QCOMPARE(textIn(m_file), QStringLiteral("new"));
    }

    void namesWhatIsInThePlaceOfItsGuard()
    {
        const QString guard = m_file + QStringLiteral(".write.kestlock");
        SPECIAL_FILE_OR_SKIP(S_IFIFO, guard);
        QVERIFY(write(m_file, "[texts]\ntext=old\n"));
        const LogCatcher log;
        writeText(m_file, QStringLiteral("new"));
        QCOMPARE(LogCatcher::lines(),
                 QStringList(QStringLiteral("warning: The settings file %1 was not written: "
                                            "the lock file %2 is a pipe.")
                                 .arg(m_file, guard)));
        QCOMPARE(textIn(m_file), QStringLiteral("old"));
    }

    // Sparse files: their size is what counts.
    void refusesAFileThatIsTooLarge_data()
    {
        QTest::addColumn<qint64>("size");
        QTest::newRow("one byte more") << common_settings::largestFile + 1;
        QTest::newRow("gigabytes") << (qint64(5) << 30);
    }

    void refusesAFileThatIsTooLarge()
    {
        QFETCH(qint64, size);
        QVERIFY(write(m_file, "[texts]\ntext=old\n"));
        QVERIFY(QFile::resize(m_file, size));
        QVERIFY(write(m_defaults, "[texts]\ntext=installed\n"));
        const LogCatcher log;
        const Stopwatch timer;
        QCOMPARE(textIn(m_file), TextSettings::defaultText());
        writeText(m_file, QStringLiteral("new"));
        QVERIFY(timer.elapsed() < atOnce);
        QCOMPARE(LogCatcher::lines(),
                 (QStringList{
                     QStringLiteral("warning: The settings file %1 was not read: it is larger than "
                                    "4 MB.")
                         .arg(m_file),
                     QStringLiteral("warning: The settings file %1 was not written: it is larger "
                                    "than 4 MB.")
                         .arg(m_file)}));
        QCOMPARE(QFileInfo(m_file).size(), size);
        QFile file(m_file);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.read(17), QByteArray("[texts]\ntext=old\n"));
        QCOMPARE(QDir(m_directory->path()).entryList(QDir::Files | QDir::Hidden),
                 QStringList(QStringLiteral("kest.ini")));
    }

    void refusesADefaultIniThatIsTooLarge()
    {
        QVERIFY(write(m_defaults, "[texts]\ntext=installed\n"));
        QVERIFY(QFile::resize(m_defaults, common_settings::largestFile + 1));
        const LogCatcher log;
        QCOMPARE(textIn(m_file), TextSettings::defaultText());
        QCOMPARE(LogCatcher::lines().size(), 1);
        QVERIFY(QDir::fromNativeSeparators(LogCatcher::lines().constFirst()).contains(m_defaults));
        writeText(m_file, QStringLiteral("new"));
        QCOMPARE(textIn(m_file), QStringLiteral("new"));
    }

    void neverMakesAFileThatItCouldNotReadAgain()
    {
        QVERIFY(write(m_file, "[texts]\ntext=old\n"));
        const LogCatcher log;
        writeText(m_file, QString(int(common_settings::largestFile), QLatin1Char('x')));
        QCOMPARE(LogCatcher::lines(),
                 QStringList(QStringLiteral("warning: The settings file %1 was not written: it "
                                            "would become larger than 4 MB.")
                                 .arg(m_file)));
        QCOMPARE(contentOf(m_file), QByteArray("[texts]\ntext=old\n"));
    }
};

QTEST_GUILESS_MAIN(tst_common_settings_damaged)
#include "tst_common_settings_damaged.moc"
