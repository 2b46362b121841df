// SPDX-License-Identifier: MIT
#include "OptionsStage.h"

#include <CommandLine.h>
#include <Component.h>
#include <RunArchive.h>

#include <QRegularExpression>

namespace {

QStringList sorted(QStringList words)
{
    words.sort();
    return words;
}

QStringList splitWords(const QString& line)
{
    return line.split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

} // namespace

// What bash completes is what the program takes.
class tst_completion : public QObject, private OptionsStage
{
    Q_OBJECT

private:
    /// Of the last of the words, which are as bash has them: "''" for none yet.
    QString completionsOf(const QString& words)
    {
        const Result result =
            runProgram(text("bash"),
                       {text("--norc"), text("-c"),
                        QStringLiteral("complete() { :; }; compopt() { :; }; source %1; "
                                       "COMP_WORDS=(%2 %3); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); "
                                       "cd \"$KEST_HOME\"; _kestdesk; echo \"${COMPREPLY[@]}\"")
                            .arg(text(KESTDESK_COMPLETION), text(KESTDESK), words)});
        m_errors = result.errors;
        return result.output.trimmed();
    }

    /// The long options that --help shows.
    QStringList shownOptions()
    {
        QStringList result;
        static const QRegularExpression pattern(text("^  (?:-\\w, )?(--[a-z-]+)"),
                                                QRegularExpression::MultilineOption);
        auto matches = pattern.globalMatch(runProgram(text(KESTDESK), {text("--help")}).output);
        while (matches.hasNext()) {
            result.append(matches.next().captured(1));
        }
        return result;
    }

    QString m_errors;
    const ApplicationDescription m_application = CommandLine::application();

private Q_SLOTS:
    void init() { reset(); }

    void bashCompletes_data()
    {
        QTest::addColumn<QString>("words"); // with the one to complete last
        QTest::addColumn<QString>("completions");
        // clang-format off
        QTest::newRow("command")      << "options l"                              << "list";
        QTest::newRow("commands")     << "options ''"                             << "list get set restore values";
        QTest::newRow("name")         << "options get Kest.ProcessP"              << "Kest.ProcessPriority";
        QTest::newRow("name to set")  << "options set Kest.ProcessP"              << "Kest.ProcessPriority=";
        QTest::newRow("wait")         << "options set --"                         << "--wait";
        QTest::newRow("wait, restore") << "options restore -"                     << "--wait";
        QTest::newRow("restore")      << "options restore ''"                     << "--wait";
        QTest::newRow("seconds")      << "options set --wait ''"                  << "";
        QTest::newRow("behind wait")  << "options set --wait 5 Kest.ProcessP"     << "Kest.ProcessPriority=";
        QTest::newRow("behind wait, sign") << "options set --wait = 5 FarmO"      << "FarmOut=";
        QTest::newRow("seconds, sign") << "options set --wait ="                  << "";
        QTest::newRow("no wait")      << "options get --"                         << "";
        QTest::newRow("list")         << "options list ''"                        << "";
        QTest::newRow("values")       << "options set RunRemote ="                << "true false";
        QTest::newRow("value")        << "options set Kest.ProcessPriority = Low" << "LowProcessPriority";
        QTest::newRow("machines")     << "machines ''"                            << "show check edit use-local";
        QTest::newRow("machines' option") << "machines show -"                    << "--json";
        QTest::newRow("this machine") << "machines use-local -"                   << "--replace";
        QTest::newRow("limit")        << "machines check --t"                     << "--timeout";
        QTest::newRow("runs")         << "runs s"                                 << "show";
        QTest::newRow("run")          << "runs show ''"                           << "last";
        QTest::newRow("run's option") << "runs show --m"                          << "--messages";
        QTest::newRow("resumption")   << "runs again --r"                         << "--resume";
        QTest::newRow("left out")     << "runs again --w"                         << "--without";
        QTest::newRow("host")         << "runs again --without ''"                << "";
        QTest::newRow("state")        << "runs list --state v"                    << "valid";
        QTest::newRow("state of words") << "runs list --state c"                  << "could\\ not\\ start";
        QTest::newRow("number of days") << "runs clean --days ''"                 << "";
        QTest::newRow("component")    << "--non-interactive --component o"        << "optkest";
        QTest::newRow("components")   << "--component ''"                         << "runkest prekest optkest amrkest";
        QTest::newRow("with sign")    << "--component = a"                        << "amrkest";
        QTest::newRow("run options")  << "--component optkest --fa"               << "--farm-out";
        QTest::newRow("parallel")     << "--p"                                    << "--parallel";
        QTest::newRow("first word")   << "mach"                                   << "machines";
        QTest::newRow("second name")  << "options set RunRemote = true FarmO"     << "FarmOut=";
        // clang-format on
    }

    void bashCompletes()
    {
        QFETCH(QString, words);
        QFETCH(QString, completions);
        const QString completed = completionsOf(words);
        QCOMPARE(m_errors, QString());
        QCOMPARE(completed, completions);
    }

    void firstWordsAreThoseOfTheHelp()
    {
        QStringList expected = shownOptions();
        QVERIFY(expected.size() >= 8);
        for (const SubcommandGroup& group : m_application.commandGroups) {
            expected.append(group.name());
        }
        QCOMPARE(sorted(splitWords(completionsOf(text("''")))), sorted(expected));
    }

    void numbersOfRunsAreThoseOfTheArchive()
    {
        RunRecord record;
        record.started = QDateTime::currentDateTimeUtc();
        record.model = text("m.nec");
        const RunArchive archive(QFileInfo(settingsFile()).path() + text("/runs"));
        QCOMPARE(archive.add(record, {}).number, 1);
        QCOMPARE(archive.add(record, {}).number, 2);
        QCOMPARE(completionsOf(text("runs show ''")), text("last 2 1"));
        QCOMPARE(completionsOf(text("runs compare 1 l")), text("last"));
    }

    void componentsAreThoseOfTheTable()
    {
        QCOMPARE(sorted(splitWords(completionsOf(text("--component ''")))),
                 sorted(Component::names().split(text(", "))));
    }

    void commandsAreThoseOfTheTable_data()
    {
        QTest::addColumn<int>("group");
        for (int i = 0; i < m_application.commandGroups.size(); ++i) {
            QTest::newRow(qPrintable(m_application.commandGroups.at(i).name())) << i;
        }
    }

    void commandsAreThoseOfTheTable()
    {
        QFETCH(int, group);
        const SubcommandGroup& commands = m_application.commandGroups.at(group);
        QStringList expected;
        for (const Subcommand& command : commands.commands()) {
            expected.append(text(command.name));
        }
        QCOMPARE(splitWords(completionsOf(commands.name() + text(" ''"))), expected);
    }

    void optionsOfCommandsAreThoseOfTheTable_data()
    {
        QTest::addColumn<QString>("words");
        QTest::addColumn<QString>("options");
        for (const SubcommandGroup& group : m_application.commandGroups) {
            for (const Subcommand& command : group.commands()) {
                const QString words = group.name() + QLatin1Char(' ') + text(command.name);
                QStringList names;
                for (const SubcommandOption& option : command.options) {
                    names.append(text(option.name));
                }
                QTest::newRow(qPrintable(words)) << words << names.join(QLatin1Char(' '));
            }
        }
    }

    void optionsOfCommandsAreThoseOfTheTable()
    {
        QFETCH(QString, words);
        QFETCH(QString, options);
        QCOMPARE(completionsOf(words + text(" --")), options);
    }
};

QTEST_GUILESS_MAIN(tst_completion)
#include "tst_completion.moc"
