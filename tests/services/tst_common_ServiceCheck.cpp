// SPDX-License-Identifier: MIT
#include <BoxAnswerer.h>
#include <ChildRun.h>
#include <DialogServices.h>
#include <SettingsFolders.h>

#include <common_CommonSettingsSet.h>
#include <common_ComponentsLaunchOptions.h>
#include <common_HelpClient.h>
#include <common_InitialRenderingSettingsDialog.h>
#include <common_KestGuiLauncher.h>
#include <common_KestProcessDialog.h>
#include <common_RunWrapper.h>
#include <common_ServiceCheck.h>
#include <common_ServiceNames.h>

#include <QPushButton>
#include <QtTest>

#include <map>
#include <memory>

namespace {

using Check = common_ServiceCheck;
using Runner = common_ProcessRunner<common_KestProcessMessage>;

class FakeHelpClient : public OfferedService<common_HelpClient>
{
public:
    void registerPage(QWidget* /*widget*/, const QString& /*page*/) override {}
};

/// The services of these names.
struct OfferedServices
{
    OfferedServices(const QStringList& names, const QString& folder)
    {
        namespace all = common_ServiceNames;
        offer(names, all::application, application, true);
        offer(names, all::applicationInfo, applicationInfo, folder);
        offer(names, all::helpClient, helpClient);
        offer(names, all::iconUtility, iconUtility);
        offer(names, all::pixmapUtility, pixmapUtility);
        offer(names, all::scriptRecorder, scriptRecorder);
        offer(names, all::session, session);
        offer(names, all::splashScreen, splashScreen);
    }

    template <typename TService, typename... Arguments>
    static void offer(const QStringList& names, const char* name,
                      std::unique_ptr<TService>& service, Arguments... arguments)
    {
        if (names.contains(QLatin1String(name))) {
            service = std::make_unique<TService>(arguments...);
        }
    }

    std::unique_ptr<FakeApplication> application;
    std::unique_ptr<FakeApplicationInfo> applicationInfo;
    std::unique_ptr<FakeHelpClient> helpClient;
    std::unique_ptr<FakeIconUtility> iconUtility;
    std::unique_ptr<FakePixmapUtility> pixmapUtility;
    std::unique_ptr<FakeScriptRecorder> scriptRecorder;
    std::unique_ptr<FakeSession> session;
    std::unique_ptr<FakeSplashScreen> splashScreen;
};

void useSettings()
{
    const auto options = common_ComponentsLaunchOptions::create(ReadWriteAccess);
    options->restoreDefaults();
    options->writeSettings();
    common_ComponentsLaunchOptions::create(ReadWriteAccess); // refused, with a message
}

void setUpRun()
{
    const BoxAnswerer answerer; // that there is no machines file
    common_CommonSettingsSet settings(QDir::tempPath(), QStringLiteral("test"));
    common_RunWrapper wrapper(&settings);
    Runner runner;
    wrapper.setupKestProcess(runner, QFileInfo(QStringLiteral("model.nec")), {});
    wrapper.setupKestProcess(runner, QFileInfo(QStringLiteral("model.nec")),
                             common_RunWrapper::Parallel);
}

void showProcessDialog()
{
    const common_ActivePtr<Runner> runner(new Runner);
    common_KestProcessDialog dialog(runner, nullptr);
    runner->setExecutable(QStringLiteral(KEST_TEST_CHILD));
    runner->addArguments({QStringLiteral("out"), QStringLiteral("-*-warning-*- (1) A\\n")});
    runner->runAndWaitForFinish();
    // Only a session can say that the details' state is not kept.
    const auto holder = common_ComponentsLaunchOptions::create(ReadWriteAccess);
    dialog.findChild<QPushButton*>(QStringLiteral("buttonDetails"))->click();
}

void launchApplication()
{
    common_KestGuiLauncher::getModifiedArguments({});
}

void showRenderingDialog()
{
    common_InitialRenderingSettingsDialog dialog(nullptr, QStringLiteral("File"), true);
    dialog.Test();
    dialog.Keep();
}

const std::map<QString, std::pair<Check::Use, void (*)()>>& uses()
{
    static const std::map<QString, std::pair<Check::Use, void (*)()>> table = {
        {QStringLiteral("settings"), {Check::Settings, useSettings}},
        {QStringLiteral("run set-up"), {Check::RunSetup, setUpRun}},
        {QStringLiteral("process dialog"), {Check::ProcessDialog, showProcessDialog}},
        {QStringLiteral("launcher"), {Check::GuiLauncher, launchApplication}},
        {QStringLiteral("rendering dialog"), {Check::RenderingDialog, showRenderingDialog}},
    };
    return table;
}

// "use|service": with the services that the use needs, but not this one.
int doTask(const QStringList& task)
{
    const auto& [use, action] = uses().at(task.at(0));
    const QTemporaryDir folder;
    QStringList names = Check::neededServices(use);
    names.removeOne(task.at(1));
    const OfferedServices services(names, folder.path());
    action();
    return 0;
}

} // namespace

class tst_common_ServiceCheck : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aUseNeedsItsServicesAndNoOthers_data()
    {
        QTest::addColumn<QString>("task");
        QTest::addColumn<QString>("missing");
        for (const auto& [name, use] : uses()) {
            QTest::newRow(qPrintable(name)) << name + QLatin1Char('|') << QString();
            const QStringList needed = Check::neededServices(use.first);
            QVERIFY2(!needed.isEmpty(), qPrintable(name));
            for (const QString& service : needed) {
                const QString task = name + QLatin1Char('|') + service;
                QTest::newRow(qPrintable(task)) << task << service;
            }
        }
    }

    void aUseNeedsItsServicesAndNoOthers()
    {
        QFETCH(QString, task);
        QFETCH(QString, missing);
        const ChildRun child(task);
        if (missing.isEmpty()) {
            QVERIFY2(child.hasEndedWell(), qPrintable(child.error()));
            return;
        }
        QVERIFY(child.hasCrashed());
        QVERIFY2(child.error().endsWith(QStringLiteral("Assertion failed: %1\n").arg(missing)),
                 qPrintable(child.error()));
    }

    void namesWhatIsMissingAndHowToSetIt()
    {
        QVERIFY(Check::missingServices(Check::Settings) ==
                QStringList({QStringLiteral("common_IApplicationInfo"),
                             QStringLiteral("common_ISession")}));
        const FakeApplicationInfo info;
        QCOMPARE(Check::missingServices(Check::Settings),
                 QStringList(QStringLiteral("common_ISession")));
        QCOMPARE(Check::problem(Check::Settings),
                 QStringLiteral("The service common_ISession is missing: it shows the message that "
                                "a settings file is locked. Set one with "
                                "common_ServiceOf<common_ISession>::setService(), or use "
                                "common_DefaultServices."));
        const FakeSession session;
        QCOMPARE(Check::problem(Check::Settings), QString());
    }

    void hasALineForEachMissingService()
    {
        const Check::Uses all = Check::Settings | Check::RunSetup | Check::ProcessDialog |
                                Check::GuiLauncher | Check::RenderingDialog;
        const QStringList lines = Check::problem(all).split(QLatin1Char('\n'));
        const QStringList names = Check::missingServices(all);
        QCOMPARE(names, Check::neededServices(all));
        QCOMPARE(lines.size(), names.size());
        for (int i = 0; i < lines.size(); ++i) {
            QVERIFY2(lines.at(i).startsWith(QStringLiteral("The service %1 is").arg(names.at(i))),
                     qPrintable(lines.at(i)));
        }
    }

    void onlyTheOptionalServicesAreNeverNeeded()
    {
        QStringList names = common_ServiceNames::all();
        QVERIFY(names.removeOne(QLatin1String(common_ServiceNames::scriptRecorder)));
        QVERIFY(names.removeOne(QLatin1String(common_ServiceNames::splashScreen)));
        QCOMPARE(Check::neededServices(Check::Settings | Check::ProcessDialog | Check::GuiLauncher |
                                       Check::RenderingDialog),
                 names);
    }

    void aRunnerByItselfNeedsNone()
    {
        QCOMPARE(Check::neededServices({}), QStringList());
        Runner runner;
        runner.setExecutable(QStringLiteral(KEST_TEST_CHILD));
        QVERIFY(runner.runAndWaitForFinish());
    }

    // At once, not when the process has started or when the user has clicked.
    void theProcessDialogNamesWhatItWillMissWhenItIsMade()
    {
        const FakeIconUtility icons;
        const FakePixmapUtility pixmaps;
        const FakeApplicationInfo info;
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral(
                                               "^common_KestProcessDialog: The service "
                                               "common_IApplication is missing.*\nThe service "
                                               "common_ISession is missing.*setService")));
        const common_KestProcessDialog dialog(common_KestProcessDialog::Runner(new Runner),
                                              nullptr);
    }
};

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    const QString task = ChildRun::taskOfThisRun();
    if (!task.isEmpty()) {
        return doTask(task.split(QLatin1Char('|')));
    }
    tst_common_ServiceCheck test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_common_ServiceCheck.moc"
