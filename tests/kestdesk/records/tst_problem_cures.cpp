// SPDX-License-Identifier: MIT
#include <ProblemCures.h>

#include <QtTest>

using ProblemCures::Action;

Q_DECLARE_METATYPE(ProblemCures::Action)

// What can be done about problems, as the components and kestdesk word them.
class tst_problem_cures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void problemsHaveTheirCures_data()
    {
        QTest::addColumn<QString>("message");
        QTest::addColumn<Action>("action");
        // clang-format off
        QTest::newRow("card")       << "2101: unknown card 'QX' (dipole.nec, line 12)" << Action::OpenCard;
        QTest::newRow("wire")       << "3101: the wire is thick (dipole.nec, line 3, tag 2)" << Action::OpenCard;
        QTest::newRow("no engine")  << "the engine 'nec2c' is not in the search path, install the package nec2c or name another program in KEST_NEC2C" << Action::InstallEngine;
        QTest::newRow("bad engine") << "the engine '/x' cannot be started" << Action::InstallEngine;
        QTest::newRow("no file")    << "No machines file could be found." << Action::UseThisMachine;
        QTest::newRow("no host")    << "the machines file /u/machines.kest names no host" << Action::UseThisMachine;
        QTest::newRow("dead host")  << "the host 'b' cannot be reached any more by ssh (code 255)" << Action::LeaveHostOut;
        QTest::newRow("mute host")  << "the host 'b' does not answer any more" << Action::LeaveHostOut;
        QTest::newRow("far host")   << "the host 'b' gives no connection to the installation (code 255)" << Action::LeaveHostOut;
        QTest::newRow("lost host")  << "the host 'b' is not connected any more (code 255)" << Action::LeaveHostOut;
        QTest::newRow("some host")  << "a host cannot be reached" << Action::EditMachines;
        QTest::newRow("bad file")   << "the machines file '/u/machines.kest' has an error in line 2" << Action::EditMachines;
        QTest::newRow("remote")     << "Unable to do remote launching since the remote host has not been provided." << Action::EditOptions;
        // clang-format on
    }

    void problemsHaveTheirCures()
    {
        QFETCH(QString, message);
        QFETCH(Action, action);
        const ProblemCures::Cure* const cure = ProblemCures::find(message);
        QVERIFY(cure != nullptr);
        QCOMPARE(int(cure->action), int(action));
        QVERIFY(*cure->button != '\0');
        QVERIFY(*cure->hint != '\0');
    }

    void restHasNone()
    {
        for (const char* const message :
             {"", "the disk is full", "line 12", "was ended by SIGKILL"}) {
            QVERIFY2(ProblemCures::find(QString::fromLatin1(message)) == nullptr, message);
        }
    }

    void hostIsFound()
    {
        QCOMPARE(ProblemCures::hostOf(QStringLiteral("the host 'node-1.net' does not answer")),
                 QStringLiteral("node-1.net"));
        QCOMPARE(ProblemCures::hostOf(QStringLiteral("the host 'a' does not answer to 'b'")),
                 QStringLiteral("a"));
        QCOMPARE(ProblemCures::hostOf(QStringLiteral("a host cannot be reached")), QString());
    }

    void lineIsFound()
    {
        const auto line = ProblemCures::lineOf(QStringLiteral("bad (a (1).nec, line 12, tag 3)\n"));
        QVERIFY(line);
        QCOMPARE(line->line, 12);
        QCOMPARE(line->file, QStringLiteral("a (1).nec"));
        QVERIFY(!ProblemCures::lineOf(QStringLiteral("no line 12 here")));
    }
};

QTEST_APPLESS_MAIN(tst_problem_cures)

#include "tst_problem_cures.moc"
