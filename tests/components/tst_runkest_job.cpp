// SPDX-License-Identifier: MIT
#include "SuiteRun.h"

#include <QTemporaryDir>
#include <QtTest>

namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

// Plays the parallel runtime: keeps its words and fails.
const char* const runtimeScript = "#!/bin/sh\n"
                                  "printf '%s\\n' \"$@\" > runtime.words\n"
                                  "exit 1\n";

const QString notice =
    text("NOTE 107: the hosts are those of the Slurm job 17, number of hosts 3, of processes 5");

} // namespace

// The components in a job of Slurm.
class tst_runkest_job : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        QVERIFY(!copyModel(text("dipole.nec"), m_folder->path()).isEmpty());
        QVERIFY(!copyModel(text("tune.nec"), m_folder->path()).isEmpty());
        const QString runtime = writeFile(m_folder->path(), text("runtime"), runtimeScript);
        QVERIFY(QFile::setPermissions(runtime, QFile::ReadOwner | QFile::ExeOwner));
        m_environment = environmentWith(text("KEST_MPIEXEC"), m_folder->filePath(text("runtime")));
        m_environment.insert(text("SLURM_JOB_ID"), text("17"));
        m_environment.insert(text("SLURM_JOB_NODELIST"), text("node[1-2],gpu1"));
        m_environment.insert(text("SLURM_TASKS_PER_NODE"), text("2(x2),1"));
        QVERIFY(!writeFile(m_folder->path(), text("none"), "# no host\n").isEmpty());
        QVERIFY(!writeFile(m_folder->path(), text("some"), "gpu1:1\nnode2:3\n").isEmpty());
        QVERIFY(!writeFile(m_folder->path(), text("other"), "node1:1\nnode3:1\n").isEmpty());
    }

    void runHasTheHostsOfTheJob_data()
    {
        QTest::addColumn<QStringList>("words");
        QTest::addColumn<QString>("hosts");
        QTest::addColumn<QString>("processes");
        QTest::addColumn<bool>("isNoticed");
        const QString all = text("node1:2,node2:2,gpu1:1");
        const QStringList parallel = {text("--parallel-authenticate"), text("default")};
        // clang-format off
        QTest::newRow("without a file")   << parallel                                        << all << "5" << true;
        QTest::newRow("a number")         << parallel + QStringList{text("-np"), text("2")}  << all << "2" << true;
        QTest::newRow("file of no host")  << QStringList{text("--machines-file"), text("none")}  << all << "5" << true;
        QTest::newRow("file of the job")  << QStringList{text("--machines-file"), text("some")}  << "gpu1:1,node2:3" << "4" << false;
        QTest::newRow("a host outside")   << QStringList{text("--machines-file"), text("other")} << all << "5" << true;
        // clang-format on
    }

    void runHasTheHostsOfTheJob()
    {
        QFETCH(QStringList, words);
        const SuiteResult result = run(runkestProgram(), QStringList(text("dipole")) + words);
        QTEST(wordBehind("-hosts"), "hosts");
        QTEST(wordBehind("-n"), "processes");
        QTEST(result.bodies(text("notice")).contains(notice), "isNoticed");
    }

    void hostOutsideOfTheJobIsAWarning()
    {
        const SuiteResult result =
            run(runkestProgram(), {text("dipole"), text("--machines-file"), text("other")});
        QCOMPARE(result.bodies(text("warning")),
                 QStringList(text("WARNING 3604: the machines file names the host "
                                  "'node3', which does not belong to the Slurm job 17, so the "
                                  "hosts of the job are used")));
    }

    void moreProcessesThanTheJobHasIsAWarning()
    {
        QStringList cards = dipoleCards();
        cards.replaceInStrings(text("FR 0 3 0 0 290 5"), text("FR 0 20 0 0 200 5"));
        QVERIFY(!writeFile(m_folder->path(), text("sweep.nec"), deckOf(cards)).isEmpty());
        const SuiteResult result =
            run(runkestProgram(), {text("sweep"), text("-np"), text("6"),
                                   text("--parallel-authenticate"), text("default")});
        QCOMPARE(result.bodies(text("warning")),
                 QStringList(text("WARNING 3602: 6 processes were asked for and the "
                                  "Slurm job 17 counts 5, so hosts take more than they should")));
    }

    void jobThatCannotBeUsedIsAnError_data()
    {
        QTest::addColumn<QStringList>("words");
        QTest::newRow("without a file")
            << QStringList{text("--parallel-authenticate"), text("default")};
        QTest::newRow("file of no host") << QStringList{text("--machines-file"), text("none")};
        QTest::newRow("file of hosts") << QStringList{text("--machines-file"), text("some")};
    }

    void jobThatCannotBeUsedIsAnError()
    {
        QFETCH(QStringList, words);
        m_environment.remove(text("SLURM_TASKS_PER_NODE"));
        const SuiteResult result = run(runkestProgram(), QStringList(text("dipole")) + words);
        QCOMPARE(result.exitCode, 1);
        QCOMPARE(result.bodies(text("error")),
                 QStringList(text("ERROR 2021: dipole.nec: the Slurm job 17 cannot be used; "
                                  "SLURM_TASKS_PER_NODE is not set (unset SLURM_JOB_ID to run "
                                  "without the job)")));
        QVERIFY(runtimeWords().isEmpty());
    }

    void fileWithAnErrorIsAnErrorInAJob()
    {
        const SuiteResult result =
            run(runkestProgram(), {text("dipole"), text("--machines-file"), text("")});
        QCOMPARE(result.exitCode, 1);
        QVERIFY(runtimeWords().isEmpty());
        QVERIFY2(!result.hasText(text("Slurm")), qPrintable(result.lines.join(QLatin1Char('\n'))));
    }

    void jobPlaysNoPart_data()
    {
        QTest::addColumn<QStringList>("words");
        QTest::addColumn<bool>("isParallel");
        QTest::newRow("one process") << QStringList() << false;
        QTest::newRow("engines at once") << QStringList{text("-np"), text("2")} << false;
        QTest::newRow("this machine alone")
            << QStringList{text("--parallel-authenticate"), text("localonly"), text("-np"),
                           text("2")}
            << true;
    }

    void jobPlaysNoPart()
    {
        QFETCH(QStringList, words);
        QFETCH(bool, isParallel);
        m_environment.insert(text("SLURM_JOB_NODELIST"), text("damaged["));
        const SuiteResult result = run(runkestProgram(), QStringList(text("dipole")) + words);
        QVERIFY(!result.hasText(text("Slurm")));
        QVERIFY(!runtimeWords().contains("-hosts"));
        QCOMPARE(runtimeWords().contains("fork"), isParallel);
        QCOMPARE(result.exitCode, isParallel ? 1 : 0);
    }

    // The parallel runtime knows Slurm, too.
    void runtimeLeavesTheJobAlone()
    {
        m_environment.remove(text("KEST_MPIEXEC"));
        m_environment.insert(text("SLURM_JOB_NODELIST"), text("damaged["));
        const SuiteResult result =
            run(runkestProgram(), {text("dipole"), text("--parallel-authenticate"),
                                   text("localonly"), text("-np"), text("2")});
        QVERIFY2(result.exitCode == 0, qPrintable(result.lines.join(QLatin1Char('\n'))));
    }

    void farmHasTheHostsOfTheJob_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("places");
        QTest::addColumn<bool>("isNoticed");
        QTest::newRow("file of no host") << "none"
                                         << "has room for 5" << true;
        QTest::newRow("file of the job") << "some"
                                         << "has room for 4" << false;
        QTest::newRow("a host outside") << "other"
                                        << "has room for 5" << true;
    }

    void farmHasTheHostsOfTheJob()
    {
        QFETCH(QString, file);
        QFETCH(QString, places);
        QFETCH(bool, isNoticed);
        m_environment.insert(text("KEST_SSH"), text("/bin/false"));
        const SuiteResult result = run(optkestProgram(), {text("tune"), text("-np"), text("400"),
                                                          text("--machines-file"), file});
        QVERIFY2(result.hasText(places), qPrintable(result.lines.join(QLatin1Char('\n'))));
        QCOMPARE(result.hasText(text("the hosts are those of the Slurm job 17")), isNoticed);
        QVERIFY(result.hasText(text("the host 'node")) || result.hasText(text("the host 'gpu1'")));
    }

    // It would take the hosts of the other evaluations.
    void evaluationOfAFarmDoesNotUseTheJob()
    {
        m_environment.insert(text("SLURM_JOB_NODELIST"), text("localhost"));
        m_environment.insert(text("SLURM_TASKS_PER_NODE"), text("2"));
        m_environment.remove(text("KEST_MPIEXEC"));
        m_environment.insert(text("KEST_SSH"), text("/bin/false"));
        const QString wrapper = writeFile(m_folder->path(), text("runtime2"),
                                          "#!/bin/sh\n"
                                          "printf '%s\\n' \"$@\" >> \"$KEST_WORDS\"\n"
                                          "exec mpiexec.hydra \"$@\"\n");
        QVERIFY(QFile::setPermissions(wrapper, QFile::ReadOwner | QFile::ExeOwner));
        m_environment.insert(text("KEST_WORDS"), m_folder->filePath(text("runtime.words")));
        m_environment.insert(text("KEST_MPIEXEC"), wrapper);
        const SuiteResult result =
            run(optkestProgram(),
                {text("tune"), text("--machines-file"), text("none"), text("--runkest-options"),
                 text("--parallel-authenticate"), text("default"), text("-np"), text("1")});
        QVERIFY2(result.exitCode == 0, qPrintable(result.lines.join(QLatin1Char('\n'))));
        QVERIFY(runtimeWords().contains("fork"));
        QVERIFY(!runtimeWords().contains("-hosts"));
    }

private:
    SuiteResult run(const QString& program, const QStringList& words) const
    {
        return runSuite(program, words, m_folder->path(), m_environment);
    }

    QList<QByteArray> runtimeWords() const
    {
        const QByteArray words = readFile(m_folder->filePath(text("runtime.words")));
        return words.isEmpty() ? QList<QByteArray>() : words.split('\n');
    }

    QString wordBehind(const char* option) const
    {
        const QList<QByteArray> words = runtimeWords();
        return QString::fromUtf8(words.value(words.indexOf(option) + 1));
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    QProcessEnvironment m_environment;
};

QTEST_GUILESS_MAIN(tst_runkest_job)
#include "tst_runkest_job.moc"
