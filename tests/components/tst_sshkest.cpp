// SPDX-License-Identifier: MIT
#include "SuiteRun.h"

#include <Text.h>

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

// What the parallel runtime starts programs on other hosts with: every failure is told, by the exit
// code and with the host's name.
class tst_sshkest : public QObject
{
    Q_OBJECT

private:
    SuiteResult run(const QString& part) const
    {
        QProcessEnvironment environment = environmentWith(text("KEST_SSH"), m_ssh);
        environment.insert(text("KEST_GUARD"), QString::number(QCoreApplication::applicationPid()));
        environment.insert(text("FAILING_PROCESSES"), part);
        environment.insert(text("LD_PRELOAD"), text(FAILING_PROCESSES));
        environment.insert(text("ASAN_OPTIONS"), text("verify_asan_link_order=0:detect_leaks=0"));
        return runSuite(QFileInfo(prekestProgram()).dir().filePath(text("sshkest")),
                        {text("-x"), text("node7"), text("a command")}, m_folder.path(),
                        environment);
    }

    void makeSsh(const QByteArray& script)
    {
        m_ssh = writeFile(m_folder.path(), text("ssh"), "#!/bin/sh\n" + script);
        QVERIFY(
            QFile::setPermissions(m_ssh, QFile::ReadOwner | QFile::ExeOwner | QFile::WriteOwner));
    }

    QTemporaryDir m_folder;
    QString m_ssh;

private Q_SLOTS:
    void sshsEndIsItsOwn_data()
    {
        QTest::addColumn<QString>("part");
        QTest::addColumn<QByteArray>("script");
        QTest::addColumn<int>("exitCode");
        QTest::newRow("success") << text("none") << QByteArrayLiteral("exit 0") << 0;
        QTest::newRow("failure") << text("none") << QByteArrayLiteral("exit 255") << 255;
        QTest::newRow("killed") << text("none") << QByteArrayLiteral("kill -9 $$") << 1;
        QTest::newRow("no process") << text("no process") << QByteArrayLiteral("exit 0") << 1;
        QTest::newRow("interrupted") << text("interrupted") << QByteArrayLiteral("exit 0") << 0;
        QTest::newRow("interrupted, then failure")
            << text("interrupted") << QByteArrayLiteral("exit 3") << 3;
        QTest::newRow("no child") << text("no child") << QByteArrayLiteral("exit 0") << 1;
    }

    void sshsEndIsItsOwn()
    {
        QFETCH(QString, part);
        QFETCH(QByteArray, script);
        QFETCH(int, exitCode);
        makeSsh(script + '\n');
        const SuiteResult result = run(part);
        QCOMPARE(result.exitCode, exitCode);
        QCOMPARE(result.errorOutput.contains("sshkest: 'node7' "), exitCode != 0);
    }

    void missingProcessIsTheReason()
    {
        makeSsh("exit 0\n");
        const SuiteResult result = run(text("no process"));
        QVERIFY2(result.errorOutput.contains("Resource temporarily unavailable"),
                 result.errorOutput.constData());
    }

    // Whoever started it may have no interest in how its children end.
    void endIsKnownWhereItsParentIgnoresChildren()
    {
        makeSsh("exit 4\n");
        const SuiteResult result =
            runSuite(text("/bin/sh"),
                     {text("-c"), text("trap '' CHLD; exec \"$0\" node7 x"),
                      QFileInfo(prekestProgram()).dir().filePath(text("sshkest"))},
                     m_folder.path(), [this] {
                         QProcessEnvironment environment = environmentWith(text("KEST_SSH"), m_ssh);
                         environment.insert(text("KEST_GUARD"),
                                            QString::number(QCoreApplication::applicationPid()));
                         return environment;
                     }());
        QCOMPARE(result.exitCode, 4);
    }
};

QTEST_GUILESS_MAIN(tst_sshkest)
#include "tst_sshkest.moc"
