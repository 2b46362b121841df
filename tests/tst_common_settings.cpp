#include <FakeServices.h>
#include <SettingsObjects.h>
#include <SettingsProcess.h>
#include <SpecialFile.h>
#include <Unprivileged.h>

#include <common_LockFile.h>

#include <QDateTime>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QRandomGenerator>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <QtTest>

#include <ctime>
#include <functional>
#include <limits>
#include <memory>
#include <stdexcept>
#include <vector>

#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr qint64 atOnce = 1000; // milliseconds

/// What the test wants to be read and written.
class ScriptedSettings : public common_settings
{
public:
    explicit ScriptedSettings(const QString& file, const QString& group = QStringLiteral("group"))
        : common_settings(file, group, QSettings::IniFormat)
    {}

    std::function<void(QSettings&)> onRead = [](QSettings&) {};
    std::function<void(QSettings&)> onWrite = [](QSettings&) {};

protected:
    void restoreDefaults() override {}
    void doReadSettings(QSettings& settings) override { onRead(settings); }
    void doWriteSettings(QSettings& settings) override { onWrite(settings); }
};

bool write(const QString& name, const QByteArray& content)
{
    QFile file(name);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

QByteArray contentOf(const QString& name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no such file");
}

QVariant storedValue(const QString& file, const QString& key)
{
    return QSettings(file, QSettings::IniFormat).value(key);
}

QString textIn(const QString& file)
{
    TextSettings settings(file);
    settings.readSettings();
    return settings.text;
}

void writeText(const QString& file, const QString& text)
{
    TextSettings settings(file);
    settings.text = text;
    settings.writeSettings();
}

/// Collects what Qt's log is told while it lives.
class LogCatcher
{
public:
    LogCatcher() : m_previous(qInstallMessageHandler(note)) { lines().clear(); }
    LogCatcher(const LogCatcher&) = delete;
    LogCatcher& operator=(const LogCatcher&) = delete;
    ~LogCatcher() { qInstallMessageHandler(m_previous); }

    static QStringList& lines()
    {
        static QStringList instance;
        return instance;
    }

private:
    static void note(QtMsgType type, const QMessageLogContext&, const QString& text)
    {
        lines().append(
            (type == QtWarningMsg ? QStringLiteral("warning: ") : QStringLiteral("other: ")) +
            text);
    }

    QtMessageHandler m_previous;
};

} // namespace

class tst_common_settings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_directory = std::make_unique<QTemporaryDir>();
        m_file = path("kest.ini");
        m_defaults = path("defaults/default.ini");
        QVERIFY(QDir(m_directory->path()).mkdir(QStringLiteral("defaults")));
        m_info = std::make_unique<FakeApplicationInfo>(m_directory->path());
        m_info->defaultSettings = path("defaults");
    }

    void knowsItsFile()
    {
        QCOMPARE(TextSettings(m_file).getFileName(), m_file);
        QCOMPARE(TextSettings(QString()).getFileName(), QString());
    }

    void copiesReadAndWriteTheSame()
    {
        TextSettings settings(m_file, QStringLiteral("one"));
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
        if (value.type() == QVariant::StringList) {
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
        QCOMPARE(contentOf(m_file), content);
        QVERIFY(!QFile::exists(m_file + QStringLiteral(".damaged")));
    }

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
            QCOMPARE(contentOf(m_file), content);
            QCOMPARE(contentOf(kept), content);
        }
        const LogCatcher log;
        QCOMPARE(textIn(m_file), text);
        writeText(m_file, QStringLiteral("new"));
        QCOMPARE(LogCatcher::lines(), QStringList());
        QCOMPARE(contentOf(kept), content);
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
        QCOMPARE(contentOf(m_file + QStringLiteral(".damaged")), content);
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
        QCOMPARE(contentOf(m_file + QStringLiteral(".damaged")), content);
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
        QRandomGenerator random(20260522);
        const int files = qEnvironmentVariableIsSet("KEST_FULL_TESTS") ? 4000 : 400;
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
            QVERIFY(!QFile::exists(kept) || contentOf(kept) == content);
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
        QCOMPARE(contentOf(m_file + QStringLiteral(".damaged")), content);
        QCOMPARE(contentOf(m_file), content);
        writeText(m_file, QStringLiteral("new"));
        QCOMPARE(LogCatcher::lines().size(), 1);
        QCOMPARE(contentOf(m_file), QByteArray("[half]\nkey=1\n\n[texts]\ntext=new\n"));
    }

    void leavesTheFileAsItWasOnAFullDisk_data()
    {
        QTest::addColumn<QByteArray>("before");
        QTest::addColumn<int>("limit");
        QTest::addColumn<int>("length");
        const QByteArray small = "[texts]\ntext=old\n";
        const QByteArray large = "[texts]\ntext=" + QByteArray(60000, 'o') + '\n';
        // clang-format off
        QTest::newRow("no room at all")                << small << 0     << 10;
        QTest::newRow("one byte")                      << small << 1     << 10;
        QTest::newRow("up to the group")               << small << 8     << 10;
        QTest::newRow("up to the key")                 << small << 10    << 10;
        QTest::newRow("up to the value")               << small << 13    << 10;
        QTest::newRow("half the value")                << small << 18    << 10;
        QTest::newRow("all but the line end")          << small << 23    << 10;
        QTest::newRow("one block of a long value")     << small << 4096  << 60000;
        QTest::newRow("two blocks of a long value")    << small << 8192  << 60000;
        QTest::newRow("long before")                   << large << 100   << 60000;
        QTest::newRow("long before, short after")      << large << 8     << 10;
        // clang-format on
    }

    void leavesTheFileAsItWasOnAFullDisk()
    {
        QFETCH(QByteArray, before);
        QFETCH(int, limit);
        QFETCH(int, length);
        QVERIFY(write(m_file, before));
        SettingsProcess writer({QStringLiteral("write-limited"), m_file, QString::number(limit),
                                QString::number(length)});
        QVERIFY(writer.hasEndedWell());
        QCOMPARE(contentOf(m_file), before);
        const QString log = QString::fromUtf8(writer.readAllStandardError());
        QCOMPARE(log.count(QLatin1Char('\n')), 1);
        QVERIFY2(log.contains(m_file), qPrintable(log));
        QCOMPARE(QDir(m_directory->path()).entryList(QDir::Files | QDir::Hidden),
                 QStringList(QStringLiteral("kest.ini")));
    }

    void writesWhatJustFits()
    {
        QVERIFY(write(m_file, "[texts]\ntext=old\n"));
        SettingsProcess writer({QStringLiteral("write-limited"), m_file, QStringLiteral("60014"),
                                QStringLiteral("60000")});
        QVERIFY(writer.hasEndedWell());
        QCOMPARE(writer.readAllStandardError(), QByteArray());
        QCOMPARE(textIn(m_file).size(), 60000);
    }

    void anUnusableTemporaryFolderIsNoObstacle_data()
    {
        QTest::addColumn<QString>("folder");
        QTest::newRow("missing") << QStringLiteral("missing");
        QTest::newRow("a file") << QStringLiteral("obstacle");
        QTest::newRow("a device") << QStringLiteral("/dev/null");
    }

    void anUnusableTemporaryFolderIsNoObstacle()
    {
        QFETCH(QString, folder);
        const QByteArray before = qgetenv("TMPDIR");
        QVERIFY(write(path("obstacle"), "x"));
        QVERIFY(qputenv("TMPDIR", QFile::encodeName(QDir(m_directory->path()).filePath(folder))));
        const LogCatcher log;
        writeText(m_file, QStringLiteral("new"));
        QCOMPARE(textIn(m_file), QStringLiteral("new"));
        // a repaired copy is needed for this one
        QVERIFY(write(m_file, QByteArray("[open\n").repeated(2000) + "[texts]\ntext=good\n"));
        QCOMPARE(textIn(m_file), QStringLiteral("good"));
        qputenv("TMPDIR", before);
        QCOMPARE(LogCatcher::lines().size(), 1); // that it is damaged
        QCOMPARE(QDir(m_directory->path())
                     .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot)
                     .size(),
                 4);
    }

    void saysOnceWhyAFileWasNotWritten_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("a file in place of the folder") << QStringLiteral("obstacle/kest.ini");
        QTest::newRow("a file in place of a folder above") << QStringLiteral("obstacle/a/kest.ini");
        QTest::newRow("a folder in place of the file") << QStringLiteral("folder");
        QTest::newRow("name too long") << QString(300, QLatin1Char('x'));
    }

    void saysOnceWhyAFileWasNotWritten()
    {
        QFETCH(QString, name);
        QVERIFY(write(path("obstacle"), "x"));
        QVERIFY(QDir(m_directory->path()).mkdir(QStringLiteral("folder")));
        const QString file = m_directory->filePath(name);
        const LogCatcher log;
        TextSettings settings(file);
        settings.text = QStringLiteral("mine");
        QElapsedTimer timer;
        timer.start();
        settings.writeSettings();
        QVERIFY(timer.elapsed() < atOnce);
        QCOMPARE(settings.text, QStringLiteral("mine"));
        QCOMPARE(LogCatcher::lines().size(), 1);
        QVERIFY(LogCatcher::lines().constFirst().startsWith(QStringLiteral("warning: ")));
        QVERIFY(LogCatcher::lines().constFirst().contains(file));
        QCOMPARE(contentOf(path("obstacle")), QByteArray("x"));
        QVERIFY(QDir(path("folder")).isEmpty());
    }

    void keepsTheValuesThatItMayNotWrite_data()
    {
        QTest::addColumn<int>("fileMode");
        QTest::addColumn<int>("folderMode");
        QTest::newRow("read-only file") << 0444 << 0777;
        QTest::newRow("file in a read-only folder") << 0666 << 0555;
        QTest::newRow("no file yet in a read-only folder") << 0 << 0555;
    }

    void keepsTheValuesThatItMayNotWrite()
    {
        QFETCH(int, fileMode);
        QFETCH(int, folderMode);
        const QByteArray before("[texts]\ntext=old\n");
        if (fileMode != 0) {
            QVERIFY(write(m_file, before) && Unprivileged::give(m_file));
            QCOMPARE(::chmod(QFile::encodeName(m_file).constData(), mode_t(fileMode)), 0);
        }
        const QTemporaryDir temporary;
        QVERIFY(Unprivileged::give(temporary.path()) && Unprivileged::give(m_directory->path()));
        const QByteArray usual = qgetenv("TMPDIR");
        qputenv("TMPDIR", QFile::encodeName(temporary.path()));
        const QByteArray folder = QFile::encodeName(m_directory->path());
        QCOMPARE(::chmod(folder.constData(), mode_t(folderMode)), 0);
        const auto restored = qScopeGuard([&] {
            ::chmod(folder.constData(), 0700);
            qputenv("TMPDIR", usual);
        });
        const LogCatcher log;
        TextSettings settings(m_file);
        settings.text = QStringLiteral("mine");
        {
            const Unprivileged user; // an administrator may write everywhere
            QElapsedTimer timer;
            timer.start();
            settings.writeSettings();
            QVERIFY(timer.elapsed() < atOnce);
        }
        QCOMPARE(settings.text, QStringLiteral("mine"));
        QCOMPARE(LogCatcher::lines().size(), 1);
        QVERIFY2(LogCatcher::lines().constFirst().startsWith(QStringLiteral("warning: ")) &&
                     LogCatcher::lines().constFirst().contains(m_file),
                 qPrintable(LogCatcher::lines().constFirst()));
        QCOMPARE(contentOf(m_file), fileMode == 0 ? QByteArray("no such file") : before);
        QCOMPARE(QDir(m_directory->path()).entryList(QDir::Files | QDir::Hidden).size(),
                 fileMode == 0 ? 0 : 1);
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

    void isNotDelayedByWhatAKilledProcessLeft_data()
    {
        QTest::addColumn<QString>("suffix");
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<int>("age"); // seconds
        // clang-format off
        QTest::newRow("QSettings's lock, empty")           << QStringLiteral(".lock") << QByteArray() << 0;
        QTest::newRow("QSettings's lock, of another host") << QStringLiteral(".lock") << QByteArray("1\nx\nelsewhere\n") << 0;
        QTest::newRow("guard, empty")                      << QStringLiteral(".write.kestlock") << QByteArray() << 0;
        QTest::newRow("guard, of another host")            << QStringLiteral(".write.kestlock") << QByteArray("1\nx\nelsewhere\n") << 10;
        QTest::newRow("guard, id reused")                  << QStringLiteral(".write.kestlock") << QByteArray("1\nx\n") << 0;
        // clang-format on
    }

    void isNotDelayedByWhatAKilledProcessLeft()
    {
        QFETCH(QString, suffix);
        QFETCH(QByteArray, content);
        QFETCH(int, age);
        QVERIFY(write(m_file, "[texts]\ntext=old\n"));
        QVERIFY(write(m_file + suffix, content));
        QFile left(m_file + suffix);
        QVERIFY(left.open(QIODevice::ReadWrite));
        QVERIFY(left.setFileTime(QDateTime::currentDateTime().addSecs(-age),
                                 QFileDevice::FileModificationTime));
        left.close();
        const LogCatcher log;
        QElapsedTimer timer;
        timer.start();
        QCOMPARE(textIn(m_file), QStringLiteral("old"));
        writeText(m_file, QStringLiteral("new"));
        QVERIFY(timer.elapsed() < atOnce);
        QCOMPARE(textIn(m_file), QStringLiteral("new"));
        QCOMPARE(LogCatcher::lines(), QStringList());
    }

    void writesWhileTheLockIsHeld_data()
    {
        QTest::addColumn<bool>("byAnotherProcess");
        QTest::newRow("by this process") << false;
        QTest::newRow("by another process") << true;
    }

    void writesWhileTheLockIsHeld()
    {
        QFETCH(bool, byAnotherProcess);
        const FakeSession session;
        const QString holderFile = byAnotherProcess ? m_file : path("unrelated.ini");
        SettingsProcess holder({QStringLiteral("hold"), holderFile});
        QCOMPARE(holder.said(), QStringLiteral("status 0"));
        common_LockFile lockFile((QFileInfo(m_file)));
        QCOMPARE(lockFile.lock(false), !byAnotherProcess);
        QElapsedTimer timer;
        timer.start();
        writeText(m_file, QStringLiteral("new"));
        QVERIFY(timer.elapsed() < atOnce);
        QCOMPARE(textIn(m_file), QStringLiteral("new"));
    }

    void givesUpInTimeWhenSomebodyElseGoesOnWriting()
    {
        QVERIFY(write(m_file, "[texts]\ntext=old\n"));
        SettingsProcess writer({QStringLiteral("hold"), m_file + QStringLiteral(".write")});
        QCOMPARE(writer.said(), QStringLiteral("status 0"));
        const LogCatcher log;
        QElapsedTimer timer;
        timer.start();
        writeText(m_file, QStringLiteral("new"));
        QVERIFY(timer.elapsed() < 2 * atOnce);
        QCOMPARE(LogCatcher::lines().size(), 1);
        QVERIFY(LogCatcher::lines().constFirst().contains(m_file));
        QCOMPARE(textIn(m_file), QStringLiteral("old"));
        QVERIFY(writer.killAtOnce());
        writeText(m_file, QStringLiteral("new"));
        QCOMPARE(textIn(m_file), QStringLiteral("new"));
    }

    void aWriteWithinAWriteKeepsBothGroups_data()
    {
        QTest::addColumn<QByteArray>("before");
        QTest::addColumn<QString>("innerPath");
        const QByteArray old =
            "[group]\nlast=0\nother=1\n\n[others]\na=1\n\n[texts]\nelse=2\ntext=old\n";
        // clang-format off
        QTest::newRow("no file yet")        << QByteArray() << QStringLiteral("kest.ini");
        QTest::newRow("file")               << old          << QStringLiteral("kest.ini");
        QTest::newRow("another spelling")   << old          << QStringLiteral("./defaults/..//kest.ini");
        QTest::newRow("link to the file")   << old          << QStringLiteral("link.ini");
        QTest::newRow("link to nothing yet") << QByteArray() << QStringLiteral("link.ini");
        QTest::newRow("linked folder")      << old          << QStringLiteral("here/kest.ini");
        QTest::newRow("linked folder, no file yet") << QByteArray() << QStringLiteral("here/kest.ini");
        // clang-format on
    }

    void aWriteWithinAWriteKeepsBothGroups()
    {
        QFETCH(QByteArray, before);
        QFETCH(QString, innerPath);
        QVERIFY(QFile::link(m_file, path("link.ini")));
        QVERIFY(QFile::link(m_directory->path(), path("here")));
        QVERIFY(before.isEmpty() || write(m_file, before));
        const LogCatcher log;
        ScriptedSettings settings(m_file);
        QByteArray afterInner;
        settings.onWrite = [&](QSettings& open) {
            open.setValue(QStringLiteral("first"), 1);
            writeText(m_directory->filePath(innerPath), QStringLiteral("inner"));
            afterInner = contentOf(m_file);
            open.setValue(QStringLiteral("last"), 2);
        };
        QElapsedTimer timer;
        timer.start();
        settings.writeSettings();
        QVERIFY(timer.elapsed() < atOnce);
        QCOMPARE(LogCatcher::lines(), QStringList());
        QVERIFY(afterInner.contains("text=inner")); // whoever returns has written
        QVERIFY(!afterInner.contains("first=1"));   // and only its own
        const QByteArray after = contentOf(m_file);
        QCOMPARE(after, before.isEmpty()
                            ? QByteArray("[group]\nfirst=1\nlast=2\n\n[texts]\ntext=inner\n")
                            : QByteArray("[group]\nfirst=1\nlast=2\nother=1\n\n[others]\na=1\n\n"
                                         "[texts]\nelse=2\ntext=inner\n"));
        QCOMPARE(QDir(m_directory->path()).entryList(QDir::Files | QDir::Hidden),
                 (QStringList{QStringLiteral("kest.ini"), QStringLiteral("link.ini")}));
    }

    void aWriteWithinAWriteByARelativePathKeepsBothGroups()
    {
        const QString folder = QDir::currentPath();
        QVERIFY(QDir::setCurrent(m_directory->path()));
        ScriptedSettings settings(QStringLiteral("kest.ini"));
        settings.onWrite = [this](QSettings& open) {
            writeText(m_file, QStringLiteral("inner"));
            open.setValue(QStringLiteral("key"), 1);
        };
        settings.writeSettings();
        QVERIFY(QDir::setCurrent(folder));
        QCOMPARE(contentOf(m_file), QByteArray("[group]\nkey=1\n\n[texts]\ntext=inner\n"));
    }

    void writesMayBeWithinEachOtherToAnyDepth()
    {
        constexpr int depth = 20;
        std::vector<std::unique_ptr<ScriptedSettings>> objects;
        QByteArray expected;
        for (int level = 0; level < depth; ++level) {
            const QString group = QStringLiteral("group%1").arg(level, 2, 10, QLatin1Char('0'));
            objects.push_back(std::make_unique<ScriptedSettings>(m_file, group));
            objects.back()->onWrite = [&objects, level](QSettings& open) {
                open.setValue(QStringLiteral("before"), level);
                if (level + 1 < depth) {
                    objects[size_t(level) + 1]->writeSettings();
                }
                open.setValue(QStringLiteral("behind"), level);
            };
            const QByteArray number = QByteArray::number(level);
            expected += (level > 0 ? "\n[" : "[") + group.toLatin1() + "]\nbefore=" + number +
                        "\nbehind=" + number + '\n';
        }
        const LogCatcher log;
        objects.front()->writeSettings();
        QCOMPARE(LogCatcher::lines(), QStringList());
        QCOMPARE(contentOf(m_file), expected);
    }

    void severalWritesWithinOneAreAllKept()
    {
        ScriptedSettings settings(m_file);
        settings.onWrite = [this](QSettings& open) {
            for (int number = 0; number < 5; ++number) {
                CountSettings counts(m_file, QStringLiteral("key%1").arg(number));
                counts.count = number;
                counts.writeSettings();
            }
            open.setValue(QStringLiteral("key"), 1);
        };
        settings.writeSettings();
        for (int number = 0; number < 5; ++number) {
            QCOMPARE(storedValue(m_file, QStringLiteral("counts/key%1").arg(number)).toInt(),
                     number);
        }
        QCOMPARE(storedValue(m_file, QStringLiteral("group/key")).toInt(), 1);
    }

    void anObjectMayWriteItselfWithinItsWrite()
    {
        ScriptedSettings settings(m_file);
        int depth = 0;
        QByteArray afterInner;
        settings.onWrite = [&](QSettings& open) {
            open.setValue(QStringLiteral("first"), depth);
            if (++depth == 1) {
                settings.writeSettings();
                afterInner = contentOf(m_file);
            }
            open.setValue(QStringLiteral("last"), depth);
        };
        settings.writeSettings();
        QCOMPARE(afterInner, QByteArray("[group]\nfirst=1\nlast=2\n"));
        QCOMPARE(contentOf(m_file), QByteArray("[group]\nfirst=1\nlast=2\n"));
        QCOMPARE(depth, 2);
    }

    void whatTheInnerWriteRemovesIsGone()
    {
        QVERIFY(write(m_file, "[group]\na=1\n\n[inner]\nb=2\nc=3\n"));
        ScriptedSettings inner(m_file, QStringLiteral("inner"));
        inner.onWrite = [](QSettings& open) { open.remove(QStringLiteral("b")); };
        ScriptedSettings settings(m_file);
        settings.onWrite = [&](QSettings& open) {
            open.setValue(QStringLiteral("key"), 1);
            inner.writeSettings();
        };
        settings.writeSettings();
        QCOMPARE(contentOf(m_file), QByteArray("[group]\na=1\nkey=1\n\n[inner]\nc=3\n"));
    }

    void anotherFileMayBeWrittenWithinAWrite()
    {
        const QString other = path("other.ini");
        ScriptedSettings within(other);
        within.onWrite = [this](QSettings& open) {
            writeText(m_file, QStringLiteral("back in the first"));
            open.setValue(QStringLiteral("key"), 2);
        };
        ScriptedSettings settings(m_file);
        settings.onWrite = [&within](QSettings& open) {
            within.writeSettings();
            open.setValue(QStringLiteral("key"), 1);
        };
        const LogCatcher log;
        settings.writeSettings();
        QCOMPARE(LogCatcher::lines(), QStringList());
        QCOMPARE(contentOf(other), QByteArray("[group]\nkey=2\n"));
        QCOMPARE(contentOf(m_file),
                 QByteArray("[group]\nkey=1\n\n[texts]\ntext=back in the first\n"));
    }

    // As with all objects that share a settings file in one process.
    void aReadWithinAWriteSeesWhatIsBeingWritten_data()
    {
        QTest::addColumn<bool>("byALink");
        QTest::newRow("by the same path") << false;
        QTest::newRow("by a link") << true;
    }

    void aReadWithinAWriteSeesWhatIsBeingWritten()
    {
        QFETCH(bool, byALink);
        QVERIFY(QFile::link(m_file, path("link.ini")));
        QVERIFY(write(m_file, "[texts]\ntext=old\n\n[group]\nold=1\n"));
        const QString file = byALink ? path("link.ini") : m_file;
        ScriptedSettings reader(file);
        QStringList read;
        reader.onRead = [&read](QSettings& open) {
            read.append(open.value(QStringLiteral("old")).toString() +
                        open.value(QStringLiteral("new")).toString());
        };
        ScriptedSettings settings(m_file);
        settings.onWrite = [&](QSettings& open) {
            reader.readSettings();
            open.setValue(QStringLiteral("new"), 2);
            reader.readSettings();
            read.append(textIn(file));
            writeText(m_file, QStringLiteral("inner"));
            read.append(textIn(file));
            open.setValue(QStringLiteral("new"), 3);
            reader.readSettings();
        };
        settings.writeSettings();
        QCOMPARE(read,
                 (QStringList{QStringLiteral("1"), QStringLiteral("12"), QStringLiteral("old"),
                              QStringLiteral("inner"), QStringLiteral("13")}));
        QCOMPARE(contentOf(m_file), QByteArray("[group]\nnew=3\nold=1\n\n[texts]\ntext=inner\n"));
    }

    void aReadWithinTheFirstWriteReadsDefaultIni()
    {
        QVERIFY(write(m_defaults, "[texts]\ntext=installed\n"));
        ScriptedSettings settings(m_file);
        QStringList read;
        settings.onWrite = [&](QSettings& open) {
            open.setValue(QStringLiteral("key"), 1);
            read.append(textIn(m_file));
            writeText(m_file, QStringLiteral("inner"));
            read.append(textIn(m_file));
        };
        settings.writeSettings();
        QCOMPARE(read, (QStringList{QStringLiteral("installed"), QStringLiteral("inner")}));
        QCOMPARE(textIn(m_file), QStringLiteral("inner"));
    }

    void aReadWithinTheFirstWriteSeesItWhereThereIsNoDefaultIni()
    {
        ScriptedSettings settings(m_file, QStringLiteral("texts"));
        QString read;
        settings.onWrite = [&](QSettings& open) {
            open.setValue(QStringLiteral("text"), QStringLiteral("mine"));
            read = textIn(m_file);
        };
        settings.writeSettings();
        QCOMPARE(read, QStringLiteral("mine"));
    }

    void anExceptionLeavesWhatWasWrittenWithin()
    {
        QVERIFY(write(m_file, "[group]\nkey=old\n"));
        ScriptedSettings settings(m_file);
        settings.onWrite = [this](QSettings& open) {
            open.setValue(QStringLiteral("key"), 1);
            writeText(m_file, QStringLiteral("inner"));
            open.setValue(QStringLiteral("more"), 2);
            throw std::runtime_error("none of mine");
        };
        QVERIFY_EXCEPTION_THROWN(settings.writeSettings(), std::runtime_error);
        QCOMPARE(contentOf(m_file), QByteArray("[group]\nkey=old\n\n[texts]\ntext=inner\n"));
        writeText(m_file, QStringLiteral("next")); // nothing is left open
        QCOMPARE(contentOf(m_file), QByteArray("[group]\nkey=old\n\n[texts]\ntext=next\n"));
        QCOMPARE(QDir(m_directory->path()).entryList(QDir::Files | QDir::Hidden),
                 QStringList(QStringLiteral("kest.ini")));
    }

    void anExceptionWithinLeavesWhatIsWrittenAround()
    {
        QVERIFY(write(m_file, "[inner]\na=old\nb=old\n"));
        ScriptedSettings inner(m_file, QStringLiteral("inner"));
        inner.onWrite = [](QSettings& open) {
            open.setValue(QStringLiteral("a"), 1);
            open.setValue(QStringLiteral("c"), 1);
            open.remove(QStringLiteral("b"));
            throw std::runtime_error("none of mine");
        };
        ScriptedSettings settings(m_file);
        settings.onWrite = [&inner](QSettings& open) {
            open.setValue(QStringLiteral("before"), 1);
            QVERIFY_EXCEPTION_THROWN(inner.writeSettings(), std::runtime_error);
            open.setValue(QStringLiteral("behind"), 2);
        };
        settings.writeSettings();
        QCOMPARE(contentOf(m_file),
                 QByteArray("[group]\nbefore=1\nbehind=2\n\n[inner]\na=old\nb=old\n"));
    }

    void writesWithinEachOtherLeaveTheFileAsItWasOnAFullDisk_data()
    {
        QTest::addColumn<int>("limit");
        QTest::addColumn<int>("failures");
        QTest::newRow("no room at all") << 0 << 1; // nothing begins that others could be within
        QTest::newRow("up to a value") << 200 << 2;
        QTest::newRow("one block") << 4096 << 2;
    }

    void writesWithinEachOtherLeaveTheFileAsItWasOnAFullDisk()
    {
        QFETCH(int, limit);
        QFETCH(int, failures);
        const QByteArray before = "[texts]\ntext=old\n";
        QVERIFY(write(m_file, before));
        SettingsProcess writer({QStringLiteral("write-within-limited"), m_file,
                                QString::number(limit), QStringLiteral("60000")});
        QVERIFY(writer.hasEndedWell());
        QCOMPARE(contentOf(m_file), before);
        const QString log = QString::fromUtf8(writer.readAllStandardError());
        QCOMPARE(log.count(QLatin1Char('\n')), failures);
        QCOMPARE(log.count(m_file + QStringLiteral(" was not written")), failures);
        QCOMPARE(QDir(m_directory->path()).entryList(QDir::Files | QDir::Hidden),
                 QStringList(QStringLiteral("kest.ini")));
    }

    void aDamagedFileIsKeptOnceWhateverIsWrittenWithin()
    {
        const QByteArray content = "[texts]\njunk\nelse=1\n";
        QVERIFY(write(m_file, content));
        const LogCatcher log;
        ScriptedSettings settings(m_file);
        settings.onWrite = [this](QSettings& open) {
            writeText(m_file, QStringLiteral("inner"));
            open.setValue(QStringLiteral("key"), 1);
        };
        settings.writeSettings();
        QCOMPARE(LogCatcher::lines().size(), 1);
        QCOMPARE(contentOf(m_file + QStringLiteral(".damaged")), content);
        QCOMPARE(contentOf(m_file), QByteArray("[group]\nkey=1\n\n[texts]\nelse=1\ntext=inner\n"));
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
        if ((kind == S_IFCHR || kind == S_IFBLK) && ::geteuid() != 0) {
            QTest::qSkip("only the administrator makes devices", __FILE__, __LINE__);
            return;
        }
        const QString special = linked ? path("special") : m_file;
        QVERIFY(SpecialFile::make(kind, special));
        QVERIFY(!linked || QFile::link(special, m_file));
        QVERIFY(write(m_defaults, "[texts]\ntext=installed\n"));
        const LogCatcher log;
        QElapsedTimer timer;
        timer.start();
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
        QVERIFY(SpecialFile::make(S_IFIFO, m_defaults));
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
        QVERIFY(SpecialFile::make(S_IFIFO, guard));
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
        QElapsedTimer timer;
        timer.start();
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
        QVERIFY(LogCatcher::lines().constFirst().contains(m_defaults));
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

private:
    QString path(const char* name) const { return m_directory->filePath(QLatin1String(name)); }

    std::unique_ptr<QTemporaryDir> m_directory;
    std::unique_ptr<FakeApplicationInfo> m_info;
    QString m_file;
    QString m_defaults;
};

QTEST_GUILESS_MAIN(tst_common_settings)

#include "tst_common_settings.moc"
