// SPDX-License-Identifier: MIT
#include "HostLists.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

// The lists that tst_host_list expects to be read are read by Slurm's own program in the same way.
class tst_host_list_of_slurm : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QFile configuration(m_folder.filePath(QStringLiteral("slurm.conf")));
        QVERIFY(configuration.open(QIODevice::WriteOnly));
        QVERIFY(configuration.write("ClusterName=test\n"
                                    "SlurmctldHost=localhost\n"
                                    "NodeName=localhost\n"
                                    "PartitionName=all Nodes=ALL\n") > 0);
        QVERIFY(qputenv("SLURM_CONF", QFile::encodeName(configuration.fileName())));
    }

    void namesAreThoseOfSlurm_data()
    {
        QTest::addColumn<QString>("list");
        QTest::addColumn<QString>("hosts");
        for (const HostListCase& each : hostListCases()) {
            QTest::newRow(each.name) << each.list << each.hosts;
        }
    }

    void namesAreThoseOfSlurm()
    {
        QFETCH(QString, list);
        QProcess scontrol;
        scontrol.start(QStringLiteral(SCONTROL),
                       {QStringLiteral("show"), QStringLiteral("hostnames"), list});
        QVERIFY(scontrol.waitForFinished());
        QCOMPARE(scontrol.readAllStandardError(), QByteArray());
        QTEST(QString::fromUtf8(scontrol.readAllStandardOutput()).simplified(), "hosts");
    }

private:
    QTemporaryDir m_folder;
};

QTEST_GUILESS_MAIN(tst_host_list_of_slurm)
#include "tst_host_list_of_slurm.moc"
