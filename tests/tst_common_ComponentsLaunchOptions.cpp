#include <SettingsFolders.h>

#include <common_ComponentsLaunchOptions.h>
#include <common_ObserverOf.h>
#include <common_PropertyFactory.h>

#include <QRegularExpression>
#include <QSettings>
#include <QtTest>

#include <algorithm>
#include <cstdio>
#include <utility>
#include <vector>

namespace {

using Options = common_ComponentsLaunchOptions;

constexpr int boolean = 1;
constexpr int string = 2;
constexpr int integer = 3;

struct Member
{
    const char* key;
    int value;
    const char* text;
};

using Members = std::vector<Member>;

struct Option
{
    const char* key;
    int type;
    const char* label;
    int standard; // of booleans and integers; texts are empty
    int flags;
    Members members;
};

// clang-format off
const std::vector<Option>& options()
{
    static const Members priorities = {
        {"IdleProcessPriority", 0, "Idle"},
        {"LowProcessPriority", 1, "Low"},
        {"NormalProcessPriority", 2, "Normal"},
        {"HighProcessPriority", 3, "High"},
        {"HighestProcessPriority", 4, "Highest"},
    };
    static const Members executionMethods = {
        {"sshrshExecutionMethod", 0, "ssh/rsh (must be installed on remote and local machine)"},
        {"MPIExecutionMethod", 1, "MPI (Windows only)"},
    };
    static const Members authenticMethods = {
        {"ParallelAuthenticMethodTypeSSPI", 1, "Use SSPI (Active Directory) integration (Windows only, requires domain)"},
        {"ParallelAuthenticMethodTypeNone", 2, "Local run only (no authentication required)"},
        {"ParallelAuthenticMethodTypeDefault", 3, "Default (rsh/ssh for UNIX, PowerShell remoting for Windows)"},
    };
    static const Members thresholds = {
        {"HighErrorThreshold", 0, "High (fewer iterations and resources)"},
        {"NormalErrorThreshold", 1, "Normal (default)"},
        {"LowErrorThreshold", 2, "Low (more iterations and resources)"},
    };
    static const std::vector<Option> table = {
        {"Prekest.AdvancedOptions",              string,  "", 0, 3, {}},
        {"Kest.CheckGeometryOnly",               boolean, "", 0, 3, {}},
        {"Kest.ProcessPriority",                 integer, "Process priority", 2, 3, priorities},
        {"Kest.UseGPUforNVIDIA",                 boolean, "", 0, 3, {}},
        {"Kest.RemoteHost",                      string,  "", 0, 3, {}},
        {"Kest.RemoteExecutionMethod",           integer, "", 1, 3, executionMethods},
        {"Kest.SpecifyParallelProcesses",        boolean, "", 0, 3, {}},
        {"Prekest.ContinueWithErrors",           boolean, "", 0, 3, {}},
        {"Kest.NumberOfParallelProcesses",       integer, "", 1, 3, {}},
        {"Kest.UseSharedMemory",                 boolean, "", 0, 3, {}},
        {"Kest.ParallelEnvOptions",              integer, "", 0, 3, {}},
        {"Kest.ParallelAuthenticMethod",         integer, "Parallel authentication method", 1, 3, authenticMethods},
        {"Kest.AdvancedOptions",                 string,  "", 0, 3, {}},
        {"Adaptkest.RestartAnalysisNumber",      boolean, "", 0, 3, {}},
        {"Adaptkest.AnalysisNumber",             integer, "", 1, 3, {}},
        {"Adaptkest.DeleteTempFiles",            boolean, "", 1, 3, {}},
        {"Prekest.ExportVariablesToStdOut",      boolean, "", 0, 3, {}},
        {"Optkest.RestartFromSolverRun",         boolean, "", 0, 3, {}},
        {"Optkest.SolverRun",                    integer, "", 1, 3, {}},
        {"Optkest.DeleteAllFiles",               boolean, "", 0, 3, {}},
        {"Optkest.SpecifyNumberOfFarmProcesses", boolean, "", 1, 66, {}},
        {"Optkest.NumberOfFarmProcesses",        integer, "", 2, 3, {}},
        {"EnvironmentVariables",                 string,  "", 0, 3, {}},
        {"Kest.DisableGPUNote",                  boolean, "", 0, 3, {}},
        {"Kest.NumberOfGPUs",                    string,  "", 0, 3, {}},
        {"Kest.GPUsList",                        string,  "", 0, 3, {}},
        {"Prekest.ExportVariablesToOutFile",     boolean, "", 0, 3, {}},
        {"RunDetailsShown",                      boolean, "Show the details on the Kest Solver run dialog", 0, 3, {}},
        {"Kest.ExportSPICEMTLCircuitFiles",      boolean, "", 0, 3, {}},
        {"Amrkest.ErrorThreshold",               integer, "", 1, 3, thresholds},
        {"Amrkest.Frequency",                    string,  "", 0, 3, {}},
        {"Amrkest.MaximumIterations",            integer, "", 1, 3, {}},
        {"Amrkest.AdvancedOptions",              string,  "", 0, 3, {}},
        {"Amrkest.SpecifyFrequency",             boolean, "", 0, 3, {}},
        {"Amrkest.SpecifyMaximumIterations",     boolean, "", 0, 3, {}},
        {"Amrkest.DeleteTempFiles",              boolean, "", 1, 3, {}},
        {"Amrkest.SkipFinalSolve",               boolean, "", 0, 3, {}},
        {"RunParallel",                          boolean, "Run the parallel Kest Solver", 0, 3, {}},
        {"FarmOut",                              boolean, "Run the farming out Kest Solver", 0, 3, {}},
        {"RunRemote",                            boolean, "Run the Kest Solver on a remote machine", 0, 3, {}},
        {"Timekest.DeleteTempFiles",             boolean, "", 0, 64, {}},
    };
    return table;
}

QStringList listOf(const std::vector<const char*>& texts)
{
    QStringList list;
    for (const char* text : texts) {
        list.append(QLatin1String(text));
    }
    return list;
}

QStringList keysInOrderOfWriting()
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
        "Optkest.SolverRun", "Optkest.DeleteAllFiles", "Optkest.NumberOfFarmProcesses",
        "Amrkest.ErrorThreshold", "Amrkest.SpecifyFrequency", "Amrkest.DeleteTempFiles",
        "Amrkest.SkipFinalSolve", "Amrkest.Frequency", "Amrkest.SpecifyMaximumIterations",
        "Amrkest.MaximumIterations", "Amrkest.AdvancedOptions", "EnvironmentVariables", "RunRemote",
        "RunParallel", "FarmOut", "RunDetailsShown",
    });
}

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

QString forcedKey()
{
    return QStringLiteral("Optkest.SpecifyNumberOfFarmProcesses");
}

QString idleKey()
{
    return QStringLiteral("Timekest.DeleteTempFiles");
}

QString farmKey()
{
    return QStringLiteral("Optkest.NumberOfFarmProcesses");
}

QString priorityKey()
{
    return QStringLiteral("Kest.ProcessPriority");
}

QString hostKey()
{
    return QStringLiteral("Kest.RemoteHost");
}

QString keyOf(const Option& option)
{
    return QLatin1String(option.key);
}

const Option& optionOf(const QString& key)
{
    return *std::find_if(options().cbegin(), options().cend(),
                         [&key](const Option& option) { return keyOf(option) == key; });
}

QVariant standardOf(const Option& option)
{
    switch (option.type) {
    case boolean:
        return option.standard != 0;
    case integer:
        return option.standard;
    default:
        return QString();
    }
}

QVariant otherThanStandard(const Option& option)
{
    switch (option.type) {
    case boolean:
        return option.standard == 0;
    case integer:
        return option.standard + 2;
    default:
        return QStringLiteral("text of %1").arg(keyOf(option));
    }
}

QVariant valueOf(const common_PropertyContainer& container, const Option& option)
{
    const common_Property property = container[keyOf(option)];
    switch (option.type) {
    case boolean:
        return property.castToBool();
    case integer:
        return property.castToInt();
    default:
        return property.castToQString();
    }
}

QVariant valueOf(const common_PropertyContainer& container, const QString& key)
{
    return valueOf(container, optionOf(key));
}

void assign(common_PropertyContainer& container, const QString& key, const QVariant& value)
{
    common_PropertyReference property = container[key];
    switch (optionOf(key).type) {
    case boolean:
        property.assignFromBool(value.toBool());
        break;
    case integer:
        property.assignFromInt(value.toInt());
        break;
    default:
        property.assignFromQString(value.toString());
        break;
    }
}

/// The options that do not have their default, as "key=value".
QStringList unusualValues(const common_PropertyContainer& container)
{
    QStringList unusual;
    for (const Option& option : options()) {
        const QVariant value = valueOf(container, option);
        if (value != standardOf(option)) {
            unusual.append(keyOf(option) + QLatin1Char('=') + value.toString());
        }
    }
    return unusual;
}

QByteArray optionsGroup(const QString& key, const QString& storedText)
{
    return QStringLiteral("[options]\n%1=%2\n").arg(key, storedText).toUtf8();
}

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

/// Notes the values at the moment of recording.
class CuriousRecorder : public FakeScriptRecorder
{
public:
    void recordCommand(common_ActivePtr<common_DomainEntity> entity,
                       const QString& command) override
    {
        const auto* const container = dynamic_cast<common_PropertyContainer*>(entity.get());
        unusualWhenRecorded = container ? unusualValues(*container) : QStringList();
        FakeScriptRecorder::recordCommand(entity, command);
    }

    QStringList unusualWhenRecorded;
};

QStringList keysInFile(const QString& path)
{
    QSettings settings(path, QSettings::IniFormat);
    settings.beginGroup(QStringLiteral("options"));
    return settings.allKeys();
}

common_ActivePtr<common_DomainEntity> cloneOf(const Options::Pointer& options)
{
    const common_DomainEntity& entity = *options;
    return common_ActivePtr<common_DomainEntity>(entity.clone());
}

void doDeed(const QString& deed)
{
    FakeApplicationInfo info(Child::folder());
    if (deed == QLatin1String("release too often")) {
        const Options::Pointer options = Options::create(ReadOnlyAccess);
        static_cast<common_DomainEntity*>(options.get())->clone()->dereference();
    } else if (deed == QLatin1String("create without service")) {
        common_ServiceOf<common_IApplicationInfo>::setService(nullptr);
        Options::create(ReadOnlyAccess);
    } else if (deed == QLatin1String("restore without service")) {
        const Options::Pointer options = Options::create(ReadOnlyAccess);
        common_ServiceOf<common_IApplicationInfo>::setService(nullptr);
        options->restoreDefaults();
    } else if (deed == QLatin1String("hold the lock")) {
        const Options::Pointer options = Options::create(ReadWriteAccess);
        std::puts(options ? "locked" : "not locked");
        std::fflush(stdout);
        std::getchar();
    }
}

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

    void keepsEachOptionInTheFile_data() { everyPersistedOption(); }

    void keepsEachOptionInTheFile()
    {
        QFETCH(QString, key);
        const SettingsFolders folders;
        const QVariant value = otherThanStandard(optionOf(key));
        {
            const Options::Pointer options = Options::create(ReadWriteAccess);
            assign(*options, key, value);
            options->writeSettings();
        }
        const QString line = key + QLatin1Char('=') + value.toString();
        QVERIFY(SettingsFolders::read(folders.userFile()).contains('\n' + line.toUtf8() + '\n'));
        QCOMPARE(unusualValues(*Options::create(ReadOnlyAccess)), QStringList(line));
    }

    void keepsTextsVerbatim_data()
    {
        QTest::addColumn<QString>("text");
        // clang-format off
        QTest::newRow("blanks around")   << QStringLiteral("  a  b  ");
        QTest::newRow("list")            << QStringLiteral("0,1, 2;3");
        QTest::newRow("quotes")          << QStringLiteral("--name \"a b\" 'c'");
        QTest::newRow("lines")           << QStringLiteral("A=1\nB=2\r\n\tC=3\n");
        QTest::newRow("backslashes")     << QStringLiteral("C:\\new\\temp\\x41");
        QTest::newRow("percent")         << QStringLiteral("%1 %PATH% 100%");
        QTest::newRow("variant marker")  << QStringLiteral("@Invalid()");
        QTest::newRow("group and key")   << QStringLiteral("[options]=#;x");
        QTest::newRow("other scripts")   << QString::fromUtf8("\xc3\xa9\xce\xa9\xe6\xbc\xa2\xf0\x9f\x98\x80");
        // clang-format on
    }

    void keepsTextsVerbatim()
    {
        QFETCH(QString, text);
        const SettingsFolders folders;
        const QStringList keys = keysInOrderOfWriting();
        const Options::Pointer options = Options::create(ReadWriteAccess);
        for (const QString& key : keys) {
            if (optionOf(key).type == string) {
                assign(*options, key, text);
            }
        }
        options->writeSettings();
        const Options::Pointer read = Options::create(ReadOnlyAccess);
        int texts = 0;
        for (const QString& key : keys) {
            if (optionOf(key).type == string) {
                QCOMPARE(valueOf(*read, key).toString(), text);
                ++texts;
            }
        }
        QCOMPARE(texts, 8);
    }

    void convertsWhatIsStored_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QVariant>("expected");
        const QStringList keys = keysInOrderOfWriting();
        for (const QString& key : keys) {
            const auto row = [&key](const char* stored, const QVariant& expected) {
                QTest::addRow("%s=%s", qPrintable(key), stored)
                    << key << QString::fromLatin1(stored) << expected;
            };
            const int smallest = key == farmKey() ? 2 : 0;
            switch (optionOf(key).type) {
            case boolean:
                row("word", true);
                row("2", true);
                row("TRUE", true);
                row("0", false);
                row("False", false);
                row("", false);
                row("true, true", false);
                break;
            case integer:
                row("7", 7);
                row("word", smallest);
                row("", smallest);
                row("true", smallest);
                row("3.9", smallest);
                row("2147483647", 2147483647);
                row("99999999999999999999", smallest);
                row("3, 4", smallest);
                row("-4", key == farmKey() ? 2 : -4);
                break;
            default:
                row("12", QStringLiteral("12"));
                row("false", QStringLiteral("false"));
                row("\" a, b \"", QStringLiteral(" a, b "));
                row("a, b", QString());
                break;
            }
        }
    }

    void convertsWhatIsStored()
    {
        QFETCH(QString, key);
        QFETCH(QString, stored);
        QFETCH(QVariant, expected);
        const SettingsFolders folders;
        QVERIFY(SettingsFolders::write(folders.userFile(), optionsGroup(key, stored)));
        const Options::Pointer options = Options::create(ReadOnlyAccess);
        QCOMPARE(valueOf(*options, key), expected);
        assign(*options, key, standardOf(optionOf(key)));
        QCOMPARE(unusualValues(*options), QStringList());
    }

    void farmsOutToTwoProcessesAtLeast_data()
    {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<int>("expected");
        QTest::newRow("1") << QStringLiteral("1") << 2;
        QTest::newRow("0") << QStringLiteral("0") << 2;
        QTest::newRow("-1") << QStringLiteral("-1") << 2;
        QTest::newRow("2") << QStringLiteral("2") << 2;
        QTest::newRow("3") << QStringLiteral("3") << 3;
        QTest::newRow("5") << QStringLiteral("5") << 5;
        QTest::newRow("1e3") << QStringLiteral("1e3") << 2;
        QTest::newRow("word") << QStringLiteral("many") << 2;
    }

    void farmsOutToTwoProcessesAtLeast()
    {
        QFETCH(QString, stored);
        QFETCH(int, expected);
        const SettingsFolders folders;
        QVERIFY(SettingsFolders::write(folders.userFile(), optionsGroup(farmKey(), stored)));
        QCOMPARE(valueOf(*Options::create(ReadOnlyAccess), farmKey()).toInt(), expected);
    }

    void floorsTheFarmProcessesOnlyWhenItReads()
    {
        const SettingsFolders folders;
        const Options::Pointer options = Options::create(ReadWriteAccess);
        assign(*options, farmKey(), 1);
        options->writeSettings();
        QVERIFY(
            SettingsFolders::read(folders.userFile()).contains("\n" + farmKey().toUtf8() + "=1"));
        QCOMPARE(valueOf(*options, farmKey()).toInt(), 1);
    }

    void specifiesTheFarmProcessesWhateverTheFileSays()
    {
        const SettingsFolders folders;
        QVERIFY(SettingsFolders::write(folders.userFile(),
                                       optionsGroup(forcedKey(), QStringLiteral("false"))));
        const Options::Pointer options = Options::create(ReadOnlyAccess);
        QCOMPARE(valueOf(*options, forcedKey()).toBool(), true);
        assign(*options, forcedKey(), false);
        options->readSettings();
        QCOMPARE(valueOf(*options, forcedKey()).toBool(), false); // forced in a new object only
    }

    void doesNotTouchTheTimeSolversOption()
    {
        const SettingsFolders folders;
        QVERIFY(SettingsFolders::write(folders.userFile(),
                                       optionsGroup(idleKey(), QStringLiteral("true"))));
        QVERIFY(SettingsFolders::write(folders.defaultFile(),
                                       optionsGroup(idleKey(), QStringLiteral("false"))));
        const Options::Pointer options = Options::create(ReadWriteAccess);
        QCOMPARE(valueOf(*options, idleKey()).toBool(), false);
        assign(*options, idleKey(), true);
        options->readSettings();
        options->restoreDefaults();
        QCOMPARE(valueOf(*options, idleKey()).toBool(), true);
        QVERIFY(QFile::remove(folders.userFile()));
        options->writeSettings();
        QVERIFY(!SettingsFolders::read(folders.userFile()).contains("Timekest"));
    }

    void readsTheInstallationsDefaultsWithoutAUserFile()
    {
        const SettingsFolders folders;
        QVERIFY(SettingsFolders::write(folders.defaultFile(),
                                       "[options]\nRunParallel=true\nKest.ProcessPriority=7\n"
                                       "Optkest.SpecifyNumberOfFarmProcesses=false\n"));
        const Options::Pointer options = Options::create(ReadWriteAccess);
        QCOMPARE(unusualValues(*options), listOf({"Kest.ProcessPriority=7", "RunParallel=true"}));
        QVERIFY(!QFile::exists(folders.userFile()));
        const QByteArray defaults = SettingsFolders::read(folders.defaultFile());
        options->writeSettings();
        QCOMPARE(keysInFile(folders.userFile()).size(), 39);
        QCOMPARE(SettingsFolders::read(folders.defaultFile()), defaults);
    }

    void doesNotReadTheInstallationsDefaultsBesideAUserFile()
    {
        const SettingsFolders folders;
        QVERIFY(SettingsFolders::write(folders.userFile(), "[options]\nFarmOut=true\n"));
        QVERIFY(SettingsFolders::write(folders.defaultFile(), "[options]\nRunParallel=true\n"));
        QCOMPARE(unusualValues(*Options::create(ReadOnlyAccess)), listOf({"FarmOut=true"}));
    }

    void refusesASecondWritableObject()
    {
        SettingsFolders folders;
        Options::Pointer first = Options::create(ReadWriteAccess);
        QVERIFY(first);
        QVERIFY(folders.session.shown.isEmpty());
        QVERIFY(Options::create(ReadWriteAccess).isNull());
        QCOMPARE(folders.session.shown.size(), 1);
        const common_UserMessage& message = *folders.session.shown.at(0).message;
        QCOMPARE(message.text(), QStringLiteral("The %1 file is locked.").arg(folders.userFile()));
        QCOMPARE(message.code(), QStringLiteral("17331"));
        QCOMPARE(int(message.type()), 1);
        QCOMPARE(int(message.format()), 0);
        QVERIFY(!folders.session.shown.at(0).parent);
        first.reset();
        QVERIFY(Options::create(ReadWriteAccess));
        QCOMPARE(folders.session.shown.size(), 1);
    }

    void keepsItsLockWhenASecondIsRefused()
    {
        const SettingsFolders folders;
        const Options::Pointer first = Options::create(ReadWriteAccess);
        QVERIFY(Options::create(ReadWriteAccess).isNull());
        QVERIFY(Options::create(ReadWriteAccess).isNull());
    }

    void locksOnlyToWrite()
    {
        const SettingsFolders folders;
        const Options::Pointer reader = Options::create(ReadOnlyAccess);
        QCOMPARE(folders.userFolderContent(), QStringList());
        const Options::Pointer writer = Options::create(ReadWriteAccess);
        QVERIFY(writer);
        QCOMPARE(folders.userFolderContent().size(), 1);
        QVERIFY(Options::create(ReadOnlyAccess));
        QVERIFY(folders.session.shown.isEmpty());
    }

    void refusesToWriteWhatAnotherProcessHasLocked()
    {
        const SettingsFolders folders;
        QProcess holder;
        Child::start(holder, QStringLiteral("hold the lock"), folders.info.userSettings);
        QVERIFY(holder.waitForReadyRead());
        QCOMPARE(holder.readAllStandardOutput(), QByteArray("locked\n"));
        QVERIFY(Options::create(ReadWriteAccess).isNull());
        QCOMPARE(folders.session.shown.size(), 1);
        QVERIFY(Options::create(ReadOnlyAccess));
        QCOMPARE(folders.session.shown.size(), 1);
        holder.write("\n");
        QVERIFY(holder.waitForFinished());
        QVERIFY(Options::create(ReadWriteAccess));
    }

    void writesNothingWhenItGoes()
    {
        const SettingsFolders folders;
        QVERIFY(SettingsFolders::write(folders.userFile(), "[options]\nFarmOut=true\n"));
        Options::Pointer options = Options::create(ReadWriteAccess);
        assign(*options, hostKey(), QStringLiteral("node"));
        options.reset();
        QCOMPARE(SettingsFolders::read(folders.userFile()),
                 QByteArray("[options]\nFarmOut=true\n"));
        QCOMPARE(folders.userFolderContent(), QStringList(QStringLiteral("kest.ini")));
    }

    void makesACloneOfWhatWasLastWritten()
    {
        const SettingsFolders folders;
        const Options::Pointer source = Options::create(ReadWriteAccess);
        assign(*source, priorityKey(), 4);
        source->writeSettings();
        assign(*source, hostKey(), QStringLiteral("unsaved"));
        const Options::Pointer clone = Options::createClone(source);
        QVERIFY(clone);
        QVERIFY(clone != source);
        QCOMPARE(unusualValues(*clone), listOf({"Kest.ProcessPriority=4"}));
        QCOMPARE(valueOf(*source, hostKey()).toString(), QStringLiteral("unsaved"));
        QCOMPARE(source->getRefCount(), 1);
        QVERIFY(folders.session.shown.isEmpty());
    }

    void makesACloneThatDoesNotHoldTheLock()
    {
        const SettingsFolders folders;
        const Options::Pointer clone = Options::createClone(Options::create(ReadWriteAccess));
        QVERIFY(clone);
        QVERIFY(Options::create(ReadWriteAccess));
    }

    void makesACloneOfNothing()
    {
        const SettingsFolders folders;
        QVERIFY(SettingsFolders::write(folders.userFile(), "[options]\nFarmOut=true\n"));
        const Options::Pointer clone = Options::createClone(Options::Pointer());
        QVERIFY(clone);
        QCOMPARE(unusualValues(*clone), listOf({"FarmOut=true"}));
    }

    void clonesEveryValueAsADomainEntity()
    {
        const SettingsFolders folders;
        const Options::Pointer source = Options::create(ReadOnlyAccess);
        for (const Option& option : options()) {
            assign(*source, keyOf(option), otherThanStandard(option));
        }
        const auto clone = cloneOf(source);
        auto* const copy = dynamic_cast<Options*>(clone.get());
        QVERIFY(copy);
        for (const Option& option : options()) {
            QCOMPARE(valueOf(*copy, option), otherThanStandard(option));
        }
        assign(*copy, priorityKey(), 0);
        QCOMPARE(valueOf(*source, priorityKey()).toInt(), 4);
        QCOMPARE(copy->getFileName(), source->getFileName());
        copy->writeSettings();
        QCOMPARE(keysInFile(folders.userFile()).size(), 39);
    }

    void clonesWithACountOfItsOwn()
    {
        const SettingsFolders folders;
        const Options::Pointer source = Options::create(ReadOnlyAccess);
        const Options::Pointer second = source;
        QCOMPARE(source->getRefCount(), 2);
        const common_DomainEntity& entity = *source;
        common_DomainEntity* const clone = entity.clone();
        QCOMPARE(clone->getRefCount(), 0);
        const common_ActivePtr<common_DomainEntity> owner(clone);
        QCOMPARE(clone->getRefCount(), 1);
        QCOMPARE(second->getRefCount(), 2);
    }

    void sharesTheLockWithItsClone()
    {
        const SettingsFolders folders;
        Options::Pointer source = Options::create(ReadWriteAccess);
        auto clone = cloneOf(source);
        source.reset();
        QVERIFY(Options::create(ReadWriteAccess).isNull());
        clone.reset();
        QVERIFY(Options::create(ReadWriteAccess));
    }

    void countsReferencesOnceForAllItsBases()
    {
        const SettingsFolders folders;
        const Options::Pointer options = Options::create(ReadOnlyAccess);
        QCOMPARE(options->getRefCount(), 1);
        common_IPropertyContainer* const container = options.get();
        common_DomainEntity* const entity = options.get();
        common_ConstantLabeledItem* const item = options.get();
        container->reference();
        entity->reference();
        item->reference();
        QCOMPARE(options->getRefCount(), 4);
        QCOMPARE(container->getRefCount(), 4);
        QCOMPARE(entity->getRefCount(), 4);
        QCOMPARE(item->getRefCount(), 4);
        container->dereference();
        entity->dereference();
        item->dereference();
        QCOMPARE(options->getRefCount(), 1);
    }

    void assertsThatItIsNotReleasedTooOften()
    {
        const QTemporaryDir folder;
        const QString words = Child::lastWords(QStringLiteral("release too often"), folder.path());
        const QRegularExpression expected(
            QStringLiteral("^include/common_ComponentsLaunchOptions\\.h \\(\\d+\\): "
                           "Assertion failed: m_refCount > 0\n$"));
        QVERIFY2(expected.match(words).hasMatch(), qPrintable(words));
    }

    void assertsThatTheFoldersAreKnown_data()
    {
        QTest::addColumn<QString>("deed");
        QTest::newRow("create") << QStringLiteral("create without service");
        QTest::newRow("restore") << QStringLiteral("restore without service");
    }

    void assertsThatTheFoldersAreKnown()
    {
        QFETCH(QString, deed);
        const QTemporaryDir folder;
        const QString words = Child::lastWords(deed, folder.path());
        const QRegularExpression expected(
            QStringLiteral("^src/settings/option/common_ComponentsLaunchOptions\\.cpp \\(\\d+\\): "
                           "Assertion failed: common_IApplicationInfo\n$"));
        QVERIFY2(expected.match(words).hasMatch(), qPrintable(words));
    }

    void isCalledAlikeEverywhere()
    {
        const SettingsFolders folders;
        const Options::Pointer options = Options::create(ReadOnlyAccess);
        const QString expected = QStringLiteral("ComponentLaunchOptions");
        QCOMPARE(QString::fromLatin1(Options::s_classIdString), expected);
        QCOMPARE(options->getClassID(), expected);
        QCOMPARE(options->getLabel().text(), expected);
        const common_ConstantLabeledItem& item = *options;
        QCOMPARE(item.getLabel().text(), expected);
        QCOMPARE(item.common_ConstantLabeledItem::getLabel().text(), expected);
    }

    void acceptsEveryValue()
    {
        const SettingsFolders folders;
        const Options::Pointer options = Options::create(ReadOnlyAccess);
        common_IValidatable& validatable = *options;
        assign(*options, priorityKey(), -7);
        assign(*options, farmKey(), 0);
        QVERIFY(validatable.validateMembers());
        QVERIFY(validatable.validateDomainRules());
        validatable.setIgnoreValues();
        QCOMPARE(unusualValues(*options),
                 listOf({"Kest.ProcessPriority=-7", "Optkest.NumberOfFarmProcesses=0"}));
    }

    void restoresTheBuiltInDefaultsWithoutDefaultFile()
    {
        const SettingsFolders folders;
        const Options::Pointer options = unusualOptions(folders);
        const QByteArray content = SettingsFolders::read(folders.userFile());
        options->restoreDefaults();
        QCOMPARE(unusualValues(*options), notPersisted());
        QCOMPARE(SettingsFolders::read(folders.userFile()), content);
        QVERIFY(!QFile::exists(folders.defaultFile()));
    }

    void restoresTheInstallationsDefaults()
    {
        const SettingsFolders folders;
        const Options::Pointer options = unusualOptions(folders);
        QVERIFY(SettingsFolders::write(folders.defaultFile(), "[options]\nRunParallel=true\n"));
        const QByteArray content = SettingsFolders::read(folders.userFile());
        options->restoreDefaults();
        QStringList expected = notPersisted();
        expected.insert(1, QStringLiteral("RunParallel=true"));
        QCOMPARE(unusualValues(*options), expected);
        QCOMPARE(SettingsFolders::read(folders.userFile()), content);
        options->writeSettings();
        QCOMPARE(unusualValues(*Options::create(ReadOnlyAccess)), listOf({"RunParallel=true"}));
    }

    void restoresTheFarmProcessesWithTheirFloor()
    {
        const SettingsFolders folders;
        const Options::Pointer options = Options::create(ReadOnlyAccess);
        QVERIFY(SettingsFolders::write(folders.defaultFile(),
                                       optionsGroup(farmKey(), QStringLiteral("1"))));
        assign(*options, farmKey(), 9);
        options->restoreDefaults();
        QCOMPARE(valueOf(*options, farmKey()).toInt(), 2);
    }

    void tellsTheScriptRecorderOnceThatItRestored()
    {
        const SettingsFolders folders;
        const Options::Pointer options = unusualOptions(folders);
        CuriousRecorder recorder;
        options->restoreDefaults();
        QCOMPARE(recorder.commands(), listOf({":RestoreDefaults()"}));
        QCOMPARE(recorder.recorded.at(0).entity.get(),
                 static_cast<common_DomainEntity*>(options.get()));
        QCOMPARE(recorder.unusualWhenRecorded, notPersisted());
        QVERIFY(!QFile::exists(folders.defaultFile()));
        QCOMPARE(options->getRefCount(), 2); // the recorder's reference counts
        recorder.recorded.clear();
        QCOMPARE(options->getRefCount(), 1);
    }

    void tellsTheScriptRecorderOfNothingElse()
    {
        const SettingsFolders folders;
        const FakeScriptRecorder recorder;
        const Options::Pointer options = Options::create(ReadWriteAccess);
        options->readSettings();
        options->writeSettings();
        QVERIFY(Options::createClone(options));
        QCOMPARE(recorder.commands(), QStringList());
    }

private:
    static void everyOption()
    {
        QTest::addColumn<int>("number");
        for (std::size_t number = 0; number < options().size(); ++number) {
            QTest::newRow(options()[number].key) << int(number);
        }
    }

    static void everyPersistedOption()
    {
        QTest::addColumn<QString>("key");
        const QStringList keys = keysInOrderOfWriting();
        for (const QString& key : keys) {
            QTest::newRow(qPrintable(key)) << key;
        }
    }

    /// Written to the user's file, and not one of them as by default.
    static Options::Pointer unusualOptions(const SettingsFolders& /*folders*/)
    {
        Options::Pointer result = Options::create(ReadWriteAccess);
        for (const Option& option : options()) {
            assign(*result, keyOf(option), otherThanStandard(option));
        }
        result->writeSettings();
        return result;
    }

    /// What restoring leaves of unusualOptions().
    static QStringList notPersisted()
    {
        return listOf(
            {"Optkest.SpecifyNumberOfFarmProcesses=false", "Timekest.DeleteTempFiles=true"});
    }
};

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    if (!Child::deed().isEmpty()) {
        doDeed(Child::deed());
        return 0;
    }
    tst_common_ComponentsLaunchOptions test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_common_ComponentsLaunchOptions.moc"
