// SPDX-License-Identifier: MIT
#include "SuiteRun.h"

#include <MachinesCases.h>
#include <SystemSkips.h>

#include <QTemporaryDir>

namespace {

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

// Plays the parallel runtime: keeps its words and fails.
const char* const runtimeScript = "#!/bin/sh\n"
                                  "printf '%s\\n' \"$@\" > runtime.words\n"
                                  "exit 1\n";

/// A host and its processes, once.
struct Host
{
    QString name;
    int processes;
};

QVector<Host> hostsOf(const MachinesCase& machines)
{
    QVector<Host> result;
    const QStringList entries =
        QString::fromUtf8(machines.entries).split(text(", "), Qt::SkipEmptyParts);
    for (const QString& entry : entries) {
        const QString name = entry.section(QLatin1Char(' '), 1, 1);
        const int processes = entry.section(QLatin1Char(' '), 2).toInt();
        auto place = std::find_if(result.begin(), result.end(), [&name](const Host& host) {
            return host.name.compare(name, Qt::CaseInsensitive) == 0;
        });
        if (place == result.end()) {
            result.append({name, processes});
        } else {
            place->processes += processes;
        }
    }
    return result;
}

// What the parallel runtime is given.
QString listOf(const QVector<Host>& hosts)
{
    QStringList result;
    for (const Host& host : hosts) {
        result.append(QStringLiteral("%1:%2").arg(host.name).arg(host.processes));
    }
    return result.join(QLatin1Char(','));
}

bool hasAddresses(const MachinesCase& machines)
{
    return machines.isValid && machines.entries.contains('[');
}

} // namespace

// The machines files that parallel runs take are those that kestdesk finds no error in.
class tst_runkest_machines : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        QVERIFY(!copyModel(text("dipole.nec"), m_folder->path()).isEmpty());
        const QString runtime = writeFile(m_folder->path(), text("runtime"), runtimeScript);
        QVERIFY(QFile::setPermissions(runtime, QFile::ReadOwner | QFile::ExeOwner));
    }

    void verdictIsThatOfTheFrontEnd_data()
    {
        SKIP_WITHOUT_PARALLEL_RUNS();
        addMachinesCases();
    }

    void verdictIsThatOfTheFrontEnd()
    {
        QFETCH(int, row);
        const MachinesCase& machines = machinesCases().at(row);
        QVERIFY(!writeFile(m_folder->path(), text("m.kest"), machines.content).isEmpty());
        const SuiteResult result = runSuite(
            runkestProgram(),
            {text("dipole"), text("-np"), text("1"), text("--machines-file"), text("m.kest")},
            m_folder->path(),
            environmentWith(text("KEST_MPIEXEC"), m_folder->filePath(text("runtime"))));
        QCOMPARE(result.exitCode, 1);
        const QStringList errors = result.bodies(text("error"));
        const bool isRun = machines.isValid && !hasAddresses(machines);
        for (const QString& error : errors) {
            QVERIFY2(error.startsWith(isRun ? text("ERROR 2602: dipole.nec: the parallel runtime ")
                                            : text("ERROR 2021: dipole.nec: ")),
                     qPrintable(error));
            QVERIFY2(isRun || error.contains(text("the parallel runtime takes no IPv6 address")) ==
                                  hasAddresses(machines),
                     qPrintable(error));
        }
        QCOMPARE(errors.size(), expectedErrors(machines));
        const QList<QByteArray> words =
            readFile(m_folder->filePath(text("runtime.words"))).split('\n');
        QCOMPARE(words.size() > 1, isRun);
        if (isRun) {
            QCOMPARE(QString::fromUtf8(words.value(words.indexOf("-hosts") + 1)),
                     listOf(hostsOf(machines)));
        }
    }

private:
    // One for each host that the parallel runtime cannot take, or for each error of the file.
    static int expectedErrors(const MachinesCase& machines)
    {
        if (machines.isValid) {
            return qMax(1, machines.entries.count('['));
        }
        return machines.findings.count(" error [");
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};

QTEST_GUILESS_MAIN(tst_runkest_machines)
#include "tst_runkest_machines.moc"
