// SPDX-License-Identifier: MIT
#include <SettingsFolders.h>
#include <SettingsProcess.h>

#include <common_3DMouseOptions.h>
#include <common_ComponentsLaunchOptions.h>
#include <common_ObserverOf.h>
#include <common_PropertyFactory.h>

#include <QRegularExpression>
#include <QSettings>
#include <QtTest>

namespace {

using Options = common_3DMouseOptions;

QString sensitivity()
{
    return QStringLiteral("3DMouseSensitivity");
}

void setSensitivity(Options& options, double value)
{
    options[sensitivity()].assignFromDouble(value);
}

class PropertyListener : public common_ObserverOf<common_PropertyContainerObserver>
{
public:
    explicit PropertyListener(common_PropertyContainer* container) : common_ObserverOf(container) {}

    void propertyValueChanged(const common_Property& property) override
    {
        told.append(QStringLiteral("%1=%2").arg(property.name(), property.castToQString()));
    }

    QStringList told;
};

void doDeed(const QString& deed)
{
    FakeApplicationInfo info(Child::folder());
    if (deed == QLatin1String("release too often")) {
        const Options::Pointer options = Options::create(ReadOnlyAccess);
        options->clone()->dereference();
    } else if (deed == QLatin1String("create without service")) {
        common_ServiceOf<common_IApplicationInfo>::setService(nullptr);
        Options::create(ReadOnlyAccess);
    }
}

} // namespace

class tst_common_3DMouseOptions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void registersTheSensitivity()
    {
        QVERIFY(common_PropertyFactory::hasMetaData(sensitivity()));
        const common_PropertyMetaData& metaData =
            common_PropertyFactory::getMetaData(sensitivity());
        QCOMPARE(metaData.name(), QStringLiteral("3DMouseSensitivity"));
        QCOMPARE(metaData.label(), QString());
        QCOMPARE(int(metaData.type()), 5);
        QCOMPARE(int(metaData.cardinality()), 0);
        QCOMPARE(metaData.flags(), 3);
        QVERIFY(metaData.getEnumList().isEmpty());
    }

    void is50WithoutAnyFile()
    {
        const SettingsFolders folders;
        const Options::Pointer options = Options::create(ReadOnlyAccess);
        QCOMPARE(options->getMouseSensitivity(), 50.0);
        QCOMPARE(options->getProperties(), QStringList(sensitivity()));
        QCOMPARE(options->getFileName(), folders.userFile());
        QCOMPARE(folders.userFolderContent(), QStringList());
    }

    void readsWhatIsStored_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<double>("expected");
        // clang-format off
        QTest::newRow("integer")     << QByteArray("[3dmouse]\n3DMouseSensitivity=20\n")          << 20.0;
        QTest::newRow("decimals")    << QByteArray("[3dmouse]\n3DMouseSensitivity=12.625\n")      << 12.625;
        QTest::newRow("exponent")    << QByteArray("[3dmouse]\n3DMouseSensitivity=1e-3\n")        << 0.001;
        QTest::newRow("negative")    << QByteArray("[3dmouse]\n3DMouseSensitivity=-7\n")          << -7.0;
        QTest::newRow("huge")        << QByteArray("[3dmouse]\n3DMouseSensitivity=1e300\n")       << 1e300;
        QTest::newRow("word")        << QByteArray("[3dmouse]\n3DMouseSensitivity=fast\n")        << 0.0;
        QTest::newRow("empty")       << QByteArray("[3dmouse]\n3DMouseSensitivity=\n")            << 0.0;
        QTest::newRow("comma")       << QByteArray("[3dmouse]\n3DMouseSensitivity=12,5\n")        << 0.0;
        QTest::newRow("empty group") << QByteArray("[3dmouse]\n")                                 << 50.0;
        QTest::newRow("empty file")  << QByteArray()                                              << 50.0;
        QTest::newRow("other group") << QByteArray("[options]\n3DMouseSensitivity=20\n")          << 50.0;
        QTest::newRow("no group")    << QByteArray("3DMouseSensitivity=20\n")                     << 50.0;
        // clang-format on
    }

    void readsWhatIsStored()
    {
        QFETCH(QByteArray, content);
        QFETCH(double, expected);
        const SettingsFolders folders;
        QVERIFY(SettingsFolders::write(folders.userFile(), content));
        QVERIFY(
            SettingsFolders::write(folders.defaultFile(), "[3dmouse]\n3DMouseSensitivity=33\n"));
        QCOMPARE(Options::create(ReadOnlyAccess)->getMouseSensitivity(), expected);
    }

    void readsTheInstallationsDefaultWithoutAUserFile()
    {
        const SettingsFolders folders;
        QVERIFY(
            SettingsFolders::write(folders.defaultFile(), "[3dmouse]\n3DMouseSensitivity=33\n"));
        QCOMPARE(Options::create(ReadOnlyAccess)->getMouseSensitivity(), 33.0);
        QVERIFY(!QFile::exists(folders.userFile()));
    }

    void writesItsKeyAndLeavesTheRest()
    {
        const SettingsFolders folders;
        QVERIFY(SettingsFolders::write(folders.userFile(), "[options]\nFarmOut=true\n"));
        const Options::Pointer options = Options::create(ReadWriteAccess);
        QCOMPARE(options->getMouseSensitivity(), 50.0);
        setSensitivity(*options, 12.625);
        options->writeSettings();
        const QSettings settings(folders.userFile(), QSettings::IniFormat);
        QStringList keys = settings.allKeys();
        keys.sort();
        QCOMPARE(keys, (QStringList{QStringLiteral("3dmouse/3DMouseSensitivity"),
                                    QStringLiteral("options/FarmOut")}));
        QCOMPARE(settings.value(QStringLiteral("3dmouse/3DMouseSensitivity")).toString(),
                 QStringLiteral("12.625"));
        QCOMPARE(Options::create(ReadOnlyAccess)->getMouseSensitivity(), 12.625);
    }

    void writesNothingWhenItGoes()
    {
        const SettingsFolders folders;
        Options::Pointer options = Options::create(ReadWriteAccess);
        setSensitivity(*options, 1);
        options.reset();
        QCOMPARE(folders.userFolderContent(), QStringList());
    }

    void restoresTheInstallationsDefault_data()
    {
        QTest::addColumn<QByteArray>("defaults");
        QTest::addColumn<double>("expected");
        // clang-format off
        QTest::newRow("20")          << QByteArray("[3dmouse]\n3DMouseSensitivity=20\n") << 20.0;
        QTest::newRow("other group") << QByteArray("3DMouseSensitivity=20\n")            << 50.0;
        QTest::newRow("no key")      << QByteArray("[3dmouse]\n")                        << 50.0;
        QTest::newRow("no file")     << QByteArray()                                     << 50.0;
        // clang-format on
    }

    void restoresTheInstallationsDefault()
    {
        QFETCH(QByteArray, defaults);
        QFETCH(double, expected);
        const SettingsFolders folders;
        const QByteArray content = "[3dmouse]\n3DMouseSensitivity=70\n";
        QVERIFY(SettingsFolders::write(folders.userFile(), content));
        if (!defaults.isEmpty()) {
            QVERIFY(SettingsFolders::write(folders.defaultFile(), defaults));
        }
        const FakeScriptRecorder recorder;
        const Options::Pointer options = Options::create(ReadWriteAccess);
        QCOMPARE(options->getMouseSensitivity(), 70.0);
        options->restoreDefaults();
        QCOMPARE(options->getMouseSensitivity(), expected);
        QCOMPARE(SettingsFolders::read(folders.userFile()), content);
        QCOMPARE(recorder.commands(), QStringList());
        QCOMPARE(QFile::exists(folders.defaultFile()), !defaults.isEmpty());
    }

    void tellsObserversWhatItReadsAndRestores()
    {
        const SettingsFolders folders;
        QVERIFY(SettingsFolders::write(folders.userFile(), "[3dmouse]\n3DMouseSensitivity=70\n"));
        const Options::Pointer options = Options::create(ReadOnlyAccess);
        const PropertyListener listener(options.get());
        options->readSettings();
        QCOMPARE(listener.told, QStringList(QStringLiteral("3DMouseSensitivity=70")));
        options->restoreDefaults();
        QCOMPARE(listener.told, (QStringList{QStringLiteral("3DMouseSensitivity=70"),
                                             QStringLiteral("3DMouseSensitivity=50")}));
    }

    void refusesASecondWritableObject()
    {
        const SettingsFolders folders;
        Options::Pointer first = Options::create(ReadWriteAccess);
        QVERIFY(first);
        QVERIFY(Options::create(ReadWriteAccess).isNull());
        QCOMPARE(folders.session.shown.size(), 1);
        QCOMPARE(folders.session.shown.at(0).message->text(),
                 QStringLiteral("The %1 file is locked.").arg(folders.userFile()));
        QVERIFY(Options::create(ReadOnlyAccess));
        QCOMPARE(folders.session.shown.size(), 1);
        first.reset();
        QVERIFY(Options::create(ReadWriteAccess));
    }

    void sharesTheLockWithTheLaunchOptions()
    {
        const SettingsFolders folders;
        Options::Pointer mouse = Options::create(ReadWriteAccess);
        QVERIFY(mouse);
        QVERIFY(common_ComponentsLaunchOptions::create(ReadWriteAccess).isNull());
        mouse.reset();
        const auto launch = common_ComponentsLaunchOptions::create(ReadWriteAccess);
        QVERIFY(launch);
        QVERIFY(Options::create(ReadWriteAccess).isNull());
        QCOMPARE(folders.session.shown.size(), 2);
    }

    void takesNoLockToRead()
    {
        const SettingsFolders folders;
        const Options::Pointer reader = Options::create(ReadOnlyAccess);
        QCOMPARE(folders.userFolderContent(), QStringList());
        QVERIFY(Options::create(ReadWriteAccess));
    }

    void readsWhatAnotherProcessHasLocked()
    {
        const SettingsFolders folders;
        SettingsProcess holder({QStringLiteral("create"), folders.info.userSettings});
        QCOMPARE(holder.said(), QStringLiteral("made"));
        QVERIFY(Options::create(ReadOnlyAccess));
        QVERIFY(folders.session.shown.isEmpty());
        QVERIFY(Options::create(ReadWriteAccess).isNull());
        QCOMPARE(folders.session.shown.size(), 1);
        QVERIFY(holder.end());
        QVERIFY(Options::create(ReadWriteAccess));
    }

    void clonesValueAndLock()
    {
        const SettingsFolders folders;
        Options::Pointer source = Options::create(ReadWriteAccess);
        setSensitivity(*source, 7);
        Options* const raw = source->clone();
        QCOMPARE(raw->getRefCount(), 0);
        Options::Pointer clone(raw);
        QCOMPARE(clone->getMouseSensitivity(), 7.0);
        QCOMPARE(clone->getFileName(), folders.userFile());
        setSensitivity(*clone, 8);
        QCOMPARE(source->getMouseSensitivity(), 7.0);
        source.reset();
        QVERIFY(Options::create(ReadWriteAccess).isNull());
        clone->writeSettings();
        QCOMPARE(SettingsFolders::read(folders.userFile()),
                 QByteArray("[3dmouse]\n3DMouseSensitivity=8\n"));
        clone.reset();
        QVERIFY(Options::create(ReadWriteAccess));
    }

    void assignsValueFileAndLockButNotTheCount()
    {
        SettingsFolders folders;
        Options::Pointer source = Options::create(ReadWriteAccess);
        setSensitivity(*source, 7);
        const QString file = folders.userFile();
        folders.info.userSettings = folders.info.defaultSettings;
        const Options::Pointer target = Options::create(ReadWriteAccess);
        // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): it holds the object as well
        const Options::Pointer second = target;
        QVERIFY(target);
        *target = *source;
        QCOMPARE(target->getRefCount(), 2);
        QCOMPARE(second->getMouseSensitivity(), 7.0);
        QCOMPARE(target->getFileName(), file);
        QVERIFY(Options::create(ReadWriteAccess)); // the lock held before is gone
        folders.info.userSettings = QFileInfo(file).path();
        source.reset();
        QVERIFY(Options::create(ReadWriteAccess).isNull());
    }

    void assertsThatItIsNotReleasedTooOften()
    {
        const QTemporaryDir folder;
        QCOMPARE(Child::lastWords(QStringLiteral("release too often"), folder.path()),
                 QStringLiteral("include/common_3DMouseOptions.h (18): "
                                "Assertion failed: m_refCount > 0\n"));
    }

    void assertsThatTheFoldersAreKnown()
    {
        const QTemporaryDir folder;
        const QString words =
            Child::lastWords(QStringLiteral("create without service"), folder.path());
        const QRegularExpression expected(
            QStringLiteral("^src/settings/option/common_3DMouseOptions\\.cpp \\(\\d+\\): "
                           "Assertion failed: common_IApplicationInfo\n$"));
        QVERIFY2(expected.match(words).hasMatch(), qPrintable(words));
    }
};

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    if (!Child::deed().isEmpty()) {
        doDeed(Child::deed());
        return 0;
    }
    tst_common_3DMouseOptions test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_common_3DMouseOptions.moc"
