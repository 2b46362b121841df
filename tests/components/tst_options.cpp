// SPDX-License-Identifier: MIT
#include "SuiteRun.h"

#include "CommandLine.h"

#include <SystemSkips.h>
#include <Text.h>

#include <QTemporaryDir>
#include <QtTest>

using suite::CommandLine;
using suite::OptionGroup;

// The command lines that front ends make are understood, and every mistake is named.
class tst_options : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void accepted_data();
    void accepted();
    void refused_data();
    void refused();
    void valuesAreKeptByGroup();
    void lastValueCounts();
    void groupsEndAtTheNextSwitch();
    void rowsAreUnique();
    void helpNamesEveryOption_data();
    void helpNamesEveryOption();
    void versionIsPrinted();
    void answerThatCannotBeWrittenIsAFailure_data();
    void answerThatCannotBeWrittenIsAFailure();
    void programRefusesBeforeItWorks();
    void modelMayLookLikeAnOption();
};

void tst_options::accepted_data()
{
    QTest::addColumn<int>("group");
    QTest::addColumn<QStringList>("arguments");
    const auto add = [](OptionGroup group, const char* line) {
        QTest::newRow(line) << static_cast<int>(group) << words(line);
    };
    add(OptionGroup::Prekest, "m.nec");
    add(OptionGroup::Prekest, "m.nec --run-from-gui");
    add(OptionGroup::Prekest, "m.nec --run-from-gui --ignore-errors --print-variables");
    add(OptionGroup::Prekest, "--print-variables-to-out m.nec");
    add(OptionGroup::Prekest, "--help");
    add(OptionGroup::Prekest, "--version");
    add(OptionGroup::Runkest, "m.nec --run-from-gui --priority 0");
    add(OptionGroup::Runkest, "m.nec --priority 4 --use-gpu 0");
    add(OptionGroup::Runkest, "m.nec --use-gpu");
    add(OptionGroup::Runkest, "--use-gpu m.nec");
    add(OptionGroup::Runkest, "m.nec --use-gpu 2");
    add(OptionGroup::Runkest, "m.nec --use-gpu :0,1");
    add(OptionGroup::Runkest, "m.nec --use-gpu 2:0,1 --priority 1");
    add(OptionGroup::Runkest, "m.nec -np all --machines-file /tmp/gui_tmp_machfile_1");
    add(OptionGroup::Runkest, "m.nec -np 8 --parallel-authenticate localonly --use-gpu 0");
    add(OptionGroup::Runkest, "m.nec --parallel-authenticate sspi");
    add(OptionGroup::Runkest, "m.nec --parallel-authenticate default --remote-use-mpi");
    add(OptionGroup::Runkest, "m.nec -NP 3");
    add(OptionGroup::Runkest, "m.nec --remote-host node1 --run-from-gui");
    add(OptionGroup::Runkest, "m.nec --kest-options --check-only --mtl-circuit-export");
    add(OptionGroup::Runkest, "m.nec --prekest-options --ignore-errors --print-variables"
                              " --print-variables-to-out");
    add(OptionGroup::Runkest, "m.nec --adaptkest-options --restart 3 --keep-files");
    add(OptionGroup::Runkest, "m.nec --use-gpu --kest-options --check-only --prekest-options"
                              " --ignore-errors --adaptkest-options --keep-files");
    QTest::newRow("blank words") << static_cast<int>(OptionGroup::Runkest)
                                 << QStringList({QStringLiteral("m.nec"), QString(), QString()});
    QTest::newRow("several hosts")
        << static_cast<int>(OptionGroup::Runkest)
        << QStringList({QStringLiteral("m.nec"), QStringLiteral("--remote-host"),
                        QStringLiteral("node1 10.0.0.2;rm $(x)")});
}

void tst_options::accepted()
{
    QFETCH(int, group);
    QFETCH(QStringList, arguments);
    const CommandLine line(static_cast<OptionGroup>(group), arguments);
    QCOMPARE(line.errors(), QStringList());
    const bool onlyAsks = arguments.size() == 1 && arguments.first().startsWith(QLatin1Char('-'));
    QCOMPARE(line.model(), onlyAsks ? QString() : QStringLiteral("m.nec"));
}

void tst_options::refused_data()
{
    QTest::addColumn<int>("group");
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("culprit");
    const auto add = [](OptionGroup group, const char* line, const char* culprit) {
        QTest::newRow(line) << static_cast<int>(group) << words(line)
                            << QString::fromLatin1(culprit);
    };
    add(OptionGroup::Prekest, "", "no model");
    add(OptionGroup::Prekest, "--run-from-gui", "no model");
    add(OptionGroup::Prekest, "m.nec --ignore", "'--ignore'");
    add(OptionGroup::Prekest, "m.nec other.nec", "'other.nec'");
    add(OptionGroup::Prekest, "m.nec --priority 1", "'--priority'");
    add(OptionGroup::Prekest, "m.nec --check-only", "'--check-only'");
    add(OptionGroup::Runkest, "m.nec --check-only", "'--check-only'");
    add(OptionGroup::Runkest, "m.nec --ignore-errors", "'--ignore-errors'");
    add(OptionGroup::Runkest, "m.nec --kest-options --priority 1", "'--priority'");
    add(OptionGroup::Runkest, "m.nec --kest-options --ignore-errors", "'--ignore-errors'");
    add(OptionGroup::Runkest, "m.nec --priority", "--priority");
    add(OptionGroup::Runkest, "m.nec --priority --use-gpu", "--priority");
    add(OptionGroup::Runkest, "m.nec --priority 5", "--priority");
    add(OptionGroup::Runkest, "m.nec --priority -1", "--priority");
    add(OptionGroup::Runkest, "m.nec --priority high", "--priority");
    add(OptionGroup::Runkest, "m.nec --priority 99999999999", "--priority");
    add(OptionGroup::Runkest, "m.nec -np", "-np");
    add(OptionGroup::Runkest, "m.nec -np 0", "-np");
    add(OptionGroup::Runkest, "m.nec -np -4", "-np");
    add(OptionGroup::Runkest, "m.nec -np ALL", "-np");
    add(OptionGroup::Runkest, "m.nec -np 1.5", "-np");
    add(OptionGroup::Runkest, "m.nec --parallel-authenticate kerberos", "kerberos");
    add(OptionGroup::Runkest, "m.nec --machines-file", "--machines-file");
    add(OptionGroup::Runkest, "m.nec --machines-file --use-gpu", "--machines-file");
    add(OptionGroup::Runkest, "m.nec --remote-host -oProxyCommand=x", "--remote-host");
    add(OptionGroup::Runkest, "m.nec --use-gpu two", "'two'");
    add(OptionGroup::Runkest, "m.nec --adaptkest-options --restart", "--restart");
    add(OptionGroup::Runkest, "m.nec --adaptkest-options --restart first", "--restart");
    add(OptionGroup::Runkest, "m.nec --runkest-options", "'--runkest-options'");
    QTest::newRow("host behind a host")
        << static_cast<int>(OptionGroup::Runkest)
        << QStringList({QStringLiteral("m.nec"), QStringLiteral("--remote-host"),
                        QStringLiteral("node1 -v")})
        << QStringLiteral("--remote-host");
    QTest::newRow("marker") << static_cast<int>(OptionGroup::Runkest)
                            << QStringList({QStringLiteral("m.nec"), QStringLiteral("-*-error-*-")})
                            << QStringLiteral("- *-error- *-");
}

void tst_options::refused()
{
    QFETCH(int, group);
    QFETCH(QStringList, arguments);
    QFETCH(QString, culprit);
    const CommandLine line(static_cast<OptionGroup>(group), arguments);
    QVERIFY(!line.errors().isEmpty());
    QVERIFY2(line.errors().first().contains(culprit), qPrintable(line.errors().first()));
}

void tst_options::valuesAreKeptByGroup()
{
    const CommandLine line(OptionGroup::Runkest,
                           words("m.nec -np 3 --machines-file f --use-gpu 2:0,1 --remote-host h"
                                 " --adaptkest-options --restart 7"));
    const auto value = [&line](OptionGroup group, const char* name) {
        return line.value(group, QString::fromLatin1(name));
    };
    QCOMPARE(value(OptionGroup::Runkest, "-np"), QStringLiteral("3"));
    QCOMPARE(value(OptionGroup::Runkest, "--machines-file"), QStringLiteral("f"));
    QCOMPARE(value(OptionGroup::Runkest, "--use-gpu"), QStringLiteral("2:0,1"));
    QCOMPARE(value(OptionGroup::Runkest, "--remote-host"), QStringLiteral("h"));
    QCOMPARE(value(OptionGroup::Adaptkest, "--restart"), QStringLiteral("7"));
    QVERIFY(!line.has(OptionGroup::Runkest, QStringLiteral("--restart")));
    QVERIFY(!line.has(OptionGroup::Prekest, QStringLiteral("--ignore-errors")));
}

void tst_options::lastValueCounts()
{
    const CommandLine line(OptionGroup::Runkest, words("m.nec -np 3 -np all -np 5"));
    QCOMPARE(line.value(OptionGroup::Runkest, QStringLiteral("-np")), QStringLiteral("5"));
}

void tst_options::groupsEndAtTheNextSwitch()
{
    const CommandLine line(OptionGroup::Runkest,
                           words("m.nec --prekest-options --adaptkest-options --ignore-errors"));
    QCOMPARE(line.errors().size(), 1);
    QVERIFY(line.errors().first().contains(QLatin1String("--ignore-errors")));
}

void tst_options::rowsAreUnique()
{
    QSet<QPair<int, QString>> seen;
    const auto rows = suite::optionRows();
    for (const suite::OptionRow& row : rows) {
        const auto key = qMakePair(static_cast<int>(row.group), QString::fromLatin1(row.name));
        QVERIFY2(!seen.contains(key), row.name);
        seen.insert(key);
        QCOMPARE(suite::optionRow(row.group, key.second)->help, row.help);
    }
    QVERIFY(seen.size() > 15);
}

void tst_options::helpNamesEveryOption_data()
{
    QTest::addColumn<QString>("program");
    QTest::addColumn<QStringList>("options");
    QTest::newRow("prekest") << prekestProgram()
                             << words("--help --version --run-from-gui --ignore-errors"
                                      " --print-variables --print-variables-to-out");
    QTest::newRow("runkest") << runkestProgram()
                             << words("--help --priority -np --machines-file --use-gpu"
                                      " --kest-options --check-only --ignore-errors --restart");
}

void tst_options::helpNamesEveryOption()
{
    QFETCH(QString, program);
    QFETCH(QStringList, options);
    const SuiteResult result = runSuite(program, {QStringLiteral("--help")}, QDir::tempPath());
    QCOMPARE(result.exitCode, 0);
    for (const QString& option : options) {
        QVERIFY2(result.hasText(QStringLiteral("  ") + option + QLatin1Char(' ')),
                 qPrintable(option));
    }
}

void tst_options::versionIsPrinted()
{
    const SuiteResult result =
        runSuite(runkestProgram(), {QStringLiteral("--version")}, QDir::tempPath());
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.lines.size(), 1);
    QVERIFY(QRegularExpression(QStringLiteral("^runkest [0-9]+\\.[0-9]+"))
                .match(result.lines.first())
                .hasMatch());
}

void tst_options::answerThatCannotBeWrittenIsAFailure_data()
{
    QTest::addColumn<QStringList>("words");
    for (const char* const component : {"prekest", "runkest", "optkest", "amrkest", "adaptkest"}) {
        for (const char* const option : {"--help", "--version"}) {
            QTest::addRow("%s %s", component, option)
                << QStringList{QString::fromLatin1(component), QString::fromLatin1(option)};
        }
    }
    QTest::newRow("prekest model")
        << QStringList{QStringLiteral("prekest"), QStringLiteral("../models/dipole")};
}

void tst_options::answerThatCannotBeWrittenIsAFailure()
{
    SKIP_WITHOUT_FULL_DEVICE();
    QFETCH(QStringList, words);
    words[0] = QStringLiteral("./") + words[0];
    const SuiteResult result = runSuite(
        QStringLiteral("/bin/sh"),
        QStringList{QStringLiteral("-c"), QStringLiteral("exec \"$0\" \"$@\" >/dev/full")} + words,
        suiteHome() + QStringLiteral("/bin"));
    QCOMPARE(result.exitCode, 1);
}

void tst_options::programRefusesBeforeItWorks()
{
    const QTemporaryDir folder;
    QVERIFY(!copyModel(QStringLiteral("dipole.nec"), folder.path()).isEmpty());
    const SuiteResult result = runSuite(
        runkestProgram(), {QStringLiteral("dipole"), QStringLiteral("--nonsense")}, folder.path());
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(result.lines, QStringList(QStringLiteral(
                               "-*-error-*-ERROR 2001: runkest: unknown option '--nonsense'")));
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList(QStringLiteral("dipole.nec")));
}

void tst_options::modelMayLookLikeAnOption()
{
    const QTemporaryDir folder;
    QVERIFY(!writeFile(folder.path(), QStringLiteral("-a b.nec"), deckOf(dipoleCards())).isEmpty());
    const SuiteResult result =
        runSuite(prekestProgram(), {QStringLiteral("-a b.nec"), QStringLiteral("--run-from-gui")},
                 folder.path());
    QCOMPARE(result.exitCode, 0);
}

QTEST_GUILESS_MAIN(tst_options)
#include "tst_options.moc"
