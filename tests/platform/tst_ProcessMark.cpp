// SPDX-License-Identifier: MIT
#include "EndedProcess.h"

// Which process made something, and whether it has ended.
class tst_ProcessMark : public QObject
{
    Q_OBJECT

private:
    static QString own() { return ProcessMark::own().word(); }

    // The own mark with one of its parts replaced.
    static QString changed(int part, const QString& value)
    {
        QStringList parts = own().split(QLatin1Char('-'));
        parts[part] = value;
        return parts.join(QLatin1Char('-'));
    }

    static bool hasEnded(const QString& word)
    {
        const auto mark = ProcessMark::parse(word);
        return mark && mark->hasEnded();
    }

private Q_SLOTS:
    void wordIsReadBack()
    {
        const auto mark = ProcessMark::parse(own());
        QVERIFY(mark);
        QCOMPARE(mark->word(), own());
        QVERIFY(own().contains(QLatin1Char('-') +
                               QString::number(QCoreApplication::applicationPid()) +
                               QLatin1Char('-')));
    }

    void whatIsNotAMarkIsRefused_data()
    {
        QTest::addColumn<QString>("word");
        QTest::newRow("empty") << QString();
        QTest::newRow("a part is missing") << QStringLiteral("01234567-01234567-1");
        QTest::newRow("a part too many") << own() + QStringLiteral("-1");
        QTest::newRow("process 0") << changed(2, QStringLiteral("0"));
        QTest::newRow("no number") << changed(2, QStringLiteral("x"));
        QTest::newRow("negative") << changed(2, QStringLiteral("-1"));
        QTest::newRow("no hash") << changed(0, QStringLiteral("0123456"));
        QTest::newRow("line end") << own() + QLatin1Char('\n');
    }

    void whatIsNotAMarkIsRefused()
    {
        QFETCH(QString, word);
        QVERIFY(!ProcessMark::parse(word));
    }

    void thisProcessHasNotEnded() { QVERIFY(!hasEnded(own())); }

    void killedProcessHasEnded() { QVERIFY(hasEnded(endedMark())); }

    void processThatNobodyWaitedForHasEnded()
    {
#ifdef Q_OS_WIN
        QSKIP("on Windows, nobody waits for processes");
#else
        int channel[2] = {};
        QVERIFY(::pipe(channel) == 0);
        const pid_t child = ::fork();
        if (child == 0) {
            const QByteArray word = own().toLatin1();
            ::_exit(::write(channel[1], word.constData(), std::size_t(word.size())) == word.size()
                        ? 0
                        : 1);
        }
        siginfo_t info = {};
        QVERIFY(::waitid(P_PID, id_t(child), &info, WEXITED | WNOWAIT) == 0);
        char word[200] = {};
        QVERIFY(::read(channel[0], word, sizeof word - 1) > 0);
        QVERIFY(hasEnded(QString::fromLatin1(word)));
        ::waitpid(child, nullptr, 0);
        ::close(channel[0]);
        ::close(channel[1]);
#endif
    }

    void laterProcessOfTheSameNumberIsAnotherOne()
    {
        QVERIFY(hasEnded(changed(3, QStringLiteral("1"))));
    }

    void processOfAnEarlierStartOfTheHostHasEnded()
    {
        QVERIFY(hasEnded(changed(1, QStringLiteral("00000000"))));
    }

    void processOfAnotherHostHasNeverEnded()
    {
        QVERIFY(!hasEnded(changed(0, QStringLiteral("00000000"))));
        QStringList parts = endedMark().split(QLatin1Char('-'));
        parts[0] = QStringLiteral("00000000");
        QVERIFY(!hasEnded(parts.join(QLatin1Char('-'))));
    }

    void argumentsOfProcessesAreKnown()
    {
#ifdef Q_OS_WIN
        QSKIP("on Windows, processes do not show their arguments");
#endif
        const QString path = QStringLiteral("/no such folder/machines of %1")
                                 .arg(QCoreApplication::applicationPid());
        QVERIFY(!RunningProcesses::haveArgumentEndingWith(path));
        QProcess process;
        process.start(QStringLiteral("/bin/sh"),
                      {QStringLiteral("-c"), QStringLiteral("read line"), path});
        QVERIFY(process.waitForStarted());
        QTRY_VERIFY(RunningProcesses::haveArgumentEndingWith(path));
        QVERIFY(
            RunningProcesses::haveArgumentEndingWith(path.mid(path.lastIndexOf(QLatin1Char('/')))));
        QVERIFY(!RunningProcesses::haveArgumentEndingWith(path + QLatin1Char('1')));
        process.kill();
        QVERIFY(process.waitForFinished());
        QVERIFY(!RunningProcesses::haveArgumentEndingWith(path));
    }
};

QTEST_GUILESS_MAIN(tst_ProcessMark)

#include "tst_ProcessMark.moc"
