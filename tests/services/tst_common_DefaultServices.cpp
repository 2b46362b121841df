// SPDX-License-Identifier: MIT
#include <ChildRun.h>
#include <FakeServices.h>
#include <SettingsProcess.h>
#include <Text.h>

#include <common_CommonSettingsSet.h>
#include <common_ComponentsLaunchOptions.h>
#include <common_DefaultServices.h>
#include <common_RunWrapper.h>
#include <common_ServiceCheck.h>

#include <QDir>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

namespace {

using Check = common_ServiceCheck;
using Runner = common_ProcessRunner<common_KestProcessMessage>;

/// Sets an environment variable, or removes it, until the end of the scope.
class Variable
{
public:
    Variable(const char* name, const QString& value) : m_name(name), m_before(qgetenv(name))
    {
        value.isNull() ? qunsetenv(name) : qputenv(name, value.toLocal8Bit());
    }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;
    ~Variable() { m_before.isNull() ? qunsetenv(m_name) : qputenv(m_name, m_before); }

private:
    const char* m_name;
    QByteArray m_before;
};

// The message that kest.ini is locked.
void showLocked()
{
    const QTemporaryDir folder;
    const Variable user("KEST_USER_HOME", folder.path());
    const common_DefaultServices services(text("tool\x1b"));
    const auto holder = common_ComponentsLaunchOptions::create(ReadWriteAccess);
    common_ComponentsLaunchOptions::create(ReadWriteAccess);
}

} // namespace

class tst_common_DefaultServices : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void setsWhatAConsoleProgramNeeds()
    {
        {
            const common_DefaultServices services(text("tool"));
            QCOMPARE(Check::problem(Check::Settings | Check::RunSetup | Check::GuiLauncher),
                     QString());
            QVERIFY(GET_SERVICE(common_IApplication)->isNonInteractive());
            QCOMPARE(GET_SERVICE(common_IApplicationInfo)->applicationName(), text("tool"));
            QCOMPARE(Check::missingServices(Check::ProcessDialog),
                     words("common_IIconUtility common_IPixmapUtility"));
        }
        QVERIFY(!common_ServiceOf<common_IApplication>::hasService());
        QVERIFY(!common_ServiceOf<common_IApplicationInfo>::hasService());
        QVERIFY(!common_ServiceOf<common_ISession>::hasService());
    }

    void keepsAServiceOfTheApplication()
    {
        const FakeSession session;
        {
            const common_DefaultServices services(text("tool"));
            QCOMPARE(GET_SERVICE(common_ISession), static_cast<const common_ISession*>(&session));
        }
        QVERIFY(common_ServiceOf<common_ISession>::hasService());
    }

    void removesOnlyWhatItHasSet()
    {
        auto services = std::make_unique<common_DefaultServices>(text("tool"));
        const FakeSession session; // takes the place of the default one
        services.reset();
        QCOMPARE(GET_SERVICE(common_ISession), static_cast<const common_ISession*>(&session));
        QVERIFY(!common_ServiceOf<common_IApplication>::hasService());
    }

    void takesTheFoldersThatTheVariablesName()
    {
        const Variable base("TEST_BASE", text("/opt"));
        const Variable home("KEST_HOME", text("${TEST_BASE}/kest/../suite"));
        const Variable user("KEST_USER_HOME", text("relative"));
        const common_DefaultServices services(text("tool"));
        const auto* const info = GET_SERVICE(common_IApplicationInfo);
        QCOMPARE(QDir::cleanPath(info->installationDirectory()),
                 QDir(text("/opt/suite")).absolutePath());
        QCOMPARE(info->defaultSettingsDirectory(), info->installationDirectory());
        QCOMPARE(info->userSettingsDirectory(), QDir::currentPath() + text("/relative"));
        QCOMPARE(info->initialRecentFile(), QString());
    }

    void findsFoldersWithoutVariables()
    {
        const Variable home("KEST_HOME", QString());
        const Variable user("KEST_USER_HOME", QString());
        QCOMPARE(common_DefaultServices::installationDirectory(),
                 QFileInfo(QCoreApplication::applicationDirPath()).path());
        QCOMPARE(common_DefaultServices::userSettingsDirectory(),
                 QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
                     text("/kest"));
    }

    // The run wrapper reads the variables, and the settings ask the service.
    void givesRunsTheSameFolders()
    {
        const QTemporaryDir folder;
        const Variable home("KEST_HOME", QString());
        const Variable user("KEST_USER_HOME", QString());
        const QString before = common_DefaultServices::installationDirectory();
        common_DefaultServices::setEnvironment();
        QCOMPARE(qEnvironmentVariable("KEST_HOME"), before);
        QCOMPARE(qEnvironmentVariable("KEST_USER_HOME"),
                 common_DefaultServices::userSettingsDirectory());
        const common_DefaultServices services(text("tool"));
        common_CommonSettingsSet settings(folder.path(), text("tool"));
        common_RunWrapper wrapper(&settings);
        Runner runner;
        QVERIFY(wrapper.setupKestProcess(runner, QFileInfo(text("model.nec")), {}));
        QCOMPARE(runner.getExecutable().filePath(), before + text("/bin/runkest"));
    }

    void showsMessagesOnStandardError()
    {
        const ChildRun child(text("locked"));
        QVERIFY(child.hasEndedWell());
        QVERIFY2(child.error().contains(QRegularExpression(
                     text("^tool.: The [^\n]*/kest\\.ini file is locked\\. \\(17331\\)\n$"))),
                 qPrintable(child.error()));
        QCOMPARE(child.output(), QString());
    }
};

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    if (!ChildRun::taskOfThisRun().isEmpty()) {
        showLocked();
        return 0;
    }
    tst_common_DefaultServices test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_common_DefaultServices.moc"
