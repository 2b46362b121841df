// SPDX-License-Identifier: MIT
#include "SuiteRun.h"

#include <Text.h>

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

namespace {

QStringList rootEntries()
{
    return QDir(text("/")).entryList({text("kest*")}, QDir::AllEntries | QDir::Hidden);
}

} // namespace

// Where the temporary folder cannot be used, the user hears which one, and that TMPDIR names it.
class tst_temporary_place : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<QTemporaryDir> m_folder;

private Q_SLOTS:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        QVERIFY(!copyModel(text("dipole.nec"), m_folder->path()).isEmpty());
        QVERIFY(!copyModel(text("tune.nec"), m_folder->path()).isEmpty());
        QVERIFY(!writeFile(m_folder->path(), text("a file"), "x").isEmpty());
    }

    void unusableFolderIsNamed_data()
    {
        QTest::addColumn<QString>("folder");
        QTest::addColumn<QString>("reason");
        QTest::newRow("missing") << text("%1/no such folder") << text("it does not exist");
        QTest::newRow("file") << text("%1/a file") << text("it is not a folder");
        // Not even the superuser can write there.
        QTest::newRow("unwritable") << text("/proc") << QString();
        QTest::newRow("relative and missing") << text("nowhere") << text("it does not exist");
    }

    void unusableFolderIsNamed()
    {
        QFETCH(QString, folder);
        QFETCH(QString, reason);
        folder = folder.replace(text("%1"), m_folder->path());
        const QStringList before = rootEntries();
        const QStringList models = QDir(m_folder->path()).entryList(QDir::Files);
        const QList<QStringList> commands = {
            {text("dipole.nec")},
            {text("dipole.nec"), text("--parallel-authenticate"), text("localonly")},
        };
        for (const QStringList& command : commands) {
            const SuiteResult result = runSuite(runkestProgram(), command, m_folder->path(),
                                                environmentWith(text("TMPDIR"), folder));
            QCOMPARE(result.exitCode, 1);
            const QString error = result.bodies(text("error")).value(0);
            QVERIFY2(error.contains(text("the temporary folder '") +
                                    QDir(m_folder->path()).absoluteFilePath(folder) +
                                    text("' cannot be used, ") + reason),
                     qPrintable(error));
            QVERIFY2(error.contains(text("TMPDIR")), qPrintable(error));
        }
        QCOMPARE(rootEntries(), before);
        QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files), models);
    }

    // No byte fits into a file there.
    void fullFolderIsNamed()
    {
        const SuiteResult result =
            runSuite(text("/bin/sh"),
                     {text("-c"), text("trap '' XFSZ; ulimit -f 0; exec \"$0\" dipole.nec"),
                      runkestProgram()},
                     m_folder->path(), environmentWith(text("TMPDIR"), m_folder->path()));
        QCOMPARE(result.exitCode, 1);
        const QString error = result.bodies(text("error")).value(0);
        QVERIFY2(error.contains(text("the temporary folder '") + m_folder->path() +
                                text("' cannot be used")) &&
                     error.contains(text("TMPDIR")),
                 qPrintable(error));
    }

    // Nor where the engine can write no more than the beginning.
    void folderThatGetsFullIsNamed()
    {
        const SuiteResult result =
            runSuite(text("/bin/sh"),
                     {text("-c"), text("trap '' XFSZ; ulimit -f 1; exec \"$0\" dipole.nec -np 1"),
                      runkestProgram()},
                     m_folder->path(), environmentWith(text("TMPDIR"), m_folder->path()));
        QCOMPARE(result.exitCode, 1);
        const QString error = result.bodies(text("error")).value(0);
        QVERIFY2(error.contains(text("TMPDIR")), qPrintable(error));
    }
};

QTEST_GUILESS_MAIN(tst_temporary_place)
#include "tst_temporary_place.moc"
