// SPDX-License-Identifier: MIT
#include "MachinesHomes.h"

#include <BoxReader.h>
#include <SettingsFolders.h>
#include <SpecialFile.h>

#include <QApplication>
#include <QtTest>

#include <ctime>
#include <limits>
#include <memory>

namespace {

QString openFailure(const QString& path)
{
    QFile file(path);
    file.open(QIODevice::ReadOnly);
    return QStringLiteral("Could not open the following file :\n") +
           QDir::toNativeSeparators(path) + QStringLiteral(".\nReason: ") + file.errorString();
}

QByteArray repeated(const char* line, int count)
{
    return QByteArray(line).repeated(count);
}

} // namespace

class tst_common_MachineFileFinder_validation : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_reader = std::make_unique<BoxReader>(); }

    void cleanup() { QCOMPARE(m_reader->take().size(), 0); }

    void parsesAndCounts_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("entries"); // between bars
        QTest::addColumn<int>("processes");
        // clang-format off
        row("example",                 "node1:4\nnode2\n# spare:8\n",  "|node1:4|node2|",      5);
        row("empty",                   "",                             "|",                    -1);
        row("line end only",           "\n",                           "|",                    -1);
        row("comments and blanks",     "# a:1\n\n   \n\t\n  # b\n#\n", "|",                    -1);
        row("no last line end",        "a:2\nb:3",                     "|a:2|b:3|",            5);
        row("empty lines between",     "a\n\n\n\nb\n",                 "|a|b|",                2);
        row("comment behind an entry", "node1:2 # fast\n",             "|node1:2 |",           2);
        row("comment at an entry",     "node1:2#fast",                 "|node1:2|",            2);
        row("two number signs",        "a:2#b:3#c:4\n",                "|a:2|",                2);
        row("count in the comment",    "a#:7\n",                       "|a|",                  1);
        row("indented",                "  a:2\n\tb\n",                 "|  a:2|\tb|",          3);
        row("Windows line ends",       "a:2\r\nb\r\n\r\n#c\r\nd:3\r\n", "|a:2\r|b\r|d:3\r|",   6);
        row("carriage return alone",   "\r",                           "|",                    -1);
        row("byte order mark",         "\xef\xbb\xbf" "a:2\nb:3\n",    "|a:2|b:3|",            5);
        row("mark before a comment",   "\xef\xbb\xbf# a:2\nb:3\n",     "|b:3|",                3);
        row("mark alone",              "\xef\xbb\xbf",                 "|",                    -1);
        row("umlaut",                  "n\xc3\xb6" "de:2\n",           "|n\xc3\xb6" "de:2|",   2);
        row("twice the same host",     "a:2\na:2\na\n",                "|a:2|a:2|a|",          5);
        row("nothing behind the colon", "a:\n",                        "|a:|",                 1);
        row("word for a count",        "a:many\n",                     "|a:many|",             0);
        row("digits and a word",       "a:4x\n",                       "|a:4x|",               0);
        row("fraction",                "a:1.5\n",                      "|a:1.5|",              0);
        row("hexadecimal",             "a:0x10\n",                     "|a:0x10|",             0);
        row("leading zero",            "a:010\n",                      "|a:010|",              10);
        row("blanks around the count", "a: 3 \n",                      "|a: 3 |",              3);
        row("blank for a count",       "a: \n",                        "|a: |",                0);
        row("zero",                    "a:0\n",                        "|a:0|",                0);
        row("negative",                "a:-3\nb:5\n",                  "|a:-3|b:5|",           2);
        row("negative in all",         "a:-3\n",                       "|a:-3|",               -3);
        row("largest",                 "a:2147483647\n",               "|a:2147483647|",       2147483647);
        row("too large",               "a:2147483648\nb\n",            "|a:2147483648|b|",     1);
        row("far too large",           "a:99999999999999999999\nb:2\n", "|a:99999999999999999999|b:2|", 2);
        row("count without a host",    ":4\n",                         "|:4|",                 1);
        row("colon only",              ":\n",                          "|:|",                  1);
        row("two colons",              "a::4\n",                       "|a::4|",               4);
        row("three parts",             "a:2:9\n",                      "|a:2:9|",              2);
        row("IPv4",                    "10.0.0.1:4\n",                 "|10.0.0.1:4|",         4);
        row("IPv6 of this host",       "::1\n",                        "|::1|",                1);
        row("IPv6 with letters",       "fe80::a:1\n",                  "|fe80::a:1|",          0);
        row("IPv6 with digits",        "fe80::7:1\n",                  "|fe80::7:1|",          7);
        row("IPv6 in brackets",        "[::1]:4\n",                    "|[::1]:4|",            0);
        row("option for a host",       "-o x:2\n",                     "|-o x:2|",             2);
        row("shell characters",        "$(x);`y`:2\n",                 "|$(x);`y`:2|",         2);
        // clang-format on
    }

    void parsesAndCounts()
    {
        QFETCH(QByteArray, content);
        QFETCH(QString, entries);
        QFETCH(int, processes);
        const Homes homes;
        QVERIFY(SettingsFolders::write(homes.userFile(), content));
        Finder finder;
        QCOMPARE(finder.parseMachinesFile(), entries.split(QLatin1Char('|'), Qt::SkipEmptyParts));
        QCOMPARE(finder.getProcesses(), processes);
        QVERIFY(finder.isValid());
    }

    void readsBehindAZero()
    {
        const Homes homes;
        QVERIFY(SettingsFolders::write(homes.userFile(), QByteArray("a:2\nb\0c:3\nd:4\n", 14)));
        Finder finder;
        QCOMPARE(finder.getProcesses(), 9);
        QCOMPARE(finder.parseMachinesFile(),
                 (QStringList{QStringLiteral("a:2"), QString::fromUtf8("b\0c:3", 5),
                              QStringLiteral("d:4")}));
    }

    void endsAtTheLargestSumThatThereIs_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<int>("processes");
        QTest::newRow("just fits")
            << QByteArray("a:2147483646\nb\n") << std::numeric_limits<int>::max();
        QTest::newRow("too large")
            << QByteArray("a:2147483647\nb:2147483647\nc\n") << std::numeric_limits<int>::max();
        QTest::newRow("comes back")
            << QByteArray("a:2147483647\nb:3\nc:-4\n") << std::numeric_limits<int>::max() - 1;
        QTest::newRow("too small")
            << QByteArray("a:-2147483648\nb:-2147483648\n") << std::numeric_limits<int>::min();
    }

    void endsAtTheLargestSumThatThereIs()
    {
        QFETCH(QByteArray, content);
        QFETCH(int, processes);
        const Homes homes;
        QVERIFY(SettingsFolders::write(homes.userFile(), content));
        QCOMPARE(Finder().getProcesses(), processes);
    }

    // Of quadratic time, ten times the lines would take a hundred times as much.
    void readsAMillionLinesFast()
    {
        const Homes homes;
        const auto timeFor = [&homes](int lines) {
            SettingsFolders::write(homes.userFile(), repeated("node:2 # x\n", lines));
            const std::clock_t begin = std::clock();
            const Finder finder;
            return finder.getProcesses() == 2 * lines ? std::clock() - begin : std::clock_t(-1);
        };
        const std::clock_t few = timeFor(100000);
        const std::clock_t many = timeFor(1000000);
        QVERIFY(few > 0);
        QVERIFY(many > 0);
        QVERIFY2(many < 40 * few, qPrintable(QStringLiteral("%1 and %2").arg(few).arg(many)));
    }

    void readsALineOfAMegabyte()
    {
        const Homes homes;
        const QByteArray host(1 << 20, 'x');
        QVERIFY(SettingsFolders::write(homes.userFile(), host + ":3\n" + host + "\n"));
        Finder finder;
        QCOMPARE(finder.getProcesses(), 4);
        QCOMPARE(finder.parseMachinesFile(),
                 (QStringList{QString::fromLatin1(host) + QStringLiteral(":3"),
                              QString::fromLatin1(host)}));
    }

    void countsAgainWhenAsked()
    {
        const Homes homes;
        QVERIFY(SettingsFolders::write(homes.userFile(), "a:2\n"));
        Finder finder;
        QVERIFY(SettingsFolders::write(homes.userFile(), "a:2\nb:3\n"));
        QCOMPARE(finder.getProcesses(), 2);
        QCOMPARE(finder.parseMachinesFile().size(), 2);
        QCOMPARE(finder.getProcesses(), 2);
        finder.determineProcesses();
        QCOMPARE(finder.getProcesses(), 5);
        QVERIFY(SettingsFolders::write(homes.userFile(), "#\n"));
        finder.determineProcesses();
        QCOMPARE(finder.getProcesses(), -1);
    }

    void staysWithWhatItFound()
    {
        const Homes homes;
        Finder before;
        QVERIFY(SettingsFolders::write(homes.userFile(), "a:2\n"));
        before.determineProcesses();
        QVERIFY(!before.isValid());
        QCOMPARE(before.getProcesses(), -1);
        QVERIFY(Finder().isValid());
    }

    void tellsWhyTheFileCannotBeOpened_data()
    {
        QTest::addColumn<bool>("isLocal");
        QTest::newRow("user's") << true;
        QTest::newRow("installation's") << false;
    }

    void tellsWhyTheFileCannotBeOpened()
    {
        QFETCH(bool, isLocal);
        const Homes homes;
        const QString path = isLocal ? homes.userFile() : homes.installationFile();
        QVERIFY(QDir().mkdir(path));
        Finder finder;
        QVERIFY(finder.isValid());
        QCOMPARE(finder.isLocalFile(), isLocal);
        QCOMPARE(finder.getProcesses(), -1);
        verifyError(QStringLiteral("Open failed"), openFailure(path));
        QCOMPARE(finder.parseMachinesFile(), QStringList());
        verifyError(QStringLiteral("Open failed"), openFailure(path));
    }

    void tellsThatAPipeOrADeviceIsNoFile_data()
    {
        QTest::addColumn<bool>("isPipe");
        QTest::newRow("pipe") << true;
        QTest::newRow("device without end") << false;
    }

    void tellsThatAPipeOrADeviceIsNoFile()
    {
        QFETCH(bool, isPipe);
        const Homes homes;
        const QString path = homes.userFile();
        if (isPipe) {
            SPECIAL_FILE_OR_SKIP(S_IFIFO, path);
        } else {
            DEVICE_LINK_OR_SKIP("/dev/zero", path);
        }
        QVERIFY(SettingsFolders::write(homes.installationFile(), "a:2\n"));
        Finder finder;
        QVERIFY(finder.isValid());
        QVERIFY(finder.isLocalFile());
        QCOMPARE(finder.getProcesses(), -1);
        verifyError(QStringLiteral("Open failed"),
                    QStringLiteral("Could not open the following file :\n%1.\nReason: it is not a "
                                   "regular file")
                        .arg(path));
    }

    void tellsOfAFileThatHasGone()
    {
        const Homes homes;
        QVERIFY(SettingsFolders::write(homes.userFile(), "a:2\n"));
        Finder finder;
        QVERIFY(QFile::remove(homes.userFile()));
        finder.determineProcesses();
        QCOMPARE(finder.getProcesses(), -1);
        verifyError(QStringLiteral("Open failed"), openFailure(homes.userFile()));
    }

    void keepsPercentSignsOfThePathInTheText()
    {
        const Homes homes;
        const QString folder = homes.path() + QStringLiteral("/%1%2");
        const Variable user("KEST_USER_HOME", folder);
        const QString path = folder + QStringLiteral("/machines.kest");
        QVERIFY(QDir().mkpath(path));
        const Finder finder;
        verifyError(QStringLiteral("Open failed"), openFailure(path));
    }

    void namesTheAbsolutePathOfAFileInARelativeFolder()
    {
        const Homes homes;
        const QString before = QDir::currentPath();
        QVERIFY(QDir::setCurrent(homes.path()));
        const Variable user("KEST_USER_HOME", QStringLiteral("user"));
        QVERIFY(QDir().mkpath(homes.userFile()));
        const QString path = QDir::currentPath() + QStringLiteral("/user/machines.kest");
        const Finder finder;
        QVERIFY(QDir::setCurrent(before));
        verifyError(QStringLiteral("Open failed"), openFailure(path));
    }

    void checksVariables_data()
    {
        QTest::addColumn<QString>("value");
        QTest::addColumn<bool>("isSet");
#ifdef Q_OS_WIN // where it stays as it is
        const bool isUnknownKept = true;
#else
        const bool isUnknownKept = false;
#endif
        // clang-format off
        QTest::newRow("value")                 << QStringLiteral("x")                  << true;
        QTest::newRow("blank")                 << QStringLiteral(" ")                  << true;
        QTest::newRow("reference to a value")  << QStringLiteral("${KEST_USER_HOME}")  << true;
        QTest::newRow("empty")                 << QString(QLatin1String(""))                   << false;
        QTest::newRow("reference to nothing")  << QStringLiteral("${KEST_TEST_NONE}")  << isUnknownKept;
        QTest::newRow("unset")                 << QString()                            << false;
        // clang-format on
    }

    void checksVariables()
    {
        QFETCH(QString, value);
        QFETCH(bool, isSet);
        const Homes homes;
        const Variable variable("KEST_TEST_CHECKED");
        if (!value.isNull()) {
            qputenv("KEST_TEST_CHECKED", value.toLocal8Bit());
        }
        Finder finder;
        QCOMPARE(finder.checkEnv(QStringLiteral("KEST_TEST_CHECKED")), isSet);
        if (!isSet) {
            verifyError(QStringLiteral("No such environment variable"),
                        QStringLiteral("Please set the environment variable KEST_TEST_CHECKED "
                                       "before proceeding."));
        }
    }

    void printsWhatItTellsWhenNobodyIsThere()
    {
        const Homes homes;
        QVERIFY(QDir().mkdir(homes.userFile()));
        QProcess process;
        Child::start(process, QStringLiteral("check"), homes.path());
        QVERIFY(process.waitForFinished());
        QCOMPARE(process.exitCode(), 0);
        QCOMPARE(QString::fromUtf8(unixLines(process.readAllStandardError())),
                 QStringLiteral("Open failed\n") + openFailure(homes.userFile()) +
                     QStringLiteral("\nNo such environment variable\n"
                                    "Please set the environment variable KEST_TEST_NONE before "
                                    "proceeding.\n"));
    }

private:
    static void row(const char* name, const char* content, const char* entries, int processes)
    {
        QTest::newRow(name) << QByteArray(content) << QString::fromUtf8(entries) << processes;
    }

    void verifyError(const QString& title, const QString& text)
    {
        const QVector<BoxReader::Box> boxes = m_reader->take();
        QCOMPARE(boxes.size(), 1);
        QCOMPARE(boxes[0].title, title);
        QCOMPARE(boxes[0].text, text);
        QCOMPARE(boxes[0].details, QString());
        QCOMPARE(boxes[0].icon, QMessageBox::Critical);
        QVERIFY(!boxes[0].parent);
    }

    std::unique_ptr<BoxReader> m_reader;
};

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    if (!Child::deed().isEmpty()) {
        const FakeApplication service(true);
        return Finder().checkEnv(QStringLiteral("KEST_TEST_NONE")) ? 1 : 0;
    }
    tst_common_MachineFileFinder_validation test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_common_MachineFileFinder_validation.moc"
