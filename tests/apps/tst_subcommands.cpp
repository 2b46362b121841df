// SPDX-License-Identifier: MIT
#include "SubcommandGroup.h"
#include "SubcommandWords.h"

#include <QtTest>

namespace {

constexpr SubcommandOption flag = {"--flag"};
constexpr SubcommandOption number = {"--wait", "SECONDS", 1, 60};
constexpr SubcommandOption word = {"--state", "WORD"};

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

// What the command that was run last has been given.
QStringList& lastWords()
{
    static QStringList words;
    return words;
}

int note(const SubcommandWords& words)
{
    lastWords() = words.operands();
    lastWords().append(words.has("--flag") || words.has("--wait") ? text("option")
                                                                  : text("no option"));
    lastWords().append(QString::number(words.number("--wait", 5)));
    if (words.has("--state")) {
        lastWords().append(words.text("--state"));
    }
    return 42;
}

SubcommandGroup group()
{
    // clang-format off
    return {text("things"), {
        {"list", {},                   "",              "show all of them",  note},
        {"show", {flag},               "",              "show one of them",  note},
        {"get",  {},                   "NAME",          "show its value",    note},
        {"set",  {number},             "NAME=VALUE...", "change its value",  note},
        {"find", {word, flag, number}, "A B [NAME]",    "find some of them", note},
        {"drop", {flag},               "[NAME...]",     "drop some of them", note},
    }, text("  Values are kept.\n")};
    // clang-format on
}

} // namespace

// The table of an application's subcommands, and the words that are read by it.
class tst_subcommands : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QCoreApplication::setApplicationName(text("program")); }

    void init() { lastWords().clear(); }

    void usageIsTheTable()
    {
        QCOMPARE(group().usage(),
                 text("Usage: program things COMMAND\n"
                      "  list                                show all of them\n"
                      "  show [--flag]                       show one of them\n"
                      "  get NAME                            show its value\n"
                      "  set [--wait SECONDS] NAME=VALUE...  change its value\n"
                      "  find [--state WORD] [--flag] [--wait SECONDS] A B [NAME]\n"
                      "                                      find some of them\n"
                      "  drop [--flag] [NAME...]             drop some of them\n"
                      "  Values are kept.\n"));
    }

    void programOfCommandsAloneHasAUsage()
    {
        const SubcommandGroup alone(QString(), {{"list", {}, "", "show all", note}}, QString());
        QCOMPARE(alone.usage(), text("Usage: program COMMAND\n  list  show all\n"));
    }

    void commandsGetTheirWords_data()
    {
        QTest::addColumn<QString>("words");
        QTest::addColumn<QString>("noted");
        const auto row = [](const char* words, const char* noted) {
            QTest::newRow(words) << text(words) << text(noted);
        };
        row("list", "no option 5");
        row("show", "no option 5");
        row("show --flag", "option 5");
        row("get a", "a no option 5");
        row("set a=1", "a=1 no option 5");
        row("set a=1 b=--wait", "a=1 b=--wait no option 5");
        row("set --wait 1 a=1", "a=1 option 1");
        row("set a=1 --wait=60 b=2", "a=1 b=2 option 60");
        row("set a=1 --wait 7", "a=1 option 7");
        row("find a b", "a b no option 5");
        row("find a b c", "a b c no option 5");
        row("find a --flag --state good b", "a b option 5 good");
        row("find a b --wait 9 --state=so=so", "a b option 9 so=so");
        row("drop", "no option 5");
        row("get -", "- no option 5");
        row("drop a b c d --flag", "a b c d option 5");
    }

    void commandsGetTheirWords()
    {
        QFETCH(QString, words);
        QFETCH(QString, noted);
        QCOMPARE(group().run(words.split(QLatin1Char(' '))), 42);
        QCOMPARE(lastWords().join(QLatin1Char(' ')), noted);
    }

    void wordsThatMakeNoSenseAreProblems_data()
    {
        QTest::addColumn<int>("command");
        QTest::addColumn<QString>("words");
        QTest::addColumn<QString>("problem");
        const auto row = [](int command, const char* words, const char* problem) {
            QTest::addRow("%d %s", command, words) << command << text(words) << text(problem);
        };
        row(0, "a", "unexpected argument \"a\"");
        row(0, "--flag", "unknown option \"--flag\"");
        row(0, "-x", "unknown option \"-x\"");
        row(1, "--flag --flag", "--flag is given twice");
        row(1, "--flag=1", "--flag takes no value");
        row(1, "--flags", "unknown option \"--flags\"");
        row(2, "", "NAME is missing");
        row(2, "a b", "unexpected argument \"b\"");
        row(3, "--wait 5", "NAME=VALUE is missing");
        row(3, "--wait 0 a=1", "--wait takes whole seconds from 1 to 60, and not \"0\"");
        row(3, "--wait 61 a=1", "--wait takes whole seconds from 1 to 60, and not \"61\"");
        row(3, "--wait a=1", "--wait takes whole seconds from 1 to 60, and not \"a=1\"");
        row(3, "a=1 --wait", "--wait takes whole seconds from 1 to 60, and not \"\"");
        row(3, "a=1 --wait=", "--wait takes whole seconds from 1 to 60, and not \"\"");
        row(3, "--wait 1.5 --nonsense", "--wait takes whole seconds from 1 to 60, and not \"1.5\"");
        row(3, "--wait=2 --wait 3 a=1", "--wait is given twice");
        row(4, "", "A is missing");
        row(4, "a", "B is missing");
        row(4, "a b c d", "unexpected argument \"d\"");
        row(4, "a b --state", "--state takes a word");
        row(4, "a b --state=", "--state takes a word");
        row(4, "--state x a b --state x", "--state is given twice");
        row(4, "--flag --wait 0 a b", "--wait takes whole seconds from 1 to 60, and not \"0\"");
        row(5, "--wait", "unknown option \"--wait\"");
        row(3, "--flag=1 a=1", "unknown option \"--flag\"");
    }

    void wordsThatMakeNoSenseAreProblems()
    {
        QFETCH(int, command);
        QFETCH(QString, words);
        QFETCH(QString, problem);
        const SubcommandGroup things = group();
        const QStringList list = words.split(QLatin1Char(' '), Qt::SkipEmptyParts);
        const Subcommand& row = things.commands().at(command);
        QCOMPARE(SubcommandWords(row, list).problem(), problem);
        QCOMPARE(things.run(QStringList(text(row.name)) + list), 2);
        QCOMPARE(lastWords(), QStringList());
    }

    void unknownCommandsAreRefused()
    {
        QCOMPARE(group().run({}), 2);
        QCOMPARE(group().run({text("lists")}), 2);
        QCOMPARE(group().run({QString()}), 2);
        QCOMPARE(lastWords(), QStringList());
    }

    void helpRunsNothing_data()
    {
        QTest::addColumn<QString>("words");
        for (const char* const words :
             {"--help", "-h", "list --help", "set a=1 -h", "nothing -h"}) {
            QTest::newRow(words) << text(words);
        }
    }

    void helpRunsNothing()
    {
        QFETCH(QString, words);
        QCOMPARE(group().run(words.split(QLatin1Char(' '))), 0);
        QCOMPARE(lastWords(), QStringList());
    }
};

QTEST_GUILESS_MAIN(tst_subcommands)
#include "tst_subcommands.moc"
