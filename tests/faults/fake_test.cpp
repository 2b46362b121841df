// SPDX-License-Identifier: MIT
// Plays every test program: functions that pass, fail, are skipped, crash, hang and are killed.
#include <QtTest>

#include <csignal>

class kest_fake_test : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void passes() { QVERIFY(true); }

    void passesInFull() { QVERIFY(qEnvironmentVariableIsSet("KEST_FULL_TESTS")); }

    void passesInShort() { QVERIFY(!qEnvironmentVariableIsSet("KEST_FULL_TESTS")); }

    void fails() { QCOMPARE(QStringLiteral("lost"), QStringLiteral("kept")); }

    void isSkipped() { QTest::qSkip("there is no such device", __FILE__, __LINE__); }

    void rows_data()
    {
        QTest::addColumn<bool>("good");
        QTest::newRow("a good row") << true;
        QTest::newRow("a bad row") << false;
        QTest::newRow("another good row") << true;
    }

    void rows()
    {
        QFETCH(bool, good);
        QVERIFY(good);
    }

    void crashes() { std::raise(SIGSEGV); }

    void isKilled() { std::raise(SIGKILL); }

    void hangs() { QTest::qSleep(600000); }

    void leavesAProcess()
    {
        QVERIFY(QProcess::startDetached(QStringLiteral("sleep"), {QStringLiteral("600")}));
    }

    void passesToo() { QVERIFY(true); }
};

QTEST_GUILESS_MAIN(kest_fake_test)
#include "fake_test.moc"
