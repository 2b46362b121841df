// SPDX-License-Identifier: MIT
#include "SettingsSetStage.h"

#include <SettingsFolders.h>

#include <common_CommonSettingsSet.h>
#include <common_ComponentsLaunchOptions.h>
#include <common_geometry_settings.h>
#include <common_recent_file_settings.h>

#include <QApplication>
#include <QSettings>
#include <QtTest>

#include <memory>

namespace {

/// Notes what it is asked for.
class AskedApplicationInfo : public FakeApplicationInfo
{
public:
    QString defaultSettingsDirectory() const override
    {
        asked.append(QStringLiteral("default directory"));
        return FakeApplicationInfo::defaultSettingsDirectory();
    }
    QString initialRecentFile() const override
    {
        asked.append(QStringLiteral("initial file"));
        return FakeApplicationInfo::initialRecentFile();
    }

    mutable QStringList asked;
};

/// Notes which operations are called, as overrides of an application's own set are.
class CallingSet : public Set
{
public:
    using Set::Set;

    void restoreDefaults() override
    {
        calls.append(QStringLiteral("restore"));
        Set::restoreDefaults();
    }
    void readSettings() override
    {
        calls.append(QStringLiteral("read"));
        Set::readSettings();
    }
    void writeSettings() override
    {
        calls.append(QStringLiteral("write"));
        Set::writeSettings();
    }

    QStringList calls;
};

} // namespace

class tst_common_CommonSettingsSet : public QObject, protected SettingsSetStage
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }

    void cleanup() { tearDown(); }

    void namesItsFile_data()
    {
        QTest::addColumn<QString>("directory");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("expected");
        // clang-format off
        QTest::newRow("Kest")        << QStringLiteral("/D")  << QStringLiteral("Kest")     << QStringLiteral("kest.ini");
        QTest::newRow("capitals")    << QStringLiteral("/D")  << QStringLiteral("PreKEST")  << QStringLiteral("prekest.ini");
        QTest::newRow("umlaut")      << QStringLiteral("/D")  << QString::fromUtf8("\xc3\x84") << QString::fromUtf8("\xc3\xa4.ini");
        QTest::newRow("with a dot")  << QStringLiteral("/D")  << QStringLiteral("Kest.2")   << QStringLiteral("kest.2.ini");
        QTest::newRow("with a slash") << QStringLiteral("/D/") << QStringLiteral("Kest")    << QStringLiteral("kest.ini");
        // clang-format on
    }

    void namesItsFile()
    {
        QFETCH(QString, directory);
        QFETCH(QString, name);
        QFETCH(QString, expected);
        expected = directory + QDir::separator() + expected;
        const SettingsFolders folders;
        const FakeApplication application(true);
        QVERIFY(SettingsFolders::write(folders.defaultFile(), ""));
        const Set set(directory, name);
        QCOMPARE(set.getFullFilename(), expected);
        QCOMPARE(set.geometry()->getFileName(), expected);
        QCOMPARE(set.recentFiles()->getFileName(), expected);
    }

    void readsAndWritesNothingByItself()
    {
        const SettingsFolders folders;
        const QByteArray content = "[geometry]\nwidth=5\n[recentFiles]\nfileList=/\n";
        QVERIFY(SettingsFolders::write(folders.userFile(), content));
        {
            const Set set(folders.info.userSettings, QStringLiteral("Kest"));
            set.geometry()->set_width(7);
            QCOMPARE(set.recentFiles()->recentFiles(), QStringList());
        }
        QCOMPARE(SettingsFolders::read(folders.userFile()), content);
        QCOMPARE(folders.userFolderContent(), QStringList(QStringLiteral("kest.ini")));
    }

    void readsBothFromTheirGroups()
    {
        const SettingsFolders folders;
        QVERIFY(SettingsFolders::write(folders.userFile(), "[geometry]\nwidth=5\nheight=6\n"
                                                           "[recentFiles]\nrecentSession=false\n"));
        Set set(folders.info.userSettings, QStringLiteral("Kest"));
        set.recentFiles()->setRecentSession(true);
        set.readSettings();
        QCOMPARE(set.geometry()->width(), 5);
        QCOMPARE(set.geometry()->height(), 6);
        QCOMPARE(set.recentFiles()->getRecentSession(), false);
    }

    void readsTheGeometryFirst()
    {
        const QTemporaryDir folder;
        AskedApplicationInfo info;
        info.defaultSettings = folder.path();
        QVERIFY(SettingsFolders::write(folder.filePath(QStringLiteral("default.ini")), ""));
        Set set(folder.path(), QStringLiteral("Kest"));
        info.asked.clear();
        set.readSettings();
        // Each asks for the directory, and the recent files then for a file.
        QCOMPARE(info.asked, (QStringList{QStringLiteral("default directory"),
                                          QStringLiteral("default directory"),
                                          QStringLiteral("initial file")}));
    }

    void writesBothIntoTheirGroups()
    {
        const SettingsFolders folders;
        QVERIFY(SettingsFolders::write(folders.defaultFile(), "[geometry]\nwidth=5\n"));
        Set set(folders.info.userSettings, QStringLiteral("Kest"));
        set.readSettings();
        set.recentFiles()->addRecentFile(QStringLiteral("/a"));
        set.writeSettings();
        const QSettings settings(folders.userFile(), QSettings::IniFormat);
        QCOMPARE(settings.allKeys().size(), 7);
        QCOMPARE(settings.value(QStringLiteral("geometry/width")).toInt(), 5);
        QCOMPARE(settings.value(QStringLiteral("recentFiles/fileList")).toStringList(),
                 QStringList(QDir::toNativeSeparators(QStringLiteral("/a"))));
        QCOMPARE(SettingsFolders::read(folders.defaultFile()), QByteArray("[geometry]\nwidth=5\n"));
    }

    void restoresBoth()
    {
        const SettingsFolders folders;
        const auto set = changedSet(folders);
        set->restoreDefaults();
        QCOMPARE(set->geometry()->width(), 1020);
        QCOMPARE(set->recentFiles()->recentFiles(), QStringList());
        QVERIFY(!QFile::exists(folders.userFile()));
    }

    void restoresTheGeometryAlone()
    {
        const SettingsFolders folders;
        const auto set = changedSet(folders);
        set->restore_geometry_settings();
        QCOMPARE(set->geometry()->width(), 1020);
        QCOMPARE(set->recentFiles()->recentFiles(),
                 QStringList(QDir::toNativeSeparators(QStringLiteral("/a"))));
    }

    void restoresTheRecentFilesAlone()
    {
        const SettingsFolders folders;
        const auto set = changedSet(folders);
        set->restore_recent_file_settings();
        QCOMPARE(set->geometry()->width(), 7);
        QCOMPARE(set->recentFiles()->recentFiles(), QStringList());
    }

    void letsApplicationsOverrideItsOperations()
    {
        const SettingsFolders folders;
        QVERIFY(SettingsFolders::write(folders.userFile(), ""));
        CallingSet set(folders.info.userSettings, QStringLiteral("Kest"));
        Set& base = set;
        base.readSettings();
        base.restoreDefaults();
        base.writeSettings();
        QCOMPARE(set.calls, (QStringList{QStringLiteral("read"), QStringLiteral("restore"),
                                         QStringLiteral("write")}));
    }

    void movesTheOthersObjectsWhenAssigned()
    {
        const SettingsFolders folders;
        const auto source = changedSet(folders);
        common_geometry_settings* const geometry = source->geometry();
        common_recent_file_settings* const recentFiles = source->recentFiles();
        Set target(folders.info.userSettings, QStringLiteral("Other"));
        Set& result = (target = *source);
        QCOMPARE(&result, &target);
        QCOMPARE(target.geometry(), geometry);
        QCOMPARE(target.recentFiles(), recentFiles);
        QCOMPARE(target.getFullFilename(), asNamedBySets(folders.userFile()));
        QVERIFY(!source->geometry());
        QVERIFY(!source->recentFiles());
        QCOMPARE(source->getFullFilename(), asNamedBySets(folders.userFile()));
        QCOMPARE(target.geometry()->width(), 7);
        target.writeSettings();
        QCOMPARE(folders.userFolderContent(), QStringList(QStringLiteral("kest.ini")));
    }

    void keepsItsObjectsWhenAssignedToItself()
    {
        const SettingsFolders folders;
        const auto set = changedSet(folders);
        common_geometry_settings* const geometry = set->geometry();
        Set& same = *set;
        *set = same;
        QCOMPARE(set->geometry(), geometry);
        QVERIFY(set->recentFiles());
        QCOMPARE(set->geometry()->width(), 7);
    }

    void handsOutTheLaunchOptionsOfTheUsersFileAsTheyAreNow()
    {
        const SettingsFolders folders;
        QVERIFY(SettingsFolders::write(folders.userFile(), "[options]\nKest.ProcessPriority=4\n"));
        QVERIFY(SettingsFolders::write(folders.defaultFile(), ""));
        const Set set(folders.path(), QStringLiteral("Other"));
        const auto first = set.getComponentsLaunchOptions();
        QVERIFY(SettingsFolders::write(folders.userFile(), "[options]\nKest.ProcessPriority=10\n"));
        const auto second = set.getComponentsLaunchOptions();
        QVERIFY(first != second);
        QCOMPARE(priorityOf(*first), 4);
        QCOMPARE(priorityOf(*second), 10);
        QCOMPARE(second->getRefCount(), 1);
        QCOMPARE(folders.userFolderContent(), QStringList(QStringLiteral("kest.ini")));
        const auto writable = common_ComponentsLaunchOptions::create(ReadWriteAccess);
        QVERIFY(writable);
        QVERIFY(set.getComponentsLaunchOptions());
        QVERIFY(folders.session.shown.isEmpty());
    }

private:
    static int priorityOf(const common_ComponentsLaunchOptions& options)
    {
        return options[QStringLiteral("Kest.ProcessPriority")].castToInt();
    }

    /// With a width of 7 and the recent file "/a"; neither is written.
    static std::unique_ptr<Set> changedSet(const SettingsFolders& folders)
    {
        SettingsFolders::write(folders.defaultFile(), "");
        auto set = std::make_unique<Set>(folders.info.userSettings, QStringLiteral("Kest"));
        set->geometry()->set_width(7);
        set->recentFiles()->addRecentFile(QStringLiteral("/a"));
        return set;
    }
};

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    if (!Child::deed().isEmpty()) {
        doDeed(Child::deed());
        return 0;
    }
    tst_common_CommonSettingsSet test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_common_CommonSettingsSet.moc"
