// SPDX-License-Identifier: MIT
#include <ShellCommand.h>
#include <SystemSkips.h>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

namespace {

const QString root = QDir::toNativeSeparators(QDir::rootPath());
const QString child =
    QDir::toNativeSeparators(QFileInfo(QStringLiteral(KEST_TEST_CHILD)).absoluteFilePath());

// What a shell prints for a line that is pasted into it.
QByteArray outputOf(const QString& line)
{
    QProcess shell;
#ifdef Q_OS_WIN
    shell.setNativeArguments(QStringLiteral("/d /s /c \"%1\"").arg(line));
    shell.start(QStringLiteral("cmd"), QStringList());
#else
    shell.start(QStringLiteral("/bin/sh"), {QStringLiteral("-c"), line});
#endif
    return shell.waitForFinished(30000) ? shell.readAllStandardOutput() : "no end";
}

// The test's child process prints its arguments in hexadecimal digits, one a line.
QStringList argumentsIn(const QByteArray& output)
{
    QStringList words;
    const QList<QByteArray> lines = output.split('\n');
    for (const QByteArray& line : lines.mid(0, lines.size() - 1)) {
        words.append(QString::fromUtf8(QByteArray::fromHex(line)));
    }
    return words;
}

} // namespace

// The command of a run as text for a terminal.
class tst_shell_command : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shellReadsTheSameWords_data()
    {
        QTest::addColumn<QString>("word");
        for (const char* const word : {"plain",
                                       "two words",
                                       "it's",
                                       "$HOME",
                                       "`id`",
                                       "a\\b",
                                       "\"",
                                       "*",
                                       "",
                                       "-np",
                                       "é",
                                       "a;b",
                                       "#no comment",
                                       "~",
                                       "a&b",
                                       "a & b",
                                       "100%",
                                       "%PATH%",
                                       "my %PATH% here",
                                       "my %no such% name",
                                       "a\"%PATH%\" & b",
                                       "^",
                                       "a|b",
                                       "<a>",
                                       "(a)",
                                       "back\\",
                                       "back slash\\",
                                       "quote and back\\\"\\",
                                       "a,b=c",
                                       "!x!",
                                       "日本"}) {
            QTest::newRow(word) << QString::fromUtf8(word);
        }
    }

    void shellReadsTheSameWords()
    {
        QFETCH(QString, word);
        if (word.contains(text("%PATH%"))) {
            SKIP_UNDER_WINE("cmd replaces variables after it has removed what prevents that");
        }
        const QStringList words = {child, QStringLiteral("arguments"), word,
                                   QStringLiteral("last")};
        const QByteArray output = outputOf(ShellCommand::line(root, {}, words));
        QCOMPARE(argumentsIn(output), QStringList({word, QStringLiteral("last")}));
    }

    void lineFeedsInWords()
    {
        SKIP_ON_WINDOWS("a command has no line feeds");
        const QString word = QStringLiteral("line\nfeed");
        const QByteArray output =
            outputOf(ShellCommand::line(root, {}, {child, QStringLiteral("arguments"), word}));
        QCOMPARE(argumentsIn(output), QStringList(word));
    }

    void variablesHaveTheirValues_data()
    {
        QTest::addColumn<QString>("value");
        for (const char* const value :
             {"plain", "dark  blue", "a&b", "%PATH%", "%no such% name", "50% & more", "\"quoted\"",
              "é", "a^b", "(a|b)", "$HOME", "C:\\Program Files (x86)\\"}) {
            QTest::newRow(value) << QString::fromUtf8(value);
        }
    }

    void variablesHaveTheirValues()
    {
        QFETCH(QString, value);
        if (value.contains(text("%PATH%"))) {
            SKIP_UNDER_WINE("cmd replaces variables after it has removed what prevents that");
        }
        const ShellCommand::Variables variables = {{QStringLiteral("COLOUR"), value},
                                                   {QStringLiteral("OTHER"), text("x y")}};
        const QStringList words = {child, text("variable"), text("COLOUR"), text("variable"),
                                   text("OTHER")};
        const QByteArray output = outputOf(ShellCommand::line(root, variables, words));
        QCOMPARE(QString::fromLocal8Bit(output), value + text("\nx y\n"));
    }

    void commandDoesWhatTheRunDid_data()
    {
        QTest::addColumn<QString>("folder");
        for (const char* const folder :
             {"models", "my models", "Läufe & 100%", "50% (x86)", "it's"}) {
            QTest::newRow(folder) << QString::fromUtf8(folder);
        }
    }

    // The program is there, too.
    void commandDoesWhatTheRunDid()
    {
        QFETCH(QString, folder);
        const QTemporaryDir temporary;
        const QString models = temporary.filePath(folder);
        const QString program =
            models + QLatin1Char('/') + QFileInfo(QStringLiteral(KEST_TEST_CHILD)).fileName();
        QVERIFY(QDir().mkpath(models) && QFile::copy(QStringLiteral(KEST_TEST_CHILD), program));
        RunRecord run;
        run.program = program;
        run.workingDirectory = models;
        run.installation = text("home");
        run.environment = QStringList{text("COLOUR=dark  blue"), text("nonsense")};
        run.arguments = QStringList{text("touch"),  text("made"),     text("variable"),
                                    text("COLOUR"), text("variable"), text("KEST_HOME")};
        QCOMPARE(QString::fromLocal8Bit(outputOf(ShellCommand::of(run))),
                 text("dark blue\nhome\n"));
        QVERIFY(QFile::exists(models + text("/made")));
    }

    // The copy that the run had is gone.
    void machinesFileIsThatOfTheRecord()
    {
        RunRecord run;
        run.program = text("/bin/echo");
        run.workingDirectory = text("/");
        run.folder = text("/records/7");
        run.machinesCopy = text("machines.kest");
        run.arguments =
            QStringList{text("--machines-file"), text("--machines-file"), text("/gone")};
#ifdef Q_OS_WIN
        const QString expected =
            text("cd /d \"\\\" && \"\\bin\\echo\" --machines-file --machines-file "
                 "\\records\\7\\machines.kest");
#else
        const QString expected =
            text("cd / && /bin/echo --machines-file --machines-file /records/7/machines.kest");
#endif
        QCOMPARE(ShellCommand::of(run), expected);
    }

private:
    static QString text(const char* utf8)
    {
        return QString::fromUtf8(utf8);
    }
};

QTEST_GUILESS_MAIN(tst_shell_command)

#include "tst_shell_command.moc"
