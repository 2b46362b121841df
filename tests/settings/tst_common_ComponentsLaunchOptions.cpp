// SPDX-License-Identifier: MIT
#include "ExpectedOptions.h"

#include <SettingsFolders.h>

#include <common_ComponentsLaunchOptions.h>
#include <common_ObserverOf.h>
#include <common_PropertyFactory.h>

#include <QSettings>
#include <QtTest>

namespace {

// clang-format off
QStringList keysInOrderOfReading()
{
    return listOf({
        "Prekest.ContinueWithErrors", "Prekest.ExportVariablesToStdOut",
        "Prekest.ExportVariablesToOutFile", "Prekest.AdvancedOptions", "Kest.CheckGeometryOnly",
        "Kest.ExportSPICEMTLCircuitFiles", "Kest.ProcessPriority", "Kest.UseGPUforNVIDIA",
        "Kest.DisableGPUNote", "Kest.NumberOfGPUs", "Kest.GPUsList", "Kest.RemoteHost",
        "Kest.RemoteExecutionMethod", "Kest.SpecifyParallelProcesses",
        "Kest.NumberOfParallelProcesses", "Kest.UseSharedMemory", "Kest.ParallelEnvOptions",
        "Kest.ParallelAuthenticMethod", "Kest.AdvancedOptions", "Adaptkest.RestartAnalysisNumber",
        "Adaptkest.AnalysisNumber", "Adaptkest.DeleteTempFiles", "Optkest.RestartFromSolverRun",
        "Optkest.SolverRun", "Optkest.DeleteAllFiles",
        "Amrkest.ErrorThreshold", "Amrkest.SpecifyFrequency", "Amrkest.DeleteTempFiles",
        "Amrkest.SkipFinalSolve", "Amrkest.Frequency", "Amrkest.SpecifyMaximumIterations",
        "Amrkest.MaximumIterations", "Amrkest.AdvancedOptions", "Optkest.NumberOfFarmProcesses",
        "EnvironmentVariables", "RunRemote", "RunParallel", "FarmOut", "RunDetailsShown",
    });
}
// clang-format on

class PropertyListener : public common_ObserverOf<common_PropertyContainerObserver>
{
public:
    explicit PropertyListener(common_PropertyContainer* container) : common_ObserverOf(container) {}

    void propertyValueChanged(const common_Property& property) override
    {
        names.append(property.name());
        values.append(property.castToQString());
    }

    QStringList names;
    QStringList values;
};

/// Notes which properties are asked for.
class AskedOptions : public Options
{
public:
    explicit AskedOptions(const QString& fileName)
        : Options(LockPointer(new common_LockFile(QFileInfo(fileName))))
    {}

    common_Property operator[](const QString& name) const override
    {
        asked.append(name);
        return Options::operator[](name);
    }

    common_PropertyReference operator[](const QString& name) override
    {
        asked.append(name);
        return Options::operator[](name);
    }

    mutable QStringList asked;
};

} // namespace

class tst_common_ComponentsLaunchOptions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void registersEveryOption_data() { everyOption(); }

    void registersEveryOption()
    {
        QFETCH(int, number);
        const Option& option = options()[std::size_t(number)];
        QVERIFY(common_PropertyFactory::hasMetaData(keyOf(option)));
        const common_PropertyMetaData& metaData =
            common_PropertyFactory::getMetaData(keyOf(option));
        QCOMPARE(metaData.name(), keyOf(option));
        QCOMPARE(int(metaData.type()), option.type);
        QCOMPARE(metaData.label(), QString::fromLatin1(option.label));
        QCOMPARE(metaData.flags(), option.flags);
        QCOMPARE(int(metaData.cardinality()), 0);
        const QVector<EnumType> members = metaData.getEnumList();
        QCOMPARE(members.size(), int(option.members.size()));
        for (int i = 0; i < members.size(); ++i) {
            const Member& expected = option.members[std::size_t(i)];
            QCOMPARE(members[i].key, QString::fromLatin1(expected.key));
            QCOMPARE(members[i].value, expected.value);
            QCOMPARE(members[i].text, QString::fromLatin1(expected.text));
        }
    }

    void registersThe41OptionsInOrderAndNoOthers()
    {
        QStringList expected;
        for (const Option& option : options()) {
            expected.append(keyOf(option));
        }
        QCOMPARE(expected.size(), 41);
        QStringList registered = common_PropertyFactory::names();
        registered.removeOne(QStringLiteral("3DMouseSensitivity"));
        QCOMPARE(registered, expected);
    }

    void hasEveryDefaultWithoutAnyFile_data() { everyOption(); }

    void hasEveryDefaultWithoutAnyFile()
    {
        QFETCH(int, number);
        const Option& option = options()[std::size_t(number)];
        const SettingsFolders folders;
        const Options::Pointer options = Options::create(ReadOnlyAccess);
        QVERIFY(options);
        QCOMPARE(valueOf(*options, option), standardOf(option));
    }

    void createsNothingInTheFolderUntilItIsWritten()
    {
        const SettingsFolders folders;
        const Options::Pointer options = Options::create(ReadOnlyAccess);
        QCOMPARE(folders.userFolderContent(), QStringList());
        QCOMPARE(options->getFileName(), folders.userFile());
    }

    void hasEveryDefaultWithAnEmptyGroup()
    {
        const SettingsFolders folders;
        QVERIFY(SettingsFolders::write(folders.userFile(), "[options]\n"));
        QCOMPARE(unusualValues(*Options::create(ReadOnlyAccess)), QStringList());
    }

    void hasEveryDefaultWhereTheFileIsAFolder()
    {
        const SettingsFolders folders;
        QVERIFY(QDir().mkdir(folders.userFile()));
        QVERIFY(SettingsFolders::write(folders.defaultFile(), "[options]\nFarmOut=true\n"));
        QCOMPARE(unusualValues(*Options::create(ReadOnlyAccess)), QStringList());
        QVERIFY(folders.session.shown.isEmpty());
    }

    void doesNotReadOtherGroups()
    {
        const SettingsFolders folders;
        QVERIFY(SettingsFolders::write(folders.userFile(),
                                       "RunRemote=true\n[option]\nRunParallel=true\n"));
        QCOMPARE(unusualValues(*Options::create(ReadOnlyAccess)), QStringList());
    }

    void writesExactlyThe39KeysOfItsGroup()
    {
        const SettingsFolders folders;
        const Options::Pointer options = Options::create(ReadWriteAccess);
        assign(*options, idleKey(), true);
        options->writeSettings();
        QStringList expected = keysInOrderOfWriting();
        QCOMPARE(expected.size(), 39);
        expected.sort();
        QStringList written = keysInFile(folders.userFile());
        written.sort();
        QCOMPARE(written, expected);
        const QSettings settings(folders.userFile(), QSettings::IniFormat);
        QCOMPARE(settings.allKeys().size(), 39);
    }

    void writesTheKeysInTheirOrder()
    {
        const SettingsFolders folders;
        const common_ActivePtr<AskedOptions> options(new AskedOptions(folders.userFile()));
        options->asked.clear();
        options->writeSettings();
        QCOMPARE(options->asked, keysInOrderOfWriting());
    }

    void leavesTheRestOfTheFileWhenItWrites()
    {
        const SettingsFolders folders;
        QVERIFY(SettingsFolders::write(folders.userFile(),
                                       "[3dmouse]\n3DMouseSensitivity=20\n\n[options]\nOwn=7\n"));
        Options::create(ReadWriteAccess)->writeSettings();
        const QSettings settings(folders.userFile(), QSettings::IniFormat);
        QCOMPARE(settings.value(QStringLiteral("3dmouse/3DMouseSensitivity")).toInt(), 20);
        QCOMPARE(settings.value(QStringLiteral("options/Own")).toInt(), 7);
        QCOMPARE(settings.allKeys().size(), 41);
    }

    void tellsObserversInTheOrderOfReading()
    {
        const SettingsFolders folders;
        QVERIFY(SettingsFolders::write(folders.userFile(),
                                       optionsGroup(farmKey(), QStringLiteral("5"))));
        const Options::Pointer options = Options::create(ReadOnlyAccess);
        const PropertyListener listener(options.get());
        options->readSettings();
        QCOMPARE(listener.names, keysInOrderOfReading());
        QCOMPARE(listener.values.at(33), QStringLiteral("5"));
        QCOMPARE(listener.values.at(6), QStringLiteral("2"));
    }

    void tellsObserversOfEachOptionThatIsRestored()
    {
        const SettingsFolders folders;
        const Options::Pointer options = Options::create(ReadOnlyAccess);
        const PropertyListener listener(options.get());
        options->restoreDefaults();
        QCOMPARE(listener.names, keysInOrderOfReading());
    }

private:
    static void everyOption()
    {
        QTest::addColumn<int>("number");
        for (std::size_t number = 0; number < options().size(); ++number) {
            QTest::newRow(options()[number].key) << int(number);
        }
    }
};

QTEST_GUILESS_MAIN(tst_common_ComponentsLaunchOptions)
#include "tst_common_ComponentsLaunchOptions.moc"
