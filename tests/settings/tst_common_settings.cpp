// SPDX-License-Identifier: MIT
#include "ScriptedSettings.h"

#include <SettingsObjects.h>
#include <SpecialFile.h>
#include <SystemSkips.h>

#include <QDir>
#include <QFile>
#include <QtTest>

#include <limits>

#include <sys/stat.h>

class tst_common_settings : public QObject, protected SettingsStage
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }

    void knowsItsFile()
    {
        QCOMPARE(TextSettings(m_file).getFileName(), m_file);
        QCOMPARE(TextSettings(QString()).getFileName(), QString());
    }

    void copiesReadAndWriteTheSame()
    {
        TextSettings settings(m_file, QStringLiteral("one"));
        // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): copies are tested
        const TextSettings copy(settings);
        QCOMPARE(copy.getFileName(), m_file);
        TextSettings other(path("other.ini"), QStringLiteral("two"));
        other = settings;
        other.text = QStringLiteral("x");
        other.writeSettings();
        QVERIFY(!QFile::exists(path("other.ini")));
        QCOMPARE(storedValue(m_file, QStringLiteral("one/text")), QVariant(QStringLiteral("x")));
    }

    void leavesTheDefaultsWhereThereIsNoFileAtAll()
    {
        QCOMPARE(textIn(m_file), TextSettings::defaultText());
        QCOMPARE(QDir(m_directory->path()).entryList(QDir::Files), QStringList());
        QCOMPARE(QDir(path("defaults")).entryList(QDir::Files), QStringList());
    }

    void readsDefaultIniUntilThereIsAUserFile()
    {
        QVERIFY(write(m_defaults, "[texts]\ntext=installed\n"));
        QCOMPARE(textIn(m_file), QStringLiteral("installed"));
        QVERIFY(!QFile::exists(m_file));
        QVERIFY(write(m_file, "[texts]\ntext=mine\n"));
        QCOMPARE(textIn(m_file), QStringLiteral("mine"));
    }

    void aUserFileWithoutTheGroupStillHidesDefaultIni_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("another group") << QByteArray("[others]\ntext=x\n");
        QTest::newRow("no group") << QByteArray("text=x\n");
    }

    void aUserFileWithoutTheGroupStillHidesDefaultIni()
    {
        QFETCH(QByteArray, content);
        QVERIFY(write(m_defaults, "[texts]\ntext=installed\n"));
        QVERIFY(write(m_file, content));
        QCOMPARE(textIn(m_file), TextSettings::defaultText());
    }

    void writesTheUserFileAndNeverDefaultIni()
    {
        const QByteArray installed = "; installed\n[texts]\ntext=installed\n";
        QVERIFY(write(m_defaults, installed));
        TextSettings settings(m_file);
        settings.readSettings();
        settings.text += QStringLiteral(" and mine");
        settings.writeSettings();
        QCOMPARE(storedValue(m_file, QStringLiteral("texts/text")),
                 QVariant(QStringLiteral("installed and mine")));
        QCOMPARE(contentOf(m_defaults), installed);
        QCOMPARE(QDir(path("defaults")).entryList(QDir::Files).size(), 1);
    }

    void aDamagedDefaultIniIsReadAsFarAsPossibleAndNotCopied()
    {
        QVERIFY(write(m_defaults, "[texts]\ntext=installed\nhalf a li"));
        QCOMPARE(textIn(m_file), QStringLiteral("installed"));
        QCOMPARE(QDir(path("defaults")).entryList(QDir::Files).size(), 1);
    }

    void opensTheGroupForItsSubclass()
    {
        ScriptedSettings settings(m_file, QStringLiteral("a/b"));
        QStringList groups;
        settings.onWrite = [&groups](QSettings& open) {
            groups.append(open.group());
            open.setValue(QStringLiteral("key"), 1);
        };
        settings.onRead = [&groups](QSettings& open) {
            groups.append(open.group() + open.value(QStringLiteral("key")).toString());
        };
        settings.writeSettings();
        settings.readSettings();
        QCOMPARE(groups, (QStringList{QStringLiteral("a/b"), QStringLiteral("a/b1")}));
    }

    void leavesOtherGroupsAndKeysAsTheyAre()
    {
        QVERIFY(write(m_file, "plain=1\n[others]\ntext=theirs\n[texts]\nelse=2\ntext=old\n"));
        writeText(m_file, QStringLiteral("new"));
        QCOMPARE(contentOf(m_file), QByteArray("[General]\nplain=1\n\n[others]\ntext=theirs\n\n"
                                               "[texts]\nelse=2\ntext=new\n"));
    }

    void keysThatAreRemovedAreGone()
    {
        QVERIFY(write(m_file, "[group]\na=1\nb=2\n"));
        ScriptedSettings settings(m_file);
        settings.onWrite = [](QSettings& open) { open.remove(QStringLiteral("a")); };
        settings.writeSettings();
        QCOMPARE(contentOf(m_file), QByteArray("[group]\nb=2\n"));
    }

    void everyValueComesBack_data()
    {
        QTest::addColumn<QVariant>("value");
        // clang-format off
        QTest::newRow("number")            << QVariant(42);
        QTest::newRow("large number")      << QVariant(qlonglong(1) << 62);
        QTest::newRow("true")              << QVariant(true);
        QTest::newRow("fraction")          << QVariant(0.1);
        QTest::newRow("not a number")      << QVariant(std::numeric_limits<double>::quiet_NaN());
        QTest::newRow("infinity")          << QVariant(std::numeric_limits<double>::infinity());
        QTest::newRow("empty text")        << QVariant(QString());
        QTest::newRow("blanks")            << QVariant(QStringLiteral("  a  "));
        QTest::newRow("quotes and commas") << QVariant(QStringLiteral("a,\"b\";c=d\\e,@f"));
        QTest::newRow("like a type")       << QVariant(QStringLiteral("@Variant(x)"));
        QTest::newRow("lines and NUL")     << QVariant(QStringLiteral("a\nb\r\nc") + QChar(0) + QStringLiteral("d"));
        QTest::newRow("other scripts")     << QVariant(QString::fromUtf8("\xc3\xa4\xe6\xbc\xa2\xf0\x9f\x94\x92"));
        QTest::newRow("bytes")             << QVariant(QByteArray("\0\xff\n", 3));
        QTest::newRow("no bytes")          << QVariant(QByteArray());
        QTest::newRow("list")              << QVariant(QStringList{QStringLiteral("a"), QStringLiteral("b,c")});
        QTest::newRow("list of one")       << QVariant(QStringList{QStringLiteral("a")});
        QTest::newRow("list of nothing")   << QVariant(QStringList{QString()});
        QTest::newRow("empty list")        << QVariant(QStringList());
        QTest::newRow("rectangle")         << QVariant(QRect(1, 2, 3, 4));
        QTest::newRow("invalid")           << QVariant();
        QTest::newRow("long text")         << QVariant(QString(200000, QLatin1Char('x')));
        // clang-format on
    }

    void everyValueComesBack()
    {
        QFETCH(QVariant, value);
        QVERIFY(write(m_file, "[others]\na=1\n"));
        const LogCatcher log;
        ScriptedSettings settings(m_file);
        settings.onWrite = [&value](QSettings& open) {
            open.setValue(QStringLiteral("key"), value);
        };
        settings.writeSettings();
        QCOMPARE(LogCatcher::lines(), QStringList());
        QVERIFY(contentOf(m_file).contains("key="));
        QVariant read;
        settings.onRead = [&read](QSettings& open) { read = open.value(QStringLiteral("key")); };
        settings.readSettings();
        if (value.userType() == QMetaType::QStringList) {
            QCOMPARE(read.toStringList(), value.toStringList());
            return;
        }
        QCOMPARE(read.toString(), value.toString());
        QCOMPARE(read.toByteArray(), value.toByteArray());
        QCOMPARE(read.toRect(), value.toRect());
    }

    void readsWhateverMayBeInAFile_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("text");
        const QString good = QStringLiteral("good");
        // clang-format off
        QTest::newRow("plain")               << QByteArray("[texts]\ntext=good\n") << good;
        QTest::newRow("CRLF")                << QByteArray("[texts]\r\ntext=good\r\n") << good;
        QTest::newRow("no last line end")    << QByteArray("[texts]\ntext=good") << good;
        QTest::newRow("comments")            << QByteArray("; text=bad\n# text=bad\n[texts]\n;text=bad\ntext=good\n; end") << good;
        QTest::newRow("twice")               << QByteArray("[texts]\ntext=bad\ntext=good\n") << good;
        QTest::newRow("group twice")         << QByteArray("[texts]\ntext=bad\n[others]\n[texts]\ntext=good\n") << good;
        QTest::newRow("blanks around")       << QByteArray("[texts]\n text = good\n") << good;
        QTest::newRow("list for a text")     << QByteArray("[texts]\ntext=good, bad\n") << QString();
        QTest::newRow("invalid value")       << QByteArray("[texts]\ntext=@Invalid()\n") << QString();
        // clang-format on
    }

    void readsWhateverMayBeInAFile()
    {
        QFETCH(QByteArray, content);
        QFETCH(QString, text);
        QVERIFY(write(m_file, content));
        const LogCatcher log;
        QCOMPARE(textIn(m_file), text);
        QCOMPARE(LogCatcher::lines(), QStringList());
        QCOMPARE(contentOf(m_file), unixLines(content));
        QVERIFY(!QFile::exists(m_file + QStringLiteral(".damaged")));
    }

    void makesMissingFolders()
    {
        const QString deep = path("a/b/kest.ini");
        writeText(deep, QStringLiteral("deep"));
        QCOMPARE(textIn(deep), QStringLiteral("deep"));
    }

    void writesThroughALink_data()
    {
        QTest::addColumn<bool>("exists");
        QTest::newRow("to a file") << true;
        QTest::newRow("to nothing yet") << false;
    }

    void writesThroughALink()
    {
        SKIP_WITHOUT_SYMBOLIC_LINKS();
        QFETCH(bool, exists);
        const QString target = path("defaults/target.ini");
        QVERIFY(!exists || write(target, "[others]\na=1\n"));
        QVERIFY(QFile::link(target, m_file));
        writeText(m_file, QStringLiteral("linked"));
        QVERIFY(QFileInfo(m_file).isSymLink());
        QCOMPARE(QFileInfo(m_file).symLinkTarget(), target);
        QCOMPARE(textIn(target), QStringLiteral("linked"));
        QCOMPARE(contentOf(target).contains("[others]"), exists);
    }

    void keepsThePermissions_data()
    {
        QTest::addColumn<int>("mode");
        QTest::newRow("only mine") << 0600;
        QTest::newRow("of a group") << 0660;
        QTest::newRow("read by all") << 0644;
    }

    void keepsThePermissions()
    {
#ifdef Q_OS_WIN
        QSKIP("Windows knows no permissions for groups");
#endif
        QFETCH(int, mode);
        QVERIFY(write(m_file, ""));
        const QByteArray name = QFile::encodeName(m_file);
        QCOMPARE(::chmod(name.constData(), mode_t(mode)), 0);
        writeText(m_file, QStringLiteral("new"));
        struct stat status = {};
        QCOMPARE(::stat(name.constData(), &status), 0);
        QCOMPARE(int(status.st_mode & 0777), mode);
        QCOMPARE(textIn(m_file), QStringLiteral("new"));
    }

    void leavesNothingBesideTheFile()
    {
        writeText(m_file, QStringLiteral("new"));
        QCOMPARE(QDir(m_directory->path()).entryList(QDir::Files | QDir::Hidden),
                 QStringList(QStringLiteral("kest.ini")));
    }

    void seesWhatAnotherObjectWrote()
    {
        writeText(m_file, QStringLiteral("a"));
        QCOMPARE(textIn(m_file), QStringLiteral("a"));
        QVERIFY(write(m_file, "[texts]\ntext=by hand\n"));
        QCOMPARE(textIn(m_file), QStringLiteral("by hand"));
    }
};

QTEST_GUILESS_MAIN(tst_common_settings)
#include "tst_common_settings.moc"
