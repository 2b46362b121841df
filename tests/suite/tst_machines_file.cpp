// SPDX-License-Identifier: MIT
#include <MachinesCases.h>
#include <MachinesFile.h>
#include <ReadingTime.h>
#include <SpecialFile.h>
#include <Stopwatch.h>

#include <HostName.h>

#include <QDir>
#include <QTemporaryDir>

#include <climits>

using suite::MachinesFile;
using Severity = MachinesFile::Severity;

namespace {

#ifdef Q_OS_WIN
constexpr qint64 longestTime = 30000; // ms, with the time that other programs take
#else
constexpr qint64 longestTime = 5000; // ms
#endif

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

QString shownEntries(const MachinesFile& file)
{
    QStringList result;
    for (const MachinesFile::Entry& entry : file.entries()) {
        result.append(QStringLiteral("%1 %2 %3")
                          .arg(entry.line)
                          .arg(suite::HostName::withBrackets(entry.host))
                          .arg(entry.count));
    }
    return result.join(QLatin1String(", "));
}

QString shownFindings(const MachinesFile& file)
{
    static const char* const severities[] = {"note", "warning", "error"};
    QStringList result;
    for (const MachinesFile::Finding& finding : file.findings()) {
        result.append(QStringLiteral("%1 %2 [%3] %4")
                          .arg(QString::number(finding.line),
                               text(severities[static_cast<int>(finding.severity)]), finding.text,
                               finding.reason));
    }
    return result.join(QLatin1String("; "));
}

void write(const QTemporaryDir& folder, const QString& name, const QByteArray& content)
{
    QFile file(folder.filePath(name));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
}

QByteArray million(const char* line)
{
    return (QByteArray(line) + '\n').repeated(1000000);
}

} // namespace

// The one reader of machines files.
class tst_machines_file : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyFileHasItsVerdict_data() { addMachinesCases(); }

    void everyFileHasItsVerdict()
    {
        QFETCH(int, row);
        const MachinesCase& expected = machinesCases().at(row);
        const MachinesFile file = MachinesFile::parse(expected.content);
        QCOMPARE(shownFindings(file), QString::fromUtf8(expected.findings));
        QCOMPARE(shownEntries(file), QString::fromUtf8(expected.entries));
        QCOMPARE(file.total(), expected.processes());
        QCOMPARE(file.entryCount(), file.entries().size());
        QCOMPARE(file.isValid(), expected.isValid);
        QCOMPARE(file.namesNoHost(), expected.findings.contains("it names no host"));
        QCOMPARE(file.isText(), !expected.findings.contains("UTF-16") &&
                                    !expected.findings.contains("a NUL byte"));
    }

    void errorsNameTheFileAndTheLine_data() { addMachinesCases(); }

    void errorsNameTheFileAndTheLine()
    {
        QFETCH(int, row);
        const MachinesFile file =
            MachinesFile::parse(machinesCases().at(row).content, text("m.kest"));
        QStringList errors = file.errors();
        QCOMPARE(errors.size(), file.count(Severity::Error));
        for (const MachinesFile::Finding& finding : file.findings()) {
            if (finding.severity != Severity::Error) {
                continue;
            }
            const QString error = errors.takeFirst();
            const QString beginning = finding.line == 0 ? text("the machines file 'm.kest' ")
                                      : finding.text.isEmpty()
                                          ? text("the machines file 'm.kest' has an error in line ")
                                          : text("the machines file 'm.kest' has in line ");
            QVERIFY2(error.startsWith(beginning), qPrintable(error));
            QVERIFY2(finding.line == 0 ||
                         error.endsWith(finding.text.isEmpty()
                                            ? QStringLiteral(" %1, %2").arg(
                                                  QString::number(finding.line), finding.reason)
                                            : QStringLiteral(" %1 '%2', %3")
                                                  .arg(QString::number(finding.line), finding.text,
                                                       finding.reason)),
                     qPrintable(error));
            QVERIFY(error.size() < 250);
        }
    }

    void errorsOfTheWholeFileAreSentences_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("sentence");
        // clang-format off
        QTest::newRow("no host")   << QByteArray("# a:1\n")       << "the machines file '%1 m' names no host, add a line such as 'localhost:2' for this machine";
        QTest::newRow("total")     << QByteArray("a:4096\nb:1\n") << "the machines file '%1 m' counts 4097 processes and the limit is 4096";
        QTest::newRow("list")      << longMachines("", 401, "").content << "the machines file '%1 m' has names of more than 100000 bytes";
        // clang-format on
    }

    void errorsOfTheWholeFileAreSentences()
    {
        QFETCH(QByteArray, content);
        QFETCH(QString, sentence);
        QCOMPARE(MachinesFile::parse(content, text("%1 m")).errors(), QStringList(sentence));
    }

    void fileThatCannotBeReadIsAnError_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("problem");
        QTest::newRow("folder") << "folder"
                                << "is a folder";
        if (SpecialFile::canMake(S_IFIFO)) {
            QTest::newRow("pipe") << "pipe"
                                  << "is not a regular file";
            QTest::newRow("device") << "/dev/zero"
                                    << "is not a regular file";
        }
        QTest::newRow("gigabytes") << "huge"
                                   << "is larger than 64 MB";
        QTest::newRow("missing") << "missing"
                                 << "does not exist";
        QTest::newRow("name that is not UTF-8")
            << QString(QChar(0xdce9))
            << "cannot be read: its name, or the name of a folder that it is in, is not UTF-8; "
               "rename it";
#ifdef Q_OS_UNIX // whose links are not only the desktop's
        QTest::newRow("link in a circle") << "circle"
                                          << "cannot be read: Too many levels of symbolic links";
#endif
    }

    void fileThatCannotBeReadIsAnError()
    {
        QFETCH(QString, name);
        QFETCH(QString, problem);
        const QTemporaryDir folder;
        QVERIFY(QDir(folder.path()).mkdir(text("folder")));
        QVERIFY(QFile::link(folder.filePath(text("circle")), folder.filePath(text("circle"))));
        QVERIFY(!SpecialFile::canMake(S_IFIFO) ||
                SpecialFile::make(S_IFIFO, folder.filePath(text("pipe"))));
        QFile huge(folder.filePath(text("huge")));
        QVERIFY(huge.open(QIODevice::WriteOnly) && huge.resize(qint64(3) << 30)); // takes no room
        const QString path = QDir(folder.path()).filePath(name);
        const MachinesFile file = MachinesFile::read(path);
        QCOMPARE(shownFindings(file), QStringLiteral("0 error [] it ") + problem);
        QCOMPARE(file.errors(),
                 QStringList(QStringLiteral("the machines file '%1' ").arg(path) + problem));
        QVERIFY(file.entries().isEmpty());
        QVERIFY(!file.namesNoHost());
    }

    void copyIsCalledAsWhatItWasMadeOf_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("hasOwn");
        QTest::addColumn<QString>("called"); // HOME and USER are folders
        // clang-format off
        QTest::newRow("the user's")          << "gui_tmp_machfile_7"     << true  << "USER/machines.kest";
        QTest::newRow("the installation's")  << "gui_tmp_machfile_999"   << false << "HOME/shared/mpi/machines.kest";
        QTest::newRow("another file")        << "gui_tmp_machfile_1000"  << true  << "gui_tmp_machfile_1000";
        QTest::newRow("a name that goes on") << "gui_tmp_machfile_7.old" << true  << "gui_tmp_machfile_7.old";
        // clang-format on
    }

    // A front end hands over a copy, of whose name the user knows nothing.
    void copyIsCalledAsWhatItWasMadeOf()
    {
        QFETCH(QString, name);
        QFETCH(bool, hasOwn);
        QFETCH(QString, called);
        const QTemporaryDir folder;
        QVERIFY(qputenv("KEST_HOME", "/some installation"));
        write(folder, name, "# a:1\n");
        if (hasOwn) {
            write(folder, text("machines.kest"), "");
        }
        const MachinesFile file = MachinesFile::read(folder.filePath(name));
        called.replace(text("USER"), folder.path())
            .replace(text("HOME"), text("/some installation"));
        called = QDir::toNativeSeparators(called);
        QCOMPARE(file.errors(), QStringList(QStringLiteral("the machines file '%1' names no host, "
                                                           "add a line such as 'localhost:2' for "
                                                           "this machine")
                                                .arg(called)));
    }

    void errorsAreLimited()
    {
        const MachinesFile file = MachinesFile::parse(QByteArray("a:0\n").repeated(1000));
        QCOMPARE(file.errors().size(), 10);
    }

    void processesAreDealtOutInTheOrderOfTheFile_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("dealt");
        QTest::addColumn<QByteArray>("plain");
        // clang-format off
        QTest::newRow("twice")     << QByteArray("a:2\nb:1\na:1\nc\n")        << "a a a b c a a" << QByteArray("a:3\nb:1\nc:1\n");
        QTest::newRow("capitals")  << QByteArray("a\nB\nA:2\nb # c\n")        << "a a a B B a a" << QByteArray("a:3\nB:2\n");
        QTest::newRow("addresses") << QByteArray("[fe80::1]:2\n[FE80::1]\n")  << "fe80::1 fe80::1 fe80::1 fe80::1 fe80::1 fe80::1 fe80::1" << QByteArray("[fe80::1]:3\n");
        // clang-format on
    }

    void processesAreDealtOutInTheOrderOfTheFile()
    {
        QFETCH(QByteArray, content);
        QFETCH(QByteArray, plain);
        const MachinesFile file = MachinesFile::parse(content);
        QStringList hosts;
        for (int rank = 0; rank < 7; ++rank) {
            hosts += file.hostOf(rank);
        }
        QTEST(hosts.join(QLatin1Char(' ')), "dealt");
        QCOMPARE(file.plainContent(), plain);
        QCOMPARE(file.hostList().toLatin1(), plain.trimmed().replace('\n', ','));
    }

    void hugeFilesAreReadInTimeAndFindingsDoNotFillTheMemory_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<int>("errors");
        QTest::addColumn<int>("warnings");
        QTest::addColumn<int>("hosts");
        QTest::addColumn<int>("total");
        QByteArray hosts;
        for (int i = 0; i < 1000000; ++i) {
            hosts += "node" + QByteArray::number(i) + ":1\n";
        }
        QTest::newRow("one host") << million("node1:1") << 1 << 999999 << 1 << 1000000;
        QTest::newRow("hosts") << hosts << 1 << 0 << 1000000 << 1000000;
        QTest::newRow("beyond an integer") << million("node1:4096") << 1 << 999999 << 1 << INT_MAX;
        QTest::newRow("wrong") << million("node1:x") << 1000000 << 0 << 0 << 0;
        QTest::newRow("comments") << million("# node1") + "a:1" << 0 << 0 << 1 << 1;
        QTest::newRow("one line") << QByteArray(1 << 20, 'a') << 1 << 0 << 0 << 0;
        QTest::newRow("one line of counts") << "a:" + QByteArray(1 << 20, '1') << 1 << 0 << 0 << 0;
        QTest::newRow("one comment") << "a:1 #" + QByteArray(1 << 20, 'x') << 0 << 0 << 1 << 1;
    }

    void hugeFilesAreReadInTimeAndFindingsDoNotFillTheMemory()
    {
        QFETCH(QByteArray, content);
        QFETCH(int, errors);
        QFETCH(int, warnings);
        QFETCH(int, hosts);
        const Stopwatch watch;
        const MachinesFile file = MachinesFile::parse(content);
        const qint64 taken = watch.elapsed();
        QVERIFY2(taken < longestTime, qPrintable(QString::number(taken)));
        QCOMPARE(file.count(Severity::Error), errors);
        QCOMPARE(file.count(Severity::Warning), warnings);
        QCOMPARE(file.hosts().size(), hosts);
        QVERIFY(file.entries().size() <= MachinesFile::mostEntries);
        QCOMPARE(file.findings().size(), qMin(errors, MachinesFile::mostFindings) +
                                             qMin(warnings, MachinesFile::mostFindings));
        for (const MachinesFile::Finding& finding : file.findings()) {
            QVERIFY(finding.text.size() < 100 && finding.reason.size() < 200);
        }
        QTEST(file.total(), "total");
    }

    void timeGrowsWithTheSize_data()
    {
        ReadingTime::addPieces();
    }

    void timeGrowsWithTheSize()
    {
        QFETCH(QByteArray, piece);
        const auto read = [](const QByteArray& bytes) { MachinesFile::parse(bytes); };
        QCOMPARE(ReadingTime::problem(read, piece), QString());
    }
};

QTEST_GUILESS_MAIN(tst_machines_file)
#include "tst_machines_file.moc"
