#include "MachinesFile.h"
#include "SuiteRun.h"

#include <ReadingTime.h>
#include <Text.h>

#include <QTemporaryDir>
#include <QtTest>

#include <ctime>

using suite::MachinesFile;

// Machines files, good ones and bad ones.
class tst_machines_file : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void goodFile_data();
    void goodFile();
    void badLine_data();
    void badLine();
    void badFile_data();
    void badFile();
    void copyIsCalledAsWhatItWasMadeOf_data();
    void copyIsCalledAsWhatItWasMadeOf();
    void errorsAreLimited();
    void processesAreDealtOutInTheOrderOfTheFile();
    void hugeFilesAreReadInTime_data();
    void hugeFilesAreReadInTime();
    void timeGrowsWithTheSize_data() { ReadingTime::addPieces(); }
    void timeGrowsWithTheSize();
};

namespace {

QString written(const MachinesFile& file)
{
    QStringList result;
    for (const MachinesFile::Entry& entry : file.entries()) {
        result.append(QStringLiteral("%1=%2").arg(entry.host).arg(entry.count));
    }
    return result.join(QLatin1Char(' '));
}

} // namespace

void tst_machines_file::goodFile_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("entries");
    QTest::addColumn<int>("total");
    QTest::newRow("one") << QByteArray("node1:4\n") << text("node1=4") << 4;
    QTest::newRow("no last line end") << QByteArray("a:1\nb:2") << text("a=1 b=2") << 3;
    QTest::newRow("line ends of Windows")
        << QByteArray("a:1\r\n\r\nb:2\r\n") << text("a=1 b=2") << 3;
    QTest::newRow("byte order mark") << QByteArray("\xef\xbb\xbf"
                                                   "a:1\n")
                                     << text("a=1") << 1;
    QTest::newRow("comments and blanks")
        << QByteArray("# first\n\n  \n a:2 # why\n\tb : 3\t\n#c:9\n") << text("a=2 b=3") << 5;
    QTest::newRow("without a count")
        << QByteArray("node2\nnode3:\n") << text("node2=1 node3=1") << 2;
    QTest::newRow("twice") << QByteArray("a:1\nb:2\na:3\n") << text("a=4 b=2") << 6;
    QTest::newRow("addresses") << QByteArray("10.0.0.1:2\n[fe80::1]:3\n[::1]\n")
                               << text("10.0.0.1=2 fe80::1=3 ::1=1") << 6;
    QTest::newRow("all characters")
        << QByteArray("A-z_0.example-1.org:1\n") << text("A-z_0.example-1.org=1") << 1;
    QTest::newRow("as many as possible")
        << QByteArray("a:4000\nb:96\n") << text("a=4000 b=96") << 4096;
}

void tst_machines_file::goodFile()
{
    QFETCH(QByteArray, content);
    const MachinesFile file = MachinesFile::parse(content, text("m"));
    QCOMPARE(file.errors(), QStringList());
    QTEST(written(file), "entries");
    QTEST(file.total(), "total");
}

void tst_machines_file::badLine_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("reason");
    const QString count = text("the number of processes must be 1 to 4096");
    const QString host = text("this is no host's name or address");
    for (const char* line : {"a:0", "a:-1", "a:+1", "a:many", "a:1.5", "a:4097", "a:99999999999999",
                             "a:1:2", "a:0x10", "a:1 2", "[::1]:0", "a:\xd9\xa3"}) {
        QTest::newRow(line) << QByteArray(line) << count;
    }
    for (const char* line : {"-oProxyCommand=x:1",
                             "-x",
                             "a b:1",
                             "a;b:1",
                             "$(x):1",
                             "`x`:1",
                             "a|b",
                             "a/b:1",
                             "a\"b:1",
                             "a'b:1",
                             "a&b:1",
                             "us\xc3\xa9:1",
                             ":3",
                             "[]:1",
                             "[a]:1",
                             "[::1",
                             "[::1]x:1",
                             "[-::1]:1",
                             "user@a:1",
                             "a,b:1",
                             "a\\b:1",
                             "a*:1",
                             "[::1]2"}) {
        QTest::newRow(line) << QByteArray(line) << host;
    }
    QTest::newRow("too long") << QByteArray(256, 'a') << host;
    QTest::newRow("binary") << QByteArray("a\0b:1", 5) << text("the file holds binary data");
}

void tst_machines_file::badLine()
{
    QFETCH(QByteArray, line);
    QFETCH(QString, reason);
    const MachinesFile file = MachinesFile::parse("# c\n" + line + "\nb:1\n", text("m.kest"));
    QCOMPARE(file.errors().size(), 1);
    const QString error = file.errors().first();
    QVERIFY2(error.startsWith(text("the machines file 'm.kest' has in line 2 '")),
             qPrintable(error));
    QVERIFY2(error.endsWith(reason), qPrintable(error));
    QVERIFY(error.size() < 250);
}

void tst_machines_file::badFile_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("reason");
    QTest::newRow("empty") << text("m") << QByteArray() << text("names no host");
    QTest::newRow("only comments") << text("m") << QByteArray("# a:1\n\n") << text("names no host");
    QTest::newRow("too many") << text("m") << QByteArray("a:4096\nb:1\n")
                              << text("counts 4097 processes and the limit is 4096");
    QTest::newRow("too many of one host")
        << text("m") << QByteArray("a:4096\na:4096\na:1\n") << text("the limit is 4096");
    QTest::newRow("missing") << text("none") << QByteArray() << text("does not exist");
    QTest::newRow("directory") << text(".") << QByteArray() << text("it is a folder");
    QTest::newRow("device") << text("/dev/zero") << QByteArray()
                            << text("it is not a regular file");
}

void tst_machines_file::badFile()
{
    QFETCH(QString, path);
    QFETCH(QByteArray, content);
    QFETCH(QString, reason);
    const QTemporaryDir folder;
    QVERIFY(!writeFile(folder.path(), text("m"), content).isEmpty());
    const MachinesFile file(QDir(folder.path()).filePath(path));
    QCOMPARE(file.errors().size(), 1);
    QVERIFY2(file.errors().first().contains(reason), qPrintable(file.errors().first()));
}

void tst_machines_file::copyIsCalledAsWhatItWasMadeOf_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("hasOwn");
    QTest::addColumn<QString>("called"); // HOME and USER are folders
    QTest::newRow("the user's") << text("gui_tmp_machfile_7") << true << text("USER/machines.kest");
    QTest::newRow("the installation's")
        << text("gui_tmp_machfile_999") << false << text("HOME/shared/mpi/machines.kest");
    QTest::newRow("another file") << text("gui_tmp_machfile_1000") << true
                                  << text("gui_tmp_machfile_1000");
    QTest::newRow("a name that goes on")
        << text("gui_tmp_machfile_7.old") << true << text("gui_tmp_machfile_7.old");
}

// A front end hands over a copy, of whose name the user knows nothing.
void tst_machines_file::copyIsCalledAsWhatItWasMadeOf()
{
    QFETCH(QString, name);
    QFETCH(bool, hasOwn);
    QFETCH(QString, called);
    const QTemporaryDir folder;
    QVERIFY(qputenv("KEST_HOME", "/some installation"));
    QVERIFY(!writeFile(folder.path(), name, "# a:1\n").isEmpty());
    if (hasOwn) {
        QVERIFY(!writeFile(folder.path(), text("machines.kest"), "").isEmpty());
    }
    const MachinesFile file(folder.filePath(name));
    called.replace(text("USER"), folder.path()).replace(text("HOME"), text("/some installation"));
    QCOMPARE(file.errors(),
             QStringList(QStringLiteral("the machines file '%1' names no host, add a line such as "
                                        "'localhost:2' for this machine")
                             .arg(called)));
}

void tst_machines_file::errorsAreLimited()
{
    const MachinesFile file = MachinesFile::parse(QByteArray("a:0\n").repeated(1000), text("m"));
    QCOMPARE(file.errors().size(), 10);
}

void tst_machines_file::processesAreDealtOutInTheOrderOfTheFile()
{
    const MachinesFile file = MachinesFile::parse("a:2\nb:1\na:1\nc\n", text("m"));
    QString hosts;
    for (int rank = 0; rank < 7; ++rank) {
        hosts += file.hostOf(rank);
    }
    QCOMPARE(hosts, text("aaabcaa"));
    QCOMPARE(file.plainContent(), QByteArray("a:3\nb:1\nc:1\n"));
}

void tst_machines_file::hugeFilesAreReadInTime_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<bool>("isGood");
    QTest::newRow("a million comments") << QByteArray("# node\n").repeated(1000000) + "a:1" << true;
    QTest::newRow("a million lines of one host")
        << QByteArray("node1:1\n").repeated(1000000) << false;
    QByteArray hosts;
    for (int i = 0; i < 1000000; ++i) {
        hosts += "node" + QByteArray::number(i) + ":1\n";
    }
    QTest::newRow("a million hosts") << hosts << false;
    QTest::newRow("a line of 1 MB") << QByteArray(1 << 20, 'x') << false;
    QTest::newRow("a comment of 1 MB") << "a:1 #" + QByteArray(1 << 20, 'x') << true;
}

void tst_machines_file::hugeFilesAreReadInTime()
{
    QFETCH(QByteArray, content);
    QFETCH(bool, isGood);
    const std::clock_t begin = std::clock();
    const MachinesFile file = MachinesFile::parse(content, text("m"));
    const std::clock_t taken = std::clock() - begin; // of this process, whatever else runs
    QVERIFY2(taken < 5 * CLOCKS_PER_SEC, qPrintable(QString::number(taken)));
    QCOMPARE(file.errors().isEmpty(), isGood);
}

void tst_machines_file::timeGrowsWithTheSize()
{
    QFETCH(QByteArray, piece);
    const auto read = [](const QByteArray& bytes) { MachinesFile::parse(bytes, text("m")); };
    QCOMPARE(ReadingTime::problem(read, piece), QString());
}

QTEST_GUILESS_MAIN(tst_machines_file)
#include "tst_machines_file.moc"
