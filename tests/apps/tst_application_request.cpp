// SPDX-License-Identifier: MIT
#include "ApplicationDescription.h"
#include "ApplicationRequest.h"
#include "PictureOptions.h"

#include <QCommandLineParser>
#include <QtTest>

Q_DECLARE_METATYPE(WindowSystem)

namespace {

constexpr int windowCode = 10;
constexpr int pictureCode = 11;
constexpr int commandCode = 12;

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

const PictureOptions pictureOptions = {text("Where to."), {300, 200}, 16, 1000};

int runCommand(const SubcommandWords& /*words*/)
{
    return commandCode;
}

// Refuses models that are called "bad".
ApplicationTask task(const QCommandLineParser& parser, int exitCode)
{
    const bool isBad = parser.positionalArguments().contains(text("bad"));
    return {isBad ? text("bad model") : QString(), [exitCode] { return exitCode; }};
}

ApplicationDescription application()
{
    ApplicationDescription result;
    result.identity.name = text("program");
    result.fileKind = text("model");
    result.fileSyntax = text("[model...]");
    result.options =
        pictureOptions.options() +
        QVector<ApplicationOption>{
            {{text("fast"), text("Hurry.")}, true, text("the window has a box for it")},
            {{text("anywhere"), text("Both.")}, false, QString()}};
    result.commandGroups = {
        {text("things"), {{"list", {}, "", "show all of them", runCommand}}, QString()}};
    result.windowTask = [](const QCommandLineParser& parser) { return task(parser, windowCode); };
    result.nonInteractiveTask = [](const QCommandLineParser& parser) {
        const QString problem = pictureOptions.sizeProblem(parser);
        return problem.isEmpty() ? task(parser, pictureCode) : ApplicationTask{problem, {}};
    };
    result.nonInteractiveSystem = WindowSystem::Offscreen;
    return result;
}

QStringList words(const QString& line)
{
    return QStringList(text("program")) + line.split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

} // namespace

// What a command line asks an application for, before there is an application object.
class tst_application_request : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tasksAreFound_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<WindowSystem>("windowSystem");
        QTest::addColumn<int>("exitCode");
        const auto row = [](const char* line, WindowSystem windowSystem, int exitCode) {
            QTest::newRow(line) << text(line) << windowSystem << exitCode;
        };
        row("", WindowSystem::Display, windowCode);
        row("a", WindowSystem::Display, windowCode);
        row("--anywhere a", WindowSystem::Display, windowCode);
        row("-- --help", WindowSystem::Display, windowCode);
        row("-- --non-interactive", WindowSystem::Display, windowCode);
        row("a things", WindowSystem::Display, windowCode);
        row("-- things", WindowSystem::Display, windowCode);
        row("--non-interactive a", WindowSystem::Offscreen, pictureCode);
        row("a b --non-interactive --fast --anywhere", WindowSystem::Offscreen, pictureCode);
        row("things list", WindowSystem::None, commandCode);
    }

    void tasksAreFound()
    {
        QFETCH(QString, line);
        QFETCH(WindowSystem, windowSystem);
        QFETCH(int, exitCode);
        const ApplicationDescription program = application();
        const ApplicationRequest request = ApplicationRequest::read(program, words(line));
        QCOMPARE(request.task.problem, QString());
        QCOMPARE(request.windowSystem, windowSystem);
        QVERIFY(!request.isStandalone);
        QCOMPARE(request.task.run(), exitCode);
    }

    void questionsNeedNoWindowSystem_data()
    {
        QTest::addColumn<QString>("line");
        for (const char* const line :
             {"--help", "-h", "--help-all", "--version", "-v", "a --help", "--fast --help",
              "--non-interactive --version", "bad -h", "a things --help"}) {
            QTest::newRow(line) << text(line);
        }
    }

    void questionsNeedNoWindowSystem()
    {
        QFETCH(QString, line);
        const ApplicationDescription program = application();
        const ApplicationRequest request = ApplicationRequest::read(program, words(line));
        QCOMPARE(request.task.problem, QString());
        QCOMPARE(request.windowSystem, WindowSystem::None);
        QVERIFY(request.isStandalone);
    }

    void consoleProgramNeedsNothing()
    {
        ApplicationDescription program;
        program.identity.name = text("program");
        program.consoleCommands = {{"check", {}, "[FILE]", "check it", runCommand}};
        const QVector<QPair<const char*, int>> rows = {{"check", commandCode},
                                                       {"check a", commandCode},
                                                       {"check a b", 2},
                                                       {"chek", 2},
                                                       {"", 2},
                                                       {"--help", 0},
                                                       {"--version", 0},
                                                       {"-v", 0},
                                                       {"--nonsense", 2}};
        for (const auto& [line, exitCode] : rows) {
            const ApplicationRequest request = ApplicationRequest::read(program, words(text(line)));
            QCOMPARE(request.task.problem, QString());
            QCOMPARE(request.windowSystem, WindowSystem::None);
            QVERIFY(request.isStandalone);
            QCOMPARE(request.task.run(), exitCode);
        }
    }

    void mistakesAreProblems_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QString>("problem");
        QTest::addColumn<WindowSystem>("windowSystem");
        const auto row = [](const char* line, const char* problem,
                            WindowSystem windowSystem = WindowSystem::None) {
            QTest::newRow(line) << text(line) << text(problem) << windowSystem;
        };
        row("--non-interactive", "no model given");
        row("--non-interactive bad", "bad model");
        row("bad", "bad model");
        row("--nonsense a", "Unknown option 'nonsense'.");
        row("--fast a", "--fast needs --non-interactive; the window has a box for it");
        row("--fast bad", "bad model");
        row("--output a.png a", "--output needs --non-interactive");
        row("--size 100x100", "--size needs --non-interactive");
        // Qt's own, which only an application object with windows takes out.
        row("--reverse a", "Unknown option 'reverse'.", WindowSystem::Display);
        row("--style=fusion a", "Unknown option 'style'.", WindowSystem::Display);
        row("--styles a", "Unknown option 'styles'.");
    }

    void mistakesAreProblems()
    {
        QFETCH(QString, line);
        QFETCH(QString, problem);
        QFETCH(WindowSystem, windowSystem);
        const ApplicationDescription program = application();
        const ApplicationRequest request = ApplicationRequest::read(program, words(line));
        QCOMPARE(request.task.problem, problem);
        QCOMPARE(request.windowSystem, windowSystem);
        QVERIFY(!request.isStandalone);
    }

    void sizesHaveLimits_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QSize>("size");
        const auto row = [](const char* typed, const QSize& size) {
            QTest::newRow(typed) << text(typed) << size;
        };
        row("16x16", {16, 16});
        row("1000x1000", {1000, 1000});
        row("40X30", {40, 30});
        for (const char* const typed :
             {"", "x", "100", "100x", "x100", "15x100", "100x15", "1001x100", "100x1001", "0x100",
              "-100x100", "axb", "100x100x100", "1e2x100", "99999999999x100", "100.0x100"}) {
            row(typed, QSize());
        }
    }

    void sizesHaveLimits()
    {
        QFETCH(QString, typed);
        QFETCH(QSize, size);
        QCommandLineParser parser;
        const QVector<ApplicationOption> options = pictureOptions.options();
        for (const ApplicationOption& own : options) {
            parser.addOption(own.option);
        }
        QVERIFY(parser.parse({text("program"), text("--size"), typed}));
        if (size.isValid()) {
            QCOMPARE(pictureOptions.sizeProblem(parser), QString());
            QCOMPARE(PictureOptions::size(parser), size);
        } else {
            QCOMPARE(pictureOptions.sizeProblem(parser),
                     QStringLiteral("\"%1\" is no size: width x height, from 16 to 1000 pixels")
                         .arg(typed));
        }
    }

    void sizeIsTheUsualOneWhereNoneIsGiven()
    {
        QCommandLineParser parser;
        const QVector<ApplicationOption> options = pictureOptions.options();
        for (const ApplicationOption& own : options) {
            parser.addOption(own.option);
        }
        QVERIFY(parser.parse({text("program")}));
        QCOMPARE(pictureOptions.sizeProblem(parser), QString());
        QCOMPARE(PictureOptions::size(parser), QSize(300, 200));
        QVERIFY(!PictureOptions::hasOutput(parser));
        QVERIFY(parser.helpText().contains(text("default: 300x200")));
    }
};

QTEST_GUILESS_MAIN(tst_application_request)
#include "tst_application_request.moc"
