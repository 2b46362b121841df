// SPDX-License-Identifier: MIT
#include "RunEndings.h"

#include <EndReasons.h>
#include <ProcessEnd.h>

#include <QSet>
#include <QtTest>

// What becomes of a run, by how it ended.
class tst_run_outcome : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // The words of those models say how the process ends.
    void outcomeFollowsFromTheEnd_data()
    {
        addRunEndings([](const RunEnding& ending) { return ending.model.count(' ') == 2; });
    }

    void outcomeFollowsFromTheEnd()
    {
        QFETCH(int, row);
        const RunEnding& ending = runEndings().at(row);
        const QList<QByteArray> words = ending.model.split(' ');
        const bool isCrash = words.at(0).endsWith("dies");
        const int number = words.at(2).toInt();
        const ProcessEnd end(isCrash, isCrash ? crashCode(number) : number);
        const int percentage = RunOutcome::percentage(QString::fromLatin1(words.at(1)), 0);
        const RunOutcome outcome =
            RunOutcome::of(end, percentage, ending.stop != RunEnding::Stop::None);
        QCOMPARE(outcome.kind(), ending.outcome);
        const QString reason = QString::fromLatin1(ending.shortReason);
        QCOMPARE(outcome.title(), reason.isEmpty()
                                      ? outcome.word()
                                      : outcome.word() + QStringLiteral(", ") + reason);
        QCOMPARE(outcome.reason().isEmpty(), *ending.meaning == '\0');
        QVERIFY2(outcome.reason().contains(QString::fromLatin1(ending.meaning)),
                 qPrintable(outcome.reason()));
    }

    void everyOutcomeHasItsWord()
    {
        using Kind = RunOutcome::Kind;
        QCOMPARE(RunOutcome::word(Kind::Valid), QStringLiteral("valid"));
        QCOMPARE(RunOutcome::word(Kind::Fault), QStringLiteral("fault"));
        QCOMPARE(RunOutcome::word(Kind::NotStarted), QStringLiteral("could not start"));
        QCOMPARE(RunOutcome::word(Kind::Stopped), QStringLiteral("stopped"));
        QCOMPARE(RunOutcome::notStarted().kind(), Kind::NotStarted);
        QCOMPARE(RunOutcome::stopped().kind(), Kind::Stopped);
    }

    void percentagesOutOfTheRangeCountForNothing_data()
    {
        QTest::addColumn<QString>("reported");
        QTest::addColumn<int>("after"); // 40
        QTest::newRow("0") << "0" << 0;
        QTest::newRow("100") << "100" << 100;
        QTest::newRow("101") << "101" << 40;
        QTest::newRow("-1") << "-1" << 40;
        QTest::newRow("no number") << "x" << 0;
        QTest::newRow("empty") << "" << 0;
    }

    void percentagesOutOfTheRangeCountForNothing()
    {
        QFETCH(QString, reported);
        QTEST(RunOutcome::percentage(reported, 40), "after");
    }

    void textsOfEndsAreClauses()
    {
        QSet<QString> meanings;
        for (int number = 1; number < 65; ++number) {
            const QString text = ProcessEnd(true, number).text();
            QVERIFY2(text.startsWith(QStringLiteral("was ended by ")), qPrintable(text));
            QVERIFY2(text.contains(EndReasons::crashNumber(number)), qPrintable(text));
            QVERIFY2(!text.endsWith(QLatin1Char('.')), qPrintable(text));
            QVERIFY2(!meanings.contains(text), qPrintable(text));
            meanings.insert(text);
        }
        QCOMPARE(ProcessEnd(false, 0).text(), QString());
        QCOMPARE(ProcessEnd(false, 0).name(), QString());
        QCOMPARE(ProcessEnd(true, 0).text(),
                 QStringLiteral("was ended by ") + EndReasons::crashNumber(0));
    }
};

QTEST_GUILESS_MAIN(tst_run_outcome)

#include "tst_run_outcome.moc"
