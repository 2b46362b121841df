// SPDX-License-Identifier: MIT
#include <ShellCommand.h>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

// The command of a run as text for a terminal.
class tst_shell_command : public QObject
{
    Q_OBJECT

    static RunRecord record()
    {
        RunRecord record;
        record.program = QStringLiteral("/bin/echo");
        record.workingDirectory = QStringLiteral("/");
        return record;
    }

private Q_SLOTS:
    void shellReadsTheSameWords_data()
    {
        QTest::addColumn<QString>("word");
        for (const char* const word :
             {"plain", "two words", "it's", "$HOME", "`id`", "a\\b", "\"", "*", "", "-np", "é",
              "line\nfeed", "a;b", "#no comment", "~"}) {
            QTest::newRow(word) << QString::fromUtf8(word);
        }
    }

    void shellReadsTheSameWords()
    {
        QFETCH(QString, word);
        QProcess shell;
        shell.start(
            QStringLiteral("/bin/sh"),
            {QStringLiteral("-c"), QStringLiteral("printf '%s|' ") + ShellCommand::quoted(word)});
        QVERIFY(shell.waitForFinished(30000));
        QCOMPARE(QString::fromUtf8(shell.readAll()), word + QLatin1Char('|'));
    }

    void commandDoesWhatTheRunDid()
    {
        const QTemporaryDir folder;
        const QString models = folder.filePath(QStringLiteral("my models"));
        QVERIFY(QDir().mkpath(models));
        RunRecord run = record();
        run.program = QStringLiteral("/bin/sh");
        run.workingDirectory = models;
        run.installation = folder.path();
        run.environment =
            QStringList{QStringLiteral("COLOUR=dark  blue"), QStringLiteral("nonsense")};
        run.arguments = QStringList{QStringLiteral("-c"),
                                    QStringLiteral("pwd; echo \"$COLOUR\" \"$KEST_HOME\"")};
        QProcess shell;
        shell.start(QStringLiteral("/bin/sh"), {QStringLiteral("-c"), ShellCommand::of(run)});
        QVERIFY(shell.waitForFinished(30000));
        QCOMPARE(QString::fromUtf8(shell.readAllStandardOutput()),
                 QStringLiteral("%1\ndark blue %2\n").arg(models, folder.path()));
    }

    // The copy that the run had is gone.
    void machinesFileIsThatOfTheRecord()
    {
        RunRecord run = record();
        run.folder = QStringLiteral("/records/7");
        run.machinesCopy = QStringLiteral("machines.kest");
        run.arguments = QStringList{QStringLiteral("--machines-file"),
                                    QStringLiteral("--machines-file"), QStringLiteral("/gone")};
        QCOMPARE(ShellCommand::of(run),
                 QStringLiteral("cd / && /bin/echo --machines-file --machines-file "
                                "/records/7/machines.kest"));
    }
};

QTEST_GUILESS_MAIN(tst_shell_command)

#include "tst_shell_command.moc"
