// SPDX-License-Identifier: MIT
#include <Text.h>

#include <HostRemoval.h>
#include <MachinesFile.h>

#include <QtTest>

using suite::HostRemoval;
using suite::MachinesFile;

// Machines files without some of their hosts.
class tst_host_removal : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void linesOfTheHostBecomeComments_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QStringList>("lines");
        QTest::addColumn<bool>("leavesHosts");
        const QStringList none;
        // clang-format off
        QTest::newRow("one of two")    << QByteArray("a:2\nb:1\n")           << QByteArray("a:2\n# b:1\n")             << QStringList(text("b:1")) << true;
        QTest::newRow("no line end")   << QByteArray("a\nb")                 << QByteArray("a\n# b")                   << QStringList(text("b"))   << true;
        QTest::newRow("Windows")       << QByteArray("a\r\nb\r\n")           << QByteArray("a\r\n# b\r\n")             << QStringList(text("b"))   << true;
        QTest::newRow("other case")    << QByteArray("a\nB:2\n")             << QByteArray("a\n# B:2\n")               << QStringList(text("B:2")) << true;
        QTest::newRow("twice")         << QByteArray("b\na\n b:3 # fast\n")  << QByteArray("# b\na\n#  b:3 # fast\n")  << QStringList({text("b"), text("b:3 # fast")}) << true;
        QTest::newRow("address")       << QByteArray("[::1]:2\nb\na\n")      << QByteArray("[::1]:2\n# b\na\n")        << QStringList(text("b"))   << true;
        QTest::newRow("only host")     << QByteArray("# hosts\nb:1\n")       << QByteArray("# hosts\n# b:1\n")         << QStringList(text("b:1")) << false;
        QTest::newRow("longer name")   << QByteArray("bb\nb.net\n# b\n")     << QByteArray("bb\nb.net\n# b\n")         << none               << true;
        QTest::newRow("nothing")       << QByteArray()                       << QByteArray()                           << none               << false;
        // clang-format on
    }

    void linesOfTheHostBecomeComments()
    {
        QFETCH(QByteArray, file);
        const HostRemoval removal(file, {QStringLiteral("b")});
        QTEST(removal.content(), "content");
        QTEST(removal.lines(), "lines");
        QTEST(removal.leavesHosts(), "leavesHosts");
        const MachinesFile left = MachinesFile::parse(removal.content());
        for (const MachinesFile::Entry& entry : left.hosts()) {
            QVERIFY(entry.host.toLower() != QLatin1String("b"));
        }
    }
};

QTEST_APPLESS_MAIN(tst_host_removal)

#include "tst_host_removal.moc"
