// SPDX-License-Identifier: MIT
#include "OptionsStage.h"

#include <TestRandom.h>

#include <KEST_binfiles.h>

#include <QSysInfo>

#include <vector>

// Several processes that change the options at once.
class tst_kestdesk_options_lock : public QObject, private OptionsStage
{
    Q_OBJECT

private Q_SLOTS:
    void init() { reset(); }

    void waitsUntilTheOthersAreDone_data()
    {
        QTest::addColumn<QStringList>("words");
        QTest::addColumn<QString>("seconds");
        QTest::newRow("set") << QStringList{text("set"), text("FarmOut=true")} << "5";
        QTest::newRow("restore") << QStringList{text("restore")} << "5";
        QTest::newRow("long") << QStringList{text("set"), text("--wait"), text("600"),
                                             text("FarmOut=true")}
                              << "600";
        QTest::newRow("with a sign, at the end")
            << QStringList{text("set"), text("FarmOut=true"), text("--wait=60")} << "60";
    }

    void waitsUntilTheOthersAreDone()
    {
        QFETCH(QStringList, words);
        QFETCH(QString, seconds);
        writeDefaults("[options]\nFarmOut=true\n");
        const std::wstring path = settingsFile().toStdWString();
        uint64_t handle = 0;
        QCOMPARE(KEST_binfiles_set_lock_hard(path.c_str(), 0, &handle), 0);
        QProcess process;
        start(process, text(KESTDESK), QStringList(text("options")) + words);
        process.setReadChannel(QProcess::StandardError);
        QByteArray errors;
        while (!errors.contains('\n') && process.waitForReadyRead(30000)) {
            errors += process.readAllStandardError();
        }
        QCOMPARE(QString::fromUtf8(errors),
                 QStringLiteral("kestdesk: waiting up to %1 seconds for %2 as process %3 on %4, "
                                "which holds %5\n")
                     .arg(seconds, QFileInfo(QCoreApplication::applicationFilePath()).fileName())
                     .arg(QCoreApplication::applicationPid())
                     .arg(QSysInfo::machineHostName(), settingsFile()));
        QVERIFY(!QFile::exists(settingsFile()));
        QCOMPARE(KEST_binfiles_remove_lock(path.c_str(), handle), 0);
        QVERIFY(process.waitForFinished());
        QCOMPARE(process.exitCode(), 0);
        QCOMPARE(process.readAllStandardError(), QByteArray());
        QCOMPARE(value("FarmOut"), text("true"));
    }

    void nonsensicalWaitsAreRefused_data()
    {
        QTest::addColumn<QStringList>("words");
        QTest::addColumn<QString>("complaint");
        const QString assignment = text("FarmOut=true");
        const auto add = [&](const char* seconds) {
            QTest::newRow(seconds)
                << QStringList{text("set"), text("--wait"), text(seconds), assignment}
                << QStringLiteral(
                       "kestdesk: --wait takes whole seconds from 0 to 3600, and not \"%1\"\n")
                       .arg(text(seconds));
        };
        for (const char* const seconds : {"-1", "3601", "1.5", "soon", "", "99999999999", "5s"}) {
            add(seconds);
        }
        QTest::newRow("missing") << QStringList{text("restore"), text("--wait")}
                                 << "and not \"\"\n";
        QTest::newRow("missing behind the sign")
            << QStringList{text("restore"), text("--wait=")} << "and not \"\"\n";
        QTest::newRow("an assignment instead")
            << QStringList{text("set"), text("--wait"), assignment} << "and not \"FarmOut=true\"\n";
        QTest::newRow("twice") << QStringList{text("set"), text("--wait=1"), text("--wait=2"),
                                              assignment}
                               << "kestdesk: --wait is given twice\n";
        QTest::newRow("nothing to wait for") << QStringList{text("list"), text("--wait"), text("5")}
                                             << "Usage: kestdesk options COMMAND\n";
        QTest::newRow("nothing to set") << QStringList{text("set"), text("--wait"), text("5")}
                                        << "Usage: kestdesk options COMMAND\n";
    }

    void nonsensicalWaitsAreRefused()
    {
        QFETCH(QStringList, words);
        QFETCH(QString, complaint);
        const Result result = options(words);
        QCOMPARE(result.exitCode, 2);
        QVERIFY2(result.errors.contains(complaint), qPrintable(result.errors));
        QVERIFY(!QFile::exists(settingsFile()));
    }

    // Each of several scripts sets an option of its own again and again, and reads it back.
    void scriptsAtOnceAreNeitherRefusedNorLoseAnything()
    {
        const char* const names[] = {"Adaptkest.AnalysisNumber",
                                     "Optkest.SolverRun",
                                     "Kest.NumberOfParallelProcesses",
                                     "Kest.ParallelEnvOptions",
                                     "Optkest.NumberOfFarmProcesses",
                                     "Amrkest.MaximumIterations",
                                     "Kest.NumberOfGPUs",
                                     "Amrkest.Frequency"};
        const int last = qEnvironmentVariableIsSet("KEST_FULL_TESTS") ? 61 : 8;
        const QString script = text("for i in $(seq 2 $2); do "
                                    "told=$(\"$0\" options set --wait 120 \"$1=$i\" 2>&1) || "
                                    "echo \"refused, exit code $?: $told\"; "
                                    "[ \"$(\"$0\" options get \"$1\")\" = $i ] || echo lost; done");
        std::vector<std::unique_ptr<QProcess>> processes;
        for (const char* const name : names) {
            processes.push_back(std::make_unique<QProcess>());
            start(*processes.back(), text("bash"),
                  {text("-c"), script, text(KESTDESK), text(name), QString::number(last)});
        }
        for (const auto& process : processes) {
            QVERIFY(process->waitForFinished(290000));
            QCOMPARE(process->readAllStandardOutput(), QByteArray());
        }
        for (const char* const name : names) {
            QCOMPARE(value(name), QString::number(last));
        }
    }

    // A writer is killed anywhere; the next one neither waits nor is refused.
    void theNextOneIsNotRefusedAfterAKill()
    {
        const int kills = qEnvironmentVariableIsSet("KEST_FULL_TESTS") ? 250 : 15;
        QRandomGenerator random = TestRandom::anew();
        for (int kill = 0; kill < kills; ++kill) {
            QProcess writer;
            start(writer, text(KESTDESK), {text("options"), text("set"), text("FarmOut=true")});
            QVERIFY(writer.waitForStarted());
            QTest::qSleep(random.bounded(10, 80));
            writer.kill();
            const Result next = options({text("set"), text("--wait=0"), text("RunRemote=true")});
            QCOMPARE(next.errors, QString());
            QCOMPARE(next.exitCode, 0);
            writer.waitForFinished();
        }
        QCOMPARE(value("RunRemote"), text("true"));
    }

    void lockedFileIsNotChangedAndItsHolderIsNamed_data()
    {
        QTest::addColumn<QStringList>("words");
        QTest::newRow("set") << QStringList{text("set"), text("--wait=0"), text("FarmOut=true")};
        QTest::newRow("restore") << QStringList{text("restore"), text("--wait"), text("0")};
        QTest::newRow("after a second") << QStringList{text("restore"), text("--wait"), text("1")};
    }

    void lockedFileIsNotChangedAndItsHolderIsNamed()
    {
        QFETCH(QStringList, words);
        const std::wstring path = settingsFile().toStdWString();
        uint64_t handle = 0;
        QCOMPARE(KEST_binfiles_set_lock_hard(path.c_str(), 0, &handle), 0);
        const Result result = options(words);
        QCOMPARE(result.exitCode, 1);
        QVERIFY2(result.errors.contains(
                     QStringLiteral("The %1 file is locked. (17331)").arg(settingsFile())),
                 qPrintable(result.errors));
        QVERIFY(result.errors.contains(QStringLiteral("process %1 on %2 holds it")
                                           .arg(QCoreApplication::applicationPid())
                                           .arg(QSysInfo::machineHostName())));
        QVERIFY(!QFile::exists(settingsFile()));
        QCOMPARE(value("FarmOut"), text("false")); // reading needs no lock
        QCOMPARE(KEST_binfiles_remove_lock(path.c_str(), handle), 0);
        QCOMPARE(options(words).exitCode, 0);
    }
};

QTEST_GUILESS_MAIN(tst_kestdesk_options_lock)
#include "tst_kestdesk_options_lock.moc"
