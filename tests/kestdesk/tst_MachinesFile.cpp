#include <MachinesFile.h>
#include <ReadingTime.h>

#include <QDir>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QtTest>

#include <sys/stat.h>

namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

QString shownEntries(const MachinesFile& file)
{
    QStringList result;
    for (const MachinesFile::Entry& entry : file.entries()) {
        result.append(
            QStringLiteral("%1 %2 %3").arg(entry.line).arg(entry.host).arg(entry.processes));
    }
    return result.join(QLatin1String(", "));
}

QString shownFindings(const MachinesFile& file)
{
    static const char* const severities[] = {"note", "warning", "error"};
    QStringList result;
    for (const MachinesFile::Finding& finding : file.findings()) {
        result.append(QStringLiteral("%1 %2 [%3] %4")
                          .arg(finding.line)
                          .arg(text(severities[static_cast<int>(finding.severity)]), finding.text,
                               finding.reason));
    }
    return result.join(QLatin1String("; "));
}

QByteArray million(const char* line)
{
    return (QByteArray(line) + '\n').repeated(1000000);
}

} // namespace

class tst_MachinesFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void linesThatAreRightAreEntries_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("entries"); // line, host and count
        // clang-format off
        QTest::newRow("host and count")   << QByteArray("node1:4\n")                    << "1 node1 4";
        QTest::newRow("host alone")       << QByteArray("node1\n")                      << "1 node1 1";
        QTest::newRow("empty count")      << QByteArray("node1:\n")                     << "1 node1 1";
        QTest::newRow("no last line end") << QByteArray("node1:2\nnode2:3")             << "1 node1 2, 2 node2 3";
        QTest::newRow("blank lines")      << QByteArray("\n  \n\t\nnode1\n\n")          << "4 node1 1";
        QTest::newRow("comments")         << QByteArray("#a:1\nnode1:2 # b:3\n # c\n")  << "2 node1 2";
        QTest::newRow("blanks around")    << QByteArray("  node1:2\t \n")               << "1 node1 2";
        QTest::newRow("all characters")   << QByteArray("Az09._-x:1\n")                 << "1 Az09._-x 1";
        QTest::newRow("address")          << QByteArray("10.0.0.1:2\n")                 << "1 10.0.0.1 2";
        QTest::newRow("largest count")    << QByteArray("a:4096\n")                     << "1 a 4096";
        QTest::newRow("leading zeros")    << QByteArray("a:007\n")                      << "1 a 7";
        QTest::newRow("comment at once")  << QByteArray("a:2#b\n")                      << "1 a 2";
        QTest::newRow("longest name")     << QByteArray(255, 'a')                       << text("1 ") + QString(255, QLatin1Char('a')) + text(" 1");
        // clang-format on
    }

    void linesThatAreRightAreEntries()
    {
        QFETCH(QByteArray, content);
        QFETCH(QString, entries);
        const MachinesFile file = MachinesFile::parse(content);
        QCOMPARE(shownEntries(file), entries);
        QCOMPARE(shownFindings(file), QString());
        QVERIFY(file.isRight());
    }

    void whatIsWrongIsNamedWithItsLine_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("findings");
        // clang-format off
        QTest::newRow("word as count")       << QByteArray("a\nb:many\n")      << "2 error [b:many] \"many\" is no number of processes";
        QTest::newRow("sign")                << QByteArray("a:+2\n")           << "1 error [a:+2] \"+2\" is no number of processes";
        QTest::newRow("blank before count")  << QByteArray("a: 2\n")           << "1 error [a: 2] \" 2\" is no number of processes";
        QTest::newRow("other digits")        << QByteArray("a:\xd9\xa3\n")     << QString::fromUtf8("1 error [a:\xd9\xa3] \"\xd9\xa3\" is no number of processes");
        QTest::newRow("minus alone")         << QByteArray("a:-\n")            << "1 error [a:-] \"-\" is no number of processes";
        QTest::newRow("zero")                << QByteArray("a:0\n")            << "1 error [a:0] the number of processes is 0";
        QTest::newRow("negative")            << QByteArray("a:-3\n")           << "1 error [a:-3] the number of processes is negative";
        QTest::newRow("very negative")       << QByteArray("a:-99999999999\n") << "1 error [a:-99999999999] the number of processes is negative";
        QTest::newRow("too many")            << QByteArray("a:4097\n")         << "1 error [a:4097] more than 4096 processes on one host";
        QTest::newRow("beyond an integer")   << QByteArray("a:99999999999\n")  << "1 error [a:99999999999] more than 4096 processes on one host";
        QTest::newRow("two counts")          << QByteArray("a:1:2\n")          << "1 error [a:1:2] more than one \":\"; an address of IPv6 stands in brackets";
        QTest::newRow("bare IPv6")           << QByteArray("fe80::1\n")        << "1 error [fe80::1] more than one \":\"; an address of IPv6 stands in brackets";
        QTest::newRow("option")              << QByteArray("-oProxyCommand=x\n") << "1 error [-oProxyCommand=x] the name of a host does not begin with \"-\"";
        QTest::newRow("option in brackets")  << QByteArray("[-o]:1\n")         << "1 error [[-o]:1] the name of a host does not begin with \"-\"";
        QTest::newRow("shell command")       << QByteArray("$(reboot)\n")      << "1 error [$(reboot)] \"$\" is not allowed in the name of a host";
        QTest::newRow("semicolon")           << QByteArray("a;b:2\n")          << "1 error [a;b:2] \";\" is not allowed in the name of a host";
        QTest::newRow("user")                << QByteArray("me@a\n")           << "1 error [me@a] \"@\" is not allowed in the name of a host";
        QTest::newRow("blank inside")        << QByteArray("a b:2\n")          << "1 error [a b:2] a blank is not allowed in the name of a host";
        QTest::newRow("control character")   << QByteArray("a\x1b[2J\n")       << QString::fromUtf8("1 error [a\x1b[2J] the control character 27 is not allowed in the name of a host");
        QTest::newRow("delete character")    << QByteArray("a\x7f\n")         << text("1 error [a\x7f] the control character 127 is not allowed in the name of a host");
        QTest::newRow("as long as is shown") << QByteArray(59, 'a') + "!"      << text("1 error [") + QString(59, QLatin1Char('a')) + text("!] \"!\" is not allowed in the name of a host");
        QTest::newRow("lone carriage return") << QByteArray("a:1\rb\n")        << QString::fromUtf8("1 error [a:1\rb] \"1\rb\" is no number of processes");
        QTest::newRow("other letters")       << QByteArray("h\xc3\xb6st\n")    << QString::fromUtf8("1 error [h\xc3\xb6st] \"\xc3\xb6\" is not allowed in the name of a host");
        QTest::newRow("mark at the end")     << QByteArray("a\xef\xbb\xbf\n")   << QString::fromUtf8("1 error [a\xef\xbb\xbf] a byte order mark is not allowed in the name of a host");
        QTest::newRow("mark inside a name")  << QByteArray("a\xef\xbb\xbf" "b\n") << QString::fromUtf8("1 error [a\xef\xbb\xbf" "b] a byte order mark is not allowed in the name of a host");
        QTest::newRow("beyond the plane")    << QByteArray("\xf0\x9f\x98\x80\n") << QString::fromUtf8("1 error [\xf0\x9f\x98\x80] \"\xf0\x9f\x98\x80\" is not allowed in the name of a host");
        QTest::newRow("count alone")         << QByteArray(":4\n")             << "1 error [:4] the name of the host is missing";
        QTest::newRow("empty brackets")      << QByteArray("[]:4\n")           << "1 error [[]:4] the name of the host is missing";
        QTest::newRow("open bracket")        << QByteArray("[::1\n")           << "1 error [[::1] \"[\" is not allowed in the name of a host";
        QTest::newRow("text behind bracket") << QByteArray("[::1]x:2\n")       << "1 error [[::1]x:2] \"[\" is not allowed in the name of a host";
        QTest::newRow("name too long")       << QByteArray(256, 'a')           << text("1 error [") + QString(60, QLatin1Char('a')) + text("...] the name of the host is longer than 255 characters");
        QTest::newRow("several")             << QByteArray(":1\nb\nc:0")       << "1 error [:1] the name of the host is missing; 3 error [c:0] the number of processes is 0";
        QTest::newRow("duplicate")           << QByteArray("a:1\nb\nA:2\n")    << "3 warning [A:2] the host stands in line 1 already";
        QTest::newRow("IPv6")                << QByteArray("[fe80::1]:2\n")    << "1 warning [[fe80::1]:2] the processes of an address in brackets are left out of the total";
        QTest::newRow("carriage returns")    << QByteArray("a:1\r\nb:2\r\n")   << "1 note [] lines end as on Windows, with a carriage return";
        QTest::newRow("byte order mark")     << QByteArray("\xef\xbb\xbf" "a:1\n") << "1 warning [] the file begins with a byte order mark, which other programs take for a part of the host";
        QTest::newRow("UTF-16")              << QByteArray("\xff\xfe" "a\0\n\0", 6) << "1 error [] the file is in UTF-16; save it as plain text";
        QTest::newRow("UTF-16, other order") << QByteArray("\xfe\xff\0a", 4)   << "1 error [] the file is in UTF-16; save it as plain text";
        QTest::newRow("zero byte")           << QByteArray("a\nb\0c\nd:0\n", 10) << "2 error [] a zero byte: this is no text file";
        QTest::newRow("empty")               << QByteArray()                   << "0 error [] it names no host";
        QTest::newRow("only comments")       << QByteArray("# a:1\n\n#b\n")    << "0 error [] it names no host";
        // clang-format on
    }

    void whatIsWrongIsNamedWithItsLine()
    {
        QFETCH(QByteArray, content);
        QFETCH(QString, findings);
        const MachinesFile file = MachinesFile::parse(content);
        QCOMPARE(shownFindings(file), findings);
        QCOMPARE(file.isRight(), !findings.contains(text(" error [")));
    }

    void entriesSurviveMarksAndWindowsLineEnds()
    {
        QCOMPARE(shownEntries(MachinesFile::parse("\xef\xbb\xbfnode1:4\r\n\r\nnode2\r\n")),
                 text("1 node1 4, 3 node2 1"));
        QCOMPARE(shownEntries(MachinesFile::parse("[fe80::1]:2\n[::2]\n")),
                 text("1 [fe80::1] 2, 2 [::2] 1"));
    }

    void fileThatCannotBeReadIsAnError_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("reason");
        QTest::newRow("folder") << "folder"
                                << "0 error [] it is a folder";
        QTest::newRow("pipe") << "pipe"
                              << "0 error [] it is not a regular file";
        QTest::newRow("gigabytes") << "huge"
                                   << "0 error [] it is larger than 64 MB";
        QTest::newRow("missing") << "missing"
                                 << "0 error [] it cannot be read: No such file or directory";
        QTest::newRow("link in a circle")
            << "circle"
            << "0 error [] it cannot be read: Too many levels of symbolic links";
    }

    void fileThatCannotBeReadIsAnError()
    {
        QFETCH(QString, name);
        QFETCH(QString, reason);
        const QTemporaryDir folder;
        QVERIFY(QDir(folder.path()).mkdir(text("folder")));
        QVERIFY(QFile::link(folder.filePath(text("circle")), folder.filePath(text("circle"))));
        QVERIFY(mkfifo(QFile::encodeName(folder.filePath(text("pipe"))).constData(), 0600) == 0);
        QFile huge(folder.filePath(text("huge")));
        QVERIFY(huge.open(QIODevice::WriteOnly) && huge.resize(qint64(3) << 30)); // takes no room
        const MachinesFile file = MachinesFile::read(folder.filePath(name));
        QCOMPARE(shownFindings(file), reason);
        QVERIFY(file.entries().isEmpty());
    }

    void manyLinesAreFastAndFindingsDoNotFillTheMemory_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<int>("errors");
        QTest::addColumn<int>("warnings");
        QTest::newRow("right") << million("node1:2") << 0 << 999999;
        QTest::newRow("wrong") << million("node1:x") << 1000000 << 0;
        QTest::newRow("comments") << million("# node1") + "a" << 0 << 0;
        QTest::newRow("one line") << QByteArray(1 << 20, 'a') << 1 << 0;
        QTest::newRow("one line of counts") << "a:" + QByteArray(1 << 20, '1') << 1 << 0;
    }

    void manyLinesAreFastAndFindingsDoNotFillTheMemory()
    {
        QFETCH(QByteArray, content);
        QFETCH(int, errors);
        QFETCH(int, warnings);
        QElapsedTimer timer;
        timer.start();
        const MachinesFile file = MachinesFile::parse(content);
        QVERIFY2(timer.elapsed() < 20000, qPrintable(QString::number(timer.elapsed())));
        QCOMPARE(file.count(MachinesFile::Severity::Error), errors);
        QCOMPARE(file.count(MachinesFile::Severity::Warning), warnings);
        QCOMPARE(file.findings().size(), qMin(errors, MachinesFile::mostFindings) +
                                             qMin(warnings, MachinesFile::mostFindings));
        for (const MachinesFile::Finding& finding : file.findings()) {
            QVERIFY(finding.text.size() < 100 && finding.reason.size() < 200);
        }
    }

    void timeGrowsWithTheSize_data() { ReadingTime::addPieces(); }

    void timeGrowsWithTheSize()
    {
        QFETCH(QByteArray, piece);
        const auto read = [](const QByteArray& bytes) { MachinesFile::parse(bytes); };
        QCOMPARE(ReadingTime::problem(read, piece), QString());
    }
};

QTEST_GUILESS_MAIN(tst_MachinesFile)
#include "tst_MachinesFile.moc"
