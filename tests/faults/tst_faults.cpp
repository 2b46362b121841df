// SPDX-License-Identifier: MIT
// The bench itself, with tables and a test program of this test's own.
#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

namespace {

struct Result
{
    int exitCode = -1;
    QString output;
    QString errors;

    /// The row of a fault in the table, with one blank between two words.
    QString row(int fault) const
    {
        const QStringList lines = output.split(QLatin1Char('\n'));
        for (const QString& line : lines) {
            if (line.trimmed().startsWith(QStringLiteral("%1  ").arg(fault))) {
                return line.simplified();
            }
        }
        return {};
    }
};

bool write(const QString& path, const QByteArray& content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}

/// An entry of a table, named "Fault NUMBER".
QByteArray fault(int number, const QByteArrayList& tests)
{
    QByteArray entry = QByteArray::number(number) + ". Fault " + QByteArray::number(number) +
                       "\n  then: Nothing is lost.\n";
    for (const QByteArray& test : tests) {
        entry += "  by: " + test + '\n';
    }
    return entry + '\n';
}

} // namespace

class tst_faults : public QObject
{
    Q_OBJECT

private:
    QString path(const char* name) const { return m_folder->filePath(QString::fromUtf8(name)); }

    Result run(const QByteArray& table, int count, const QStringList& options = {}) const
    {
        write(path("table"), table);
        QProcess process;
        // A sanitizer would report the crash, and end the program in order.
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("ASAN_OPTIONS"),
                           environment.value(QStringLiteral("ASAN_OPTIONS")) +
                               QStringLiteral(":handle_segv=0"));
        process.setProcessEnvironment(environment);
        process.start(QStringLiteral(FAULTS),
                      QStringList{QStringLiteral("--table"), path("table"),
                                  QStringLiteral("--programs"), path("programs"),
                                  QStringLiteral("--count"), QString::number(count)} +
                          options);
        process.waitForFinished(60000);
        return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
                QString::fromUtf8(process.readAllStandardOutput()),
                QString::fromUtf8(process.readAllStandardError())};
    }

    std::unique_ptr<QTemporaryDir> m_folder;

private Q_SLOTS:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        const QByteArray folder = QFile::encodeName(m_folder->path());
        QVERIFY(write(path("skipping"), "#!/bin/sh\necho 'no room for hosts'\nexit 77\n"));
        QVERIFY(QFile::setPermissions(path("skipping"), QFile::ReadOwner | QFile::ExeOwner));
        QVERIFY(
            write(path("programs"), "tst_fake\t60\t" + folder + "\t" SANDBOXED "\t" FAKE_TEST "\n" +
                                        "tst_short_of_time\t2\t" + folder +
                                        "\t" SANDBOXED "\t" FAKE_TEST "\n" + "tst_skipping\t60\t" +
                                        folder + "\t" + folder + "/skipping\t" FAKE_TEST "\n"));
    }

    void survivedFaultsAreGood()
    {
        const Result result =
            run("# all is well\n" + fault(1, {"tst_fake passes", "tst_fake rows:a good row"}) +
                    fault(2, {"tst_fake passesToo"}),
                2);
        QCOMPARE(result.exitCode, 0);
        QCOMPARE(result.row(1), QStringLiteral("1 Fault 1 2 2 0 0"));
        QCOMPARE(result.row(2), QStringLiteral("2 Fault 2 1 1 0 0"));
        QVERIFY2(result.output.endsWith(QStringLiteral(
                     "2 of 2 faults survived, none lost; 3 cases tried, 0 skipped.\n\n")),
                 qPrintable(result.output));
    }

    void lostFaultIsToldWithItsMessage()
    {
        const Result result = run(
            fault(1, {"tst_fake passes", "tst_fake fails"}) + fault(2, {"tst_fake passesToo"}), 2);
        QCOMPARE(result.exitCode, 1);
        QCOMPARE(result.row(1), QStringLiteral("1 Fault 1 2 1 1 0"));
        QCOMPARE(result.row(2), QStringLiteral("2 Fault 2 1 1 0 0"));
        QVERIFY(result.output.contains(QStringLiteral("1 of 2 faults survived, 1 lost;")));
        QVERIFY2(
            result.output.contains(QStringLiteral("lost, fault 1: tst_fake fails: fake_test.cpp:")),
            qPrintable(result.output));
        QVERIFY(result.output.contains(QStringLiteral("(\"lost\")")));
    }

    void rowsAreCasesOfTheirOwn()
    {
        const Result result =
            run(fault(1, {"tst_fake rows"}) + fault(2, {"tst_fake rows:another good row"}) +
                    fault(3, {"tst_fake rows:a bad row"}),
                3);
        QCOMPARE(result.exitCode, 1);
        QCOMPARE(result.row(1), QStringLiteral("1 Fault 1 3 2 1 0"));
        QCOMPARE(result.row(2), QStringLiteral("2 Fault 2 1 1 0 0"));
        QCOMPARE(result.row(3), QStringLiteral("3 Fault 3 1 0 1 0"));
        QVERIFY2(result.output.contains(
                     QStringLiteral("lost, fault 3: tst_fake rows:a bad row: fake_test.cpp:")),
                 qPrintable(result.output));
    }

    void programThatEndsBeforeItsTimeIsALoss_data()
    {
        QTest::addColumn<QByteArray>("program");
        QTest::addColumn<QByteArray>("function");
        QTest::addColumn<QString>("message");
        QTest::newRow("crash") << QByteArray("tst_fake") << QByteArray("crashes")
                               << QStringLiteral("the test program crashed");
        QTest::newRow("killed") << QByteArray("tst_fake") << QByteArray("isKilled")
                                << QStringLiteral("the test program crashed (exit code 137)");
        QTest::newRow("hangs") << QByteArray("tst_short_of_time") << QByteArray("hangs")
                               << QStringLiteral("the test program did not end within 2 seconds");
    }

    // What stands behind it is tried all the same.
    void programThatEndsBeforeItsTimeIsALoss()
    {
        QFETCH(QByteArray, program);
        QFETCH(QByteArray, function);
        QFETCH(QString, message);
        const Result result =
            run(fault(1, {program + " passes"}) + fault(2, {program + ' ' + function}) +
                    fault(3, {program + " passesToo", program + " rows:a good row"}),
                3);
        QCOMPARE(result.exitCode, 1);
        QCOMPARE(result.row(1), QStringLiteral("1 Fault 1 1 1 0 0"));
        QCOMPARE(result.row(2), QStringLiteral("2 Fault 2 1 0 1 0"));
        QCOMPARE(result.row(3), QStringLiteral("3 Fault 3 2 2 0 0"));
        QVERIFY2(result.output.contains(QStringLiteral("lost, fault 2: %1 %2: %3")
                                            .arg(QString::fromLatin1(program),
                                                 QString::fromLatin1(function), message)),
                 qPrintable(result.output));
    }

    void processThatIsLeftBehindIsALoss()
    {
        const Result result = run(fault(1, {"tst_fake leavesAProcess"}), 1);
        QCOMPARE(result.exitCode, 1);
        QVERIFY2(result.output.contains(QStringLiteral("These processes are left behind")),
                 qPrintable(result.output));
    }

    void skippedFaultIsNotTried()
    {
        const Result result = run(fault(1, {"tst_fake isSkipped"}) +
                                      fault(2, {"tst_fake passes", "tst_fake isSkipped"}) +
                                      fault(3, {"tst_skipping passes"}),
                                  3);
        QCOMPARE(result.exitCode, 1);
        QCOMPARE(result.row(1), QStringLiteral("1 Fault 1 0 0 0 1"));
        QCOMPARE(result.row(2), QStringLiteral("2 Fault 2 1 1 0 1"));
        QCOMPARE(result.row(3), QStringLiteral("3 Fault 3 0 0 0 1"));
        QVERIFY(result.output.contains(QStringLiteral("1 of 3 faults survived, none lost;")));
        QVERIFY(result.output.contains(QStringLiteral("there is no such device")));
        QVERIFY(result.output.contains(QStringLiteral("no room for hosts")));
        QVERIFY(result.output.contains(QStringLiteral("fault 1 was not tried\n")));
        QVERIFY(!result.output.contains(QStringLiteral("fault 2 was not tried\n")));
        QCOMPARE(run(fault(1, {"tst_fake passes", "tst_fake isSkipped"}), 1).exitCode, 0);
    }

    void rowThatIsNotThereIsALoss()
    {
        const Result result = run(fault(1, {"tst_fake rows:no such row"}), 1);
        QCOMPARE(result.exitCode, 1);
        QCOMPARE(result.row(1), QStringLiteral("1 Fault 1 1 0 1 0"));
        QVERIFY2(result.output.contains(QStringLiteral("was not run: ")),
                 qPrintable(result.output));
    }

    void wrongTableIsRefused_data()
    {
        QTest::addColumn<QByteArray>("table");
        QTest::addColumn<QString>("complaint");
        const QByteArray good = fault(1, {"tst_fake passes"});
        // clang-format off
        QTest::newRow("unknown program")  << good + fault(2, {"tst_none passes"})     << "fault 2: there is no test program tst_none";
        QTest::newRow("unknown function") << good + fault(2, {"tst_fake pass"})       << "fault 2: tst_fake has no function pass";
        QTest::newRow("number missing")   << fault(2, {"tst_fake passes"})            << "fault 1 is missing";
        QTest::newRow("last one missing") << good                                     << "fault 2 is missing";
        QTest::newRow("twice")            << good + good + fault(2, {"tst_fake passes"}) << "fault 1 is out of order";
        QTest::newRow("one too many")     << good + fault(2, {"tst_fake passes"}) + fault(3, {"tst_fake passes"}) << "fault 3 is out of order";
        QTest::newRow("no test")          << good + fault(2, {})                      << "fault 2 has no test";
        QTest::newRow("no promise")       << good + "2. Fault\n by: tst_fake passes\n" << "fault 2 does not say what must be true";
        QTest::newRow("two promises")     << good + fault(2, {"tst_fake passes"}) + " then: more\n" << "line 9: a second \"then\"";
        QTest::newRow("no function")      << good + fault(2, {"tst_fake"})            << "line 7: \"tst_fake\" is not PROGRAM FUNCTION[:ROW]";
        QTest::newRow("something else")   << good + fault(2, {"tst_fake passes"}) + "else\n" << "line 9: \"else\" is not understood";
        // clang-format on
    }

    void wrongTableIsRefused()
    {
        QFETCH(QByteArray, table);
        QFETCH(QString, complaint);
        const Result result = run(table, 2);
        QCOMPARE(result.exitCode, 2);
        QVERIFY2(result.errors.contains(complaint), qPrintable(result.errors));
        QCOMPARE(result.output, QString());
    }

    void missingTableIsToldOf()
    {
        QProcess process;
        process.start(QStringLiteral(FAULTS), {QStringLiteral("--table"), path("none"),
                                               QStringLiteral("--count"), QStringLiteral("0")});
        QVERIFY(process.waitForFinished());
        QCOMPARE(process.exitCode(), 2);
        QVERIFY(process.readAllStandardError().contains("cannot be read"));
    }

    void shortFormRunsTheFirstTestOfEachFault()
    {
        const QByteArray table =
            fault(1, {"tst_fake passesInShort", "tst_fake fails"}) + fault(2, {"tst_fake passes"});
        const Result result = run(table, 2, {QStringLiteral("--short")});
        QCOMPARE(result.exitCode, 0);
        QCOMPARE(result.row(1), QStringLiteral("1 Fault 1 1 1 0 0"));
        QCOMPARE(run(table, 2).row(1), QStringLiteral("1 Fault 1 2 0 2 0"));
        QCOMPARE(run(fault(1, {"tst_fake passesInFull"}), 1).exitCode, 0);
    }

    void tableIsWrittenForAPage()
    {
        const QByteArray table = fault(1, {"tst_fake passes"}).replace("Fault 1", "A | B");
        QCOMPARE(run(table, 1, {QStringLiteral("--markdown"), path("page.md")}).exitCode, 0);
        QFile page(path("page.md"));
        QVERIFY(page.open(QIODevice::ReadOnly));
        QCOMPARE(page.readAll(),
                 QByteArray("| | what happens | what is true afterwards | tried | survived | lost "
                            "|\n|---|---|---|---|---|---|\n"
                            "| 1 | A \\| B | Nothing is lost. | 1 | 1 | 0 |\n\n"
                            "1 of 1 faults survived, none lost; 1 cases tried, 0 skipped.\n"));
    }

    void tableThatCannotBeWrittenIsToldOf()
    {
        const Result result = run(fault(1, {"tst_fake passes"}), 1,
                                  {QStringLiteral("--markdown"), path("no/such/folder")});
        QCOMPARE(result.exitCode, 1);
        QVERIFY2(result.errors.contains(path("no/such/folder: ")), qPrintable(result.errors));
    }
};

QTEST_GUILESS_MAIN(tst_faults)
#include "tst_faults.moc"
