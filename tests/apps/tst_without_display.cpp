// SPDX-License-Identifier: MIT
#include <Text.h>

#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

namespace {

struct Result
{
    int exitCode = -1;
    QString output;
    QString errors;
};

const QStringList& applications()
{
    static const QStringList paths = text(APPLICATIONS).split(QLatin1Char('|'));
    return paths;
}

} // namespace

// What needs no window needs no display, and a window that cannot be shown is refused.
class tst_without_display : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_folder;

    // Without anything that a session has.
    Result run(const QString& program, const QStringList& arguments,
               const QMap<QString, QString>& variables = {}) const
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char* const name :
             {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM", "XDG_RUNTIME_DIR",
              "XDG_SESSION_TYPE", "XDG_CONFIG_HOME", "HOME", "KEST_HOME", "KEST_USER_HOME"}) {
            environment.remove(text(name));
        }
        environment.insert(text("LC_ALL"), text("C.UTF-8"));
        for (auto variable = variables.begin(); variable != variables.end(); ++variable) {
            environment.insert(variable.key(), variable.value());
        }
        QProcess process;
        process.setProcessEnvironment(environment);
        process.setWorkingDirectory(m_folder.path());
        process.start(program, arguments);
        Result result;
        if (!process.waitForFinished(60000)) {
            process.kill();
            process.waitForFinished();
        } else if (process.exitStatus() == QProcess::NormalExit) {
            result.exitCode = process.exitCode();
        }
        result.output = QString::fromUtf8(process.readAllStandardOutput());
        result.errors = QString::fromUtf8(process.readAllStandardError());
        return result;
    }

    static void addRows(const QVector<QStringList>& commands)
    {
        QTest::addColumn<QString>("program");
        QTest::addColumn<QStringList>("arguments");
        for (const QString& program : applications()) {
            for (const QStringList& command : commands) {
                const QString name = QFileInfo(program).fileName() + QLatin1Char(' ') +
                                     command.join(QLatin1Char(' '));
                QTest::newRow(qPrintable(name)) << program << command;
            }
        }
    }

private Q_SLOTS:
    void answerThatCannotBeWrittenIsAFailure_data()
    {
        addRows({{text("--help")}, {text("--help-all")}, {text("--version")}});
    }

    void answerThatCannotBeWrittenIsAFailure()
    {
        QFETCH(QString, program);
        QFETCH(QStringList, arguments);
        const Result result =
            run(text("/bin/sh"),
                QStringList{text("-c"), text(R"(exec "$0" "$@" >/dev/full)"), program} + arguments);
        QCOMPARE(result.errors,
                 QFileInfo(program).fileName() + text(": the output could not be written\n"));
        QCOMPARE(result.exitCode, 1);
    }

    void emptyNameIsRefused_data() { addRows({{text("--non-interactive"), QString()}}); }

    void emptyNameIsRefused()
    {
        QFETCH(QString, program);
        QFETCH(QStringList, arguments);
        const Result result = run(program, arguments);
        QVERIFY2(
            QRegularExpression(
                text("\\A%1: the name of a [a-z]+ is empty\n").arg(QFileInfo(program).fileName()))
                .match(result.errors)
                .hasMatch(),
            qPrintable(result.errors));
        QCOMPARE(result.exitCode, 2);
    }

    void questionsAreAnswered_data()
    {
        addRows({{text("--help")},
                 {text("-h")},
                 {text("--help-all")},
                 {text("--version")},
                 {text("-v")},
                 {text("--help"), text("model")},
                 {text("--non-interactive"), text("--help")}});
    }

    void questionsAreAnswered()
    {
        QFETCH(QString, program);
        QFETCH(QStringList, arguments);
        const Result result = run(program, arguments);
        QCOMPARE(result.errors, QString());
        QCOMPARE(result.exitCode, 0);
        const bool asksForVersion = arguments.first().startsWith(QLatin1String("-v")) ||
                                    arguments.first() == QLatin1String("--version");
        if (asksForVersion) {
            const QStringList lines = result.output.split(QLatin1Char('\n'));
            QCOMPARE(lines.value(0), QFileInfo(program).fileName() + text(" " KEST_VERSION));
            QVERIFY2(lines.value(1).startsWith(text("Engine: ")), qPrintable(result.output));
            QVERIFY2(lines.value(2).startsWith(text("Qt ")), qPrintable(result.output));
            return;
        }
        QVERIFY2(result.output.startsWith(text("Usage: ")) &&
                     result.output.contains(text("--non-interactive")) &&
                     result.output.contains(text("\nExit code of --non-interactive: 0 ")),
                 qPrintable(result.output));
        QCOMPARE(result.output.contains(text("  --style <name>")),
                 arguments.first() == QLatin1String("--help-all"));
    }

    // Those that have commands of their own answer for these, too.
    void commandsAnswerQuestions_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("usage");
        for (const char* const group : {"options", "machines"}) {
            for (const char* const question : {"--help", "-h"}) {
                QTest::addRow("%s %s", group, question)
                    << QStringList{text(group), text(question)}
                    << QStringLiteral("Usage: kestdesk %1 COMMAND\n").arg(text(group));
            }
        }
    }

    void commandsAnswerQuestions()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, usage);
        const QString kestdesk =
            applications().filter(QRegularExpression(text("/kestdesk$"))).value(0);
        const Result result = run(kestdesk, arguments);
        QCOMPARE(result.errors, QString());
        QCOMPARE(result.exitCode, 0);
        QVERIFY2(result.output.startsWith(usage), qPrintable(result.output));
        QVERIFY(run(kestdesk, {text("--help")}).output.contains(result.output));
    }

    // A script that cannot be recorded is no matter of the help, and neither are odd folders.
    void questionsNeedNothing_data() { addRows({{text("--help")}, {text("--version")}}); }

    void questionsNeedNothing()
    {
        QFETCH(QString, program);
        QFETCH(QStringList, arguments);
        const Result result = run(program, arguments,
                                  {{text("KEST_HOME"), text("/no such folder")},
                                   {text("KEST_USER_HOME"), text("/no such folder")},
                                   {text("KEST_SCRIPT"), text("/no such folder/script")},
                                   {text("TMPDIR"), text("/no such folder")}});
        QCOMPARE(result.errors, QString());
        QCOMPARE(result.exitCode, 0);
        QVERIFY(!result.output.isEmpty());
    }

    void windowIsRefused_data()
    {
        // Behind two hyphens there are no options. Qt's own are taken by the application object,
        // which needs the display.
        addRows({{},
                 {text("model")},
                 {text("--"), text("--help")},
                 {text("--"), text("-v")},
                 {text("-style"), text("fusion")},
                 {text("--reverse"), text("model")}});
    }

    void windowIsRefused()
    {
        QFETCH(QString, program);
        QFETCH(QStringList, arguments);
        const Result result = run(program, arguments);
        QCOMPARE(result.exitCode, 2);
        QVERIFY2(result.errors.contains(text("there is no display")), qPrintable(result.errors));
        QCOMPARE(result.output, QString());
    }

    // Qt would take the root folder, and make folders of its own there.
    void missingTemporaryFolderIsTold_data() { addRows({{text("model")}}); }

    void missingTemporaryFolderIsTold()
    {
        QFETCH(QString, program);
        QFETCH(QStringList, arguments);
        const QStringList before = QDir(text("/")).entryList();
        const Result result = run(program, arguments,
                                  {{text("QT_QPA_PLATFORM"), text("offscreen")},
                                   {text("TMPDIR"), text("/no such folder")}});
        QCOMPARE(QDir(text("/")).entryList(), before);
        QCOMPARE(result.exitCode, 2);
        QVERIFY2(result.errors.contains(text("the temporary folder '/no such folder' cannot be "
                                             "used, it does not exist (TMPDIR names it)")),
                 qPrintable(result.errors));
    }

    void mistakesAreTold_data() { addRows({{text("--nonsense")}, {text("--help=5")}}); }

    void mistakesAreTold()
    {
        QFETCH(QString, program);
        QFETCH(QStringList, arguments);
        const Result result = run(program, arguments);
        QCOMPARE(result.exitCode, 2);
        QVERIFY2(result.errors.startsWith(QFileInfo(program).fileName() + text(": ")) &&
                     !result.errors.contains(text("display")),
                 qPrintable(result.errors));
    }
};

QTEST_GUILESS_MAIN(tst_without_display)
#include "tst_without_display.moc"
