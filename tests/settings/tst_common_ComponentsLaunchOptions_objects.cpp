// SPDX-License-Identifier: MIT
#include "ExpectedOptions.h"

#include <SettingsFolders.h>
#include <SettingsProcess.h>

#include <common_ComponentsLaunchOptions.h>
#include <common_PropertyFactory.h>

#include <QRegularExpression>
#include <QtTest>

namespace {

QString hostKey()
{
    return QStringLiteral("Kest.RemoteHost");
}

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

/// Of an application, which is another module than the library.
class CountingOptions : public Options
{
public:
    explicit CountingOptions(const QString& fileName)
        : Options(LockPointer(new common_LockFile(QFileInfo(fileName))))
    {}

    mutable int clones = 0;

protected:
    Options* clone() const override
    {
        ++clones;
        return Options::clone();
    }
};

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
    }
}

} // namespace

class tst_common_ComponentsLaunchOptions_objects : public QObject
{
    Q_OBJECT

private Q_SLOTS:
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

    void derivedOptionsAreClonedByTheirOwnFunction()
    {
        const SettingsFolders folders;
        const common_ActivePtr<CountingOptions> options(new CountingOptions(folders.userFile()));
        const common_DomainEntity& entity = *options;
        const common_ActivePtr<common_DomainEntity> copy(entity.clone());
        QCOMPARE(options->clones, 1);
        QVERIFY(dynamic_cast<Options*>(copy.get()) != nullptr);
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
        SettingsProcess holder({QStringLiteral("create"), folders.info.userSettings});
        QCOMPARE(holder.said(), QStringLiteral("made"));
        QVERIFY(Options::create(ReadWriteAccess).isNull());
        QCOMPARE(folders.session.shown.size(), 1);
        QVERIFY(Options::create(ReadOnlyAccess));
        QCOMPARE(folders.session.shown.size(), 1);
        QVERIFY(holder.end());
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
        // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): it holds the object as well
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
    tst_common_ComponentsLaunchOptions_objects test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_common_ComponentsLaunchOptions_objects.moc"
