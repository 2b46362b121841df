// SPDX-License-Identifier: MIT
#include "RunWrapperSite.h"

#include <BoxReader.h>
#include <RecordingObserver.h>
#include <SettingsFolders.h>
#include <SpecialFile.h>

#include <common_RunWrapper.h>

#include <QApplication>
#include <QRegularExpression>
#include <QtTest>

class tst_common_RunWrapper_machines : public QObject, protected RunWrapperStage
{
    Q_OBJECT

private Q_SLOTS:
    void init() { offerServices(); }

    void cleanup() { QCOMPARE(m_reader->take().size(), 0); }

    void copiesTheMachinesFileForTheRun_data()
    {
        QTest::addColumn<int>("setUp");
        QTest::addColumn<int>("options");
        QTest::addColumn<bool>("isLocal");
        QTest::addColumn<bool>("localOnly");
        // clang-format off
        QTest::newRow("parallel, user's")                    << int(Kest)    << 1 << true  << false;
        QTest::newRow("parallel, user's, local only")        << int(Kest)    << 1 << true  << true;
        QTest::newRow("parallel, installation's")            << int(Kest)    << 1 << false << false;
        QTest::newRow("parallel, installation's, local only") << int(Kest)   << 1 << false << true;
        QTest::newRow("optimiser, parallel")                 << int(Optkest) << 1 << true  << false;
        QTest::newRow("optimiser, farmed")                   << int(Optkest) << 4 << false << false;
        QTest::newRow("optimiser, farmed and parallel")      << int(Optkest) << 5 << true  << false;
        QTest::newRow("optimiser, farmed, local only")       << int(Optkest) << 4 << true  << true;
        // clang-format on
    }

    void copiesTheMachinesFileForTheRun()
    {
        QFETCH(int, setUp);
        QFETCH(int, options);
        QFETCH(bool, isLocal);
        QFETCH(bool, localOnly);
        const Site site;
        QVERIFY(isLocal ? site.writeUsersMachines() : site.writeInstallationsMachines());
        QVERIFY(!localOnly || site.writeOptions("Kest.ParallelAuthenticMethod=2\n"));
        QVERIFY(site.setUpFor(SetUp(setUp), Options(QFlag(options))));
        QCOMPARE(site.copies().size(), 1);
        const QString copy = site.copies().value(0);
        const QRegularExpression name(QStringLiteral("/gui_tmp_machfile_(0|[1-9]\\d{0,2})$"));
        QVERIFY2(name.match(copy).hasMatch(), qPrintable(copy));
        QCOMPARE(SettingsFolders::read(copy), QByteArray(machines));
        QCOMPARE(site.arguments().contains(QStringLiteral("--machines-file")), !localOnly);
        QCOMPARE(site.arguments().contains(QDir::toNativeSeparators(copy)), !localOnly);

        RecordingObserver observer(site.runner.get());
        bool wasThere = false;
        observer.then = [&wasThere, copy](const QString& event) {
            wasThere = event == QLatin1String("done") && QFile::exists(copy);
        };
        QVERIFY(site.runner->runAndWaitForFinish());
        QVERIFY(wasThere);
        QCOMPARE(site.copies(), QStringList());
        QCOMPARE(QFile::exists(site.userFile()), isLocal);
    }

    void passesTheCopyThatIsThereAlready()
    {
        const Site site;
        QVERIFY(site.writeUsersMachines());
        for (int i = 0; i < 1000; ++i) {
            QVERIFY(SettingsFolders::write(
                site.user + QStringLiteral("/gui_tmp_machfile_%1").arg(i), "earlier\n"));
        }
        QVERIFY(site.setUpFor(Kest, Wrapper::Parallel));
        const QStringList copies = site.copies();
        QCOMPARE(copies.size(), 1000);
        const QString passed = QDir::fromNativeSeparators(site.arguments().value(5));
        QVERIFY2(copies.contains(passed), qPrintable(passed));
        QCOMPARE(SettingsFolders::read(passed), QByteArray("earlier\n"));
    }

    void doesNotTellThatACopyFails()
    {
        const Site site;
        QVERIFY(site.writeInstallationsMachines());
        const Variable home("KEST_USER_HOME", site.folders.path() + QStringLiteral("/no where"));
        QVERIFY(site.setUpFor(Kest, Wrapper::Parallel));
        QCOMPARE(site.arguments().value(4), QStringLiteral("--machines-file"));
        const QString passed = QDir::fromNativeSeparators(site.arguments().value(5));
        QVERIFY2(
            passed.startsWith(site.folders.path() + QStringLiteral("/no where/gui_tmp_machfile_")),
            qPrintable(passed));
        QVERIFY(!QFile::exists(passed));
    }

    void pipeInPlaceOfTheMachinesFileIsNotCopied()
    {
        const Site site;
        SPECIAL_FILE_OR_SKIP(S_IFIFO, site.userFile());
        QVERIFY(site.setUpFor(Kest, Wrapper::Parallel));
        const QVector<BoxReader::Box> boxes = m_reader->take();
        QVERIFY(!boxes.isEmpty());
        for (const BoxReader::Box& box : boxes) {
            QCOMPARE(box.title, QStringLiteral("Open failed"));
        }
        QVERIFY(!QFile::exists(site.arguments().value(5)));
        QCOMPARE(site.copies(), QStringList());
    }

    void tellsThatTheUsersFolderForTheCopyIsUnknown()
    {
        const Site site;
        QVERIFY(site.writeInstallationsMachines());
        const Variable home("KEST_USER_HOME");
        QVERIFY(site.setUpFor(Kest, Wrapper::Parallel));
        verifyError(m_reader->take(), {noVariable()});
        const QStringList line{QStringLiteral("model.commands"),
                               QStringLiteral("--run-from-gui"),
                               QStringLiteral("-np"),
                               QStringLiteral("all"),
                               QStringLiteral("--machines-file"),
                               QString(),
                               QStringLiteral("--parallel-authenticate"),
                               QStringLiteral("sspi"),
                               QStringLiteral("--use-gpu"),
                               QStringLiteral("0")};
        QCOMPARE(site.arguments(), line);
    }

    void passesTheLastCopyWhenTheUsersFolderIsUnknown()
    {
        Site site;
        QVERIFY(site.writeInstallationsMachines());
        QVERIFY(site.setUpFor(Kest, Wrapper::Parallel));
        const QString copy = QDir::toNativeSeparators(site.copies().value(0));
        QCOMPARE(site.arguments().value(5), copy);
        site.renewRunner();
        const Variable home("KEST_USER_HOME");
        QVERIFY(site.setUpFor(Optkest, Wrapper::FarmOut));
        verifyError(m_reader->take(), {noVariable()});
        QCOMPARE(site.copies(), QStringList(QDir::fromNativeSeparators(copy)));
        QCOMPARE(site.arguments().value(4), QStringLiteral("--machines-file"));
        QCOMPARE(site.arguments().value(5), copy);
    }

    void tellsWhatIsMissing_data()
    {
        QTest::addColumn<int>("setUp");
        QTest::addColumn<int>("options");
        QTest::addColumn<QString>("told"); // h, p and f: host, file for parallel and for farming
        QTest::addColumn<bool>("expected");
        QTest::addColumn<QString>("line");
        // clang-format off
        for (int options = 0; options < 8; ++options) {
            add(Prekest, options, "", true, "model.commands --run-from-gui");
        }
        add(Kest, 0, "",   true,  "model.commands --run-from-gui --use-gpu 0");
        add(Kest, 1, "p",  false, "model.commands --run-from-gui");
        add(Kest, 2, "h",  false, "model.commands");
        add(Kest, 3, "h",  false, "model.commands");
        add(Kest, 4, "",   true,  "model.commands --run-from-gui --use-gpu 0");
        add(Kest, 5, "p",  false, "model.commands --run-from-gui");
        add(Kest, 6, "h",  false, "model.commands");
        add(Kest, 7, "h",  false, "model.commands");
        add(Optkest, 0, "",   true,  "model.commands --run-from-gui -r --runkest-options --use-gpu 0");
        add(Optkest, 1, "p",  false, "model.commands --run-from-gui -r");
        add(Optkest, 2, "h",  false, "model.commands --run-from-gui -r --runkest-options");
        add(Optkest, 3, "p",  false, "model.commands --run-from-gui -r");
        add(Optkest, 4, "f",  true,  "model.commands --run-from-gui -r --runkest-options --use-gpu 0");
        add(Optkest, 5, "fp", false, "model.commands --run-from-gui -r");
        add(Optkest, 6, "fh", false, "model.commands --run-from-gui -r --runkest-options");
        add(Optkest, 7, "fp", false, "model.commands --run-from-gui -r");
        for (int options = 0; options < 8; options += 2) {
            add(Amrkest, options, "", true, "model.commands --run-from-gui --runkest-options --use-gpu 0");
            add(Amrkest, options + 1, "", true, "model.commands --run-from-gui --runkest-options --parallel-authenticate sspi --use-gpu 0");
        }
        // clang-format on
    }

    void tellsWhatIsMissing()
    {
        QFETCH(int, setUp);
        QFETCH(int, options);
        QFETCH(QString, told);
        QFETCH(bool, expected);
        QFETCH(QString, line);
        const Site site;
        QVERIFY(site.writeOptions("Optkest.DeleteAllFiles=true\nKest.RemoteHost=\"  \"\n"));
        QCOMPARE(site.setUpFor(SetUp(setUp), Options(QFlag(options))), expected);
        QVector<Error> errors;
        for (const QChar letter : qAsConst(told)) {
            errors.append(errorOf(letter));
        }
        verifyError(m_reader->take(), errors);
        QCOMPARE(site.arguments(), words(line));
        QCOMPARE(site.copies(), QStringList());
    }

    void keepsTheEnvironmentBackFromARunWithoutAHost()
    {
        const Site site;
        QVERIFY(site.writeOptions("Kest.ParallelEnvOptions=3\n"));
        QVERIFY(!site.setUpFor(Kest, Wrapper::Remote));
        verifyError(m_reader->take(), {noHost()});
        QCOMPARE(site.runner->getExecutable().filePath(), site.program("runkest"));
        QCOMPARE(site.runner->getWorkingDirectory(), site.model.path());
        const Variable passed("KEST_TEST_PASSED");
        const Variable statistics("KEST_MPISTATISTICS");
        QCOMPARE(wordsOfRun(site), QStringList{QDir::toNativeSeparators(
                                       QFileInfo(site.model.path()).canonicalFilePath())} +
                                       words("unset unset unset"));
    }

    void copiesForAFarmedRunThatHasNoHost()
    {
        const Site site;
        QVERIFY(site.writeUsersMachines());
        QVERIFY(!site.setUpFor(Optkest, Wrapper::FarmOut | Wrapper::Remote));
        verifyError(m_reader->take(), {noHost()});
        QCOMPARE(site.arguments(),
                 words("model.commands --run-from-gui -np 2 --machines-file") +
                     QStringList(QDir::toNativeSeparators(site.copies().value(0))) +
                     words("--runkest-options"));
    }

    void readsTheOptionsAtEverySetUp()
    {
        Site site;
        QVERIFY(site.writeOptions("Kest.ProcessPriority=4\n"));
        QVERIFY(site.setUpFor(Kest, Options()));
        QCOMPARE(site.arguments(), words("model.commands --run-from-gui --priority 4 --use-gpu 0"));
        QVERIFY(site.writeOptions("Kest.ProcessPriority=0\nAdaptkest.DeleteTempFiles=false\n"));
        site.renewRunner();
        QVERIFY(site.setUpFor(Kest, Options()));
        QCOMPARE(site.arguments(), words("model.commands --run-from-gui --priority 0 --use-gpu 0 "
                                         "--adaptkest-options --keep-files"));
    }

    void findsAMachinesFileThatWasMadeMeanwhile()
    {
        Site site;
        QVERIFY(!site.setUpFor(Kest, Wrapper::Parallel));
        verifyError(m_reader->take(), {errorOf(QLatin1Char('p'))});
        QVERIFY(site.writeUsersMachines());
        site.renewRunner();
        QVERIFY(site.setUpFor(Kest, Wrapper::Parallel));
        QCOMPARE(site.copies().size(), 1);
    }

private:
    static Error noVariable()
    {
        return {QStringLiteral("No such environment variable"),
                QStringLiteral("Please set the environment variable KEST_USER_HOME before "
                               "proceeding.")};
    }

    static Error errorOf(QChar letter)
    {
        switch (letter.toLatin1()) {
        case 'p':
            return {QStringLiteral("No machines file"),
                    QStringLiteral(
                        "No machines file could be found. Please configure one using\n"
                        "\"Component launch options\" (select the \"Kest Solver\" tab and\n"
                        "click \"Configure\") or uncheck \"Parallel\" on the \"Run/launch\"\n"
                        "group to switch to sequential execution.\n")};
        case 'f':
            return {
                QStringLiteral("No machines file"),
                QStringLiteral("No machines file could be found. Please configure one using\n"
                               "\"Component launch options\" (select the \"Utilities\" tab and\n"
                               "click \"Configure\") or uncheck \"Run -> Farm out by OPTKEST\"\n"
                               "to switch to sequential execution.")};
        default:
            return noHost();
        }
    }

    static void add(SetUp setUp, int options, const char* told, bool expected, const char* line)
    {
        QTest::addRow("set-up %d, flags %d", int(setUp), options)
            << int(setUp) << options << QString::fromLatin1(told) << expected
            << QString::fromLatin1(line);
    }
};

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    tst_common_RunWrapper_machines test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_common_RunWrapper_machines.moc"
