// SPDX-License-Identifier: MIT
#include "HostLists.h"

#include <HostList.h>
#include <ReadingTime.h>

#include <QtTest>

using suite::HostList;

// Lists of hosts as Slurm writes them.
class tst_host_list : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void namesAreInFull_data()
    {
        QTest::addColumn<QString>("list");
        QTest::addColumn<QString>("hosts");
        for (const HostListCase& each : hostListCases()) {
            QTest::newRow(each.name) << each.list << each.hosts;
        }
        // What Slurm's own program does not take, or orders differently.
        QTest::newRow("text behind brackets") << "n[1-2]-ib,m[3].x"
                                              << "n1-ib n2-ib m3.x";
        QTest::newRow("three pairs of brackets")
            << "a[1-2]b[3-4]c[5-6]"
            << "a1b3c5 a1b3c6 a1b4c5 a1b4c6 a2b3c5 a2b3c6 a2b4c5 a2b4c6";
    }

    void namesAreInFull()
    {
        QFETCH(QString, list);
        const HostList result = HostList::parse(list);
        QCOMPARE(result.error, QString());
        QTEST(result.hosts.join(QLatin1Char(' ')), "hosts");
    }

    void wrongListHasItsReason_data()
    {
        QTest::addColumn<QString>("list");
        QTest::addColumn<QString>("error");
        const QString missing = QStringLiteral("the name of the host is missing");
        const auto noRange = [](const char* text) {
            return QStringLiteral("\"%1\" is no number and no range such as \"01-12\"")
                .arg(QLatin1String(text));
        };
        const QString notClosed = QStringLiteral("a \"[\" has no \"]\" behind it");
        const QString notOpened = QStringLiteral("a \"]\" has no \"[\" before it");
        const QString tooMany = QStringLiteral("there are more than 4096 hosts");
        // clang-format off
        QTest::newRow("nothing")               << ""                      << missing;
        QTest::newRow("comma alone")           << ","                     << missing;
        QTest::newRow("comma first")           << ",a"                    << missing;
        QTest::newRow("comma last")            << "a,"                    << missing;
        QTest::newRow("two commas")            << "a,,b"                  << missing;
        QTest::newRow("not closed")            << "node[1-3"              << notClosed;
        QTest::newRow("cut behind a comma")    << "node[1,"               << noRange("");
        QTest::newRow("cut behind a bracket")  << "node["                 << noRange("");
        QTest::newRow("cut within a range")    << "node[1-"               << noRange("1-");
        QTest::newRow("not opened")            << "node1]"                << notOpened;
        QTest::newRow("closed twice")          << "node[1]]"              << notOpened;
        QTest::newRow("nested")                << "n[1,3[5,7]]"           << "brackets stand within brackets";
        QTest::newRow("empty brackets")        << "n[]"                   << noRange("");
        QTest::newRow("empty number")          << "n[1,,2]"               << noRange("");
        QTest::newRow("backwards")             << "n[3-1]"                << noRange("3-1");
        QTest::newRow("letters")               << "n[a-c]"                << noRange("a-c");
        QTest::newRow("no beginning")          << "n[-3]"                 << noRange("-3");
        QTest::newRow("no end")                << "n[1-]"                 << noRange("1-");
        QTest::newRow("two hyphens")           << "n[1--2]"               << noRange("1--2");
        QTest::newRow("three numbers")         << "n[1-2-3]"              << noRange("1-2-3");
        QTest::newRow("blank")                 << "n[ 1]"                 << noRange(" 1");
        QTest::newRow("blank in a name")       << "a b"                   << "a blank is not allowed in the name of a host";
        QTest::newRow("blank behind a comma")  << "a, b"                  << "a blank is not allowed in the name of a host";
        QTest::newRow("other digits")          << QStringLiteral("n[\u0661]") << QStringLiteral("\"\u0661\" is no number and no range such as \"01-12\"");
        QTest::newRow("option")                << "-oProxyCommand=x"      << "the name of a host does not begin with \"-\"";
        QTest::newRow("shell")                 << "a;b"                   << "\";\" is not allowed in the name of a host";
        QTest::newRow("parentheses")           << "node1(x2)"             << "\"(\" is not allowed in the name of a host";
        QTest::newRow("address")               << "fe80::1"               << "\":\" is not allowed in the name of a host";
        QTest::newRow("count")                 << "node1:4"               << "\":\" is not allowed in the name of a host";
        QTest::newRow("long number")           << "n[0000000001]"         << noRange("0000000001");
        QTest::newRow("huge number")           << "n[99999999999999999999]" << noRange("99999999999999999999");
        QTest::newRow("long text")             << QStringLiteral("n[%1]").arg(QString(1000, QLatin1Char('x')))
                                               << noRange(QByteArray(40, 'x').constData());
        QTest::newRow("too many in a range")   << "n[1-4097]"             << tooMany;
        QTest::newRow("huge range")            << "n[0-999999999]"        << tooMany;
        QTest::newRow("too many in brackets")  << "n[1-4000,1-97]"        << tooMany;
        QTest::newRow("too many by brackets")  << "n[1-100]m[1-41]"       << tooMany;
        QTest::newRow("too many together")     << "n[1-4096],m"           << tooMany;
        QTest::newRow("explosion")             << QStringLiteral("a[1-9]").repeated(100) << tooMany;
        // clang-format on
    }

    void wrongListHasItsReason()
    {
        QFETCH(QString, list);
        const HostList result = HostList::parse(list);
        QTEST(result.error, "error");
        QVERIFY(result.hosts.isEmpty());
    }

    void asManyHostsAsAreAllowed()
    {
        const HostList result = HostList::parse(QStringLiteral("n[1-64]m[1-64]"));
        QCOMPARE(result.error, QString());
        QCOMPARE(result.hosts.size(), HostList::mostHosts);
        QCOMPARE(result.hosts.last(), QStringLiteral("n64m64"));
    }

    void timeGrowsWithTheSize_data() { ReadingTime::addPieces(); }

    void timeGrowsWithTheSize()
    {
        QFETCH(QByteArray, piece);
        const auto read = [](const QByteArray& bytes) {
            HostList::parse(QString::fromLatin1(bytes));
        };
        QCOMPARE(ReadingTime::problem(read, piece), QString());
    }
};

QTEST_GUILESS_MAIN(tst_host_list)
#include "tst_host_list.moc"
