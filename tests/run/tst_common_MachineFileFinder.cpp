// SPDX-License-Identifier: MIT
#include "MachinesHomes.h"

#include <BoxReader.h>
#include <SettingsFolders.h>
#include <SystemSkips.h>

#include <common_MachineFileFinder.h>

#include <QFileInfo>
#include <QtTest>

#include <memory>

namespace {

/// Takes what goes to Qt's log while it lives.
class LogTaker
{
public:
    LogTaker() : m_before(qInstallMessageHandler(take)) { lines().clear(); }
    LogTaker(const LogTaker&) = delete;
    LogTaker& operator=(const LogTaker&) = delete;
    ~LogTaker() { qInstallMessageHandler(m_before); }

    static QStringList& lines()
    {
        static QStringList taken;
        return taken;
    }

private:
    static void take(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text)
    {
        lines().append(QStringLiteral("%1: %2").arg(int(type)).arg(text));
    }

    QtMessageHandler m_before;
};

} // namespace

class tst_common_MachineFileFinder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_reader = std::make_unique<BoxReader>(); }

    void cleanup() { QCOMPARE(m_reader->take().size(), 0); }

    void findsNothingWhereThereIsNothing()
    {
        const Homes homes;
        const LogTaker log;
        Finder finder;
        QVERIFY(!finder.isValid());
        QVERIFY(!finder.isLocalFile());
        QCOMPARE(finder.getProcesses(), -1);
        QCOMPARE(finder.parseMachinesFile(), QStringList());
        QCOMPARE(finder.getMachineFileInfo()->filePath(), homes.installationFile());
        QCOMPARE(LogTaker::lines(), QStringList());
    }

    void prefersTheUsersFile()
    {
        const Homes homes;
        QVERIFY(SettingsFolders::write(homes.userFile(), "mine:3\n"));
        QVERIFY(SettingsFolders::write(homes.installationFile(), "theirs:5\n"));
        const LogTaker log;
        Finder finder;
        QVERIFY(finder.isValid());
        QVERIFY(finder.isLocalFile());
        QCOMPARE(finder.getProcesses(), 3);
        QCOMPARE(finder.parseMachinesFile(), QStringList(QStringLiteral("mine:3")));
        QCOMPARE(finder.getMachineFileInfo()->filePath(), homes.userFile());
        QCOMPARE(LogTaker::lines(), QStringList());
    }

    void doesNotLookFurtherThanAUsersFileWithoutHosts()
    {
        const Homes homes;
        QVERIFY(SettingsFolders::write(homes.userFile(), ""));
        QVERIFY(SettingsFolders::write(homes.installationFile(), "theirs:5\n"));
        const Finder finder;
        QVERIFY(finder.isValid());
        QVERIFY(finder.isLocalFile());
        QCOMPARE(finder.getProcesses(), -1);
    }

    void fallsBackToTheInstallationsFileAndLogsIt()
    {
        const Homes homes;
        QVERIFY(SettingsFolders::write(homes.installationFile(), "theirs:5\n"));
        const LogTaker log;
        Finder finder;
        QVERIFY(finder.isValid());
        QVERIFY(!finder.isLocalFile());
        QCOMPARE(finder.getProcesses(), 5);
        QCOMPARE(finder.parseMachinesFile(), QStringList(QStringLiteral("theirs:5")));
        QCOMPARE(finder.getMachineFileInfo()->filePath(), homes.installationFile());
        QCOMPARE(LogTaker::lines(),
                 QStringList(
                     QStringLiteral("%1: Found a valid file - in KEST_HOME").arg(int(QtDebugMsg))));
    }

    void takesALinkToNothingForNoFile()
    {
        SKIP_WITHOUT_SYMBOLIC_LINKS();
        const Homes homes;
        QVERIFY(QFile::link(homes.path() + QStringLiteral("/gone"), homes.userFile()));
        const Finder finder;
        QVERIFY(!finder.isValid());
    }

    void looksInTheRootForUnsetVariables()
    {
        const Homes homes;
        const Variable user("KEST_USER_HOME");
        const Variable installation("KEST_HOME");
        const Finder finder;
        QVERIFY(!finder.isValid());
        QVERIFY(!finder.isLocalFile());
        QCOMPARE(finder.getProcesses(), -1);
        QCOMPARE(finder.getMachineFileInfo()->filePath(),
                 QStringLiteral("/shared/mpi/machines.kest"));
    }

    void findsTheInstallationsFileWithoutAUsersFolder_data()
    {
        QTest::addColumn<bool>("isSet");
        QTest::newRow("unset") << false;
        QTest::newRow("empty") << true;
    }

    void findsTheInstallationsFileWithoutAUsersFolder()
    {
        QFETCH(bool, isSet);
        const Homes homes;
        const Variable user("KEST_USER_HOME");
        if (isSet) {
            qputenv("KEST_USER_HOME", "");
        }
        QVERIFY(SettingsFolders::write(homes.installationFile(), "a\n"));
        const Finder finder;
        QVERIFY(finder.isValid());
        QVERIFY(!finder.isLocalFile());
        QCOMPARE(finder.getProcesses(), 1);
    }

    void expandsVariablesInTheFolders()
    {
        const Homes homes;
        const Variable root("KEST_TEST_ROOT", homes.path());
        const Variable user("KEST_USER_HOME", QStringLiteral("${KEST_TEST_ROOT}/user"));
        const Variable installation("KEST_HOME", QStringLiteral("${KEST_TEST_ROOT}/installation"));
        QVERIFY(SettingsFolders::write(homes.installationFile(), "a\n"));
        const Finder fallback;
        QCOMPARE(fallback.getMachineFileInfo()->filePath(), homes.installationFile());
        QVERIFY(fallback.isValid());
        QVERIFY(SettingsFolders::write(homes.userFile(), "a\n"));
        const Finder finder;
        QCOMPARE(finder.getMachineFileInfo()->filePath(), homes.userFile());
        QVERIFY(finder.isLocalFile());
    }

    void findsFilesInFoldersOfAnyName()
    {
        const Homes homes;
        const QString folder = homes.path() + QString::fromUtf8("/%1 \xc3\xa4 #x");
        QVERIFY(QDir().mkpath(folder));
        const Variable user("KEST_USER_HOME", folder);
        QVERIFY(SettingsFolders::write(folder + QStringLiteral("/machines.kest"), "a:2\n"));
        const Finder finder;
        QVERIFY(finder.isLocalFile());
        QCOMPARE(finder.getProcesses(), 2);
    }

    void ownsTheFileInformation()
    {
        const Homes homes;
        Finder finder;
        const QFileInfo* const information = finder.getMachineFileInfo();
        QVERIFY(information);
        finder.determineProcesses();
        QCOMPARE(finder.getMachineFileInfo(), information);
        const Finder other;
        QVERIFY(other.getMachineFileInfo() != information);
    }

    void isAnObjectOfItsOwnClass()
    {
        const Homes homes;
        Finder finder;
        const QObject* const object = &finder;
        QVERIFY(object->inherits("common_MachineFileFinder"));
        QVERIFY(!object->parent());
        QCOMPARE(Finder::tr("Open failed", nullptr, -1), QStringLiteral("Open failed"));
    }

private:
    std::unique_ptr<BoxReader> m_reader;
};

QTEST_MAIN(tst_common_MachineFileFinder)
#include "tst_common_MachineFileFinder.moc"
