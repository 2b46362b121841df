// SPDX-License-Identifier: MIT
#include <BoxAnswerer.h>
#include <ChildRun.h>
#include <SpecialFile.h>

#include <ApplicationIdentity.h>
#include <Services.h>
#include <SystemSkips.h>

#include <common_DomainEntity.h>
#include <common_HelpClient.h>
#include <common_IApplication.h>
#include <common_IApplicationInfo.h>
#include <common_IIconUtility.h>
#include <common_IPixmapUtility.h>
#include <common_IScriptRecorder.h>
#include <common_ISession.h>
#include <common_ServiceOf.h>
#include <common_UserMessage.h>

#include <QApplication>
#include <QFile>
#include <QIcon>
#include <QPointer>
#include <QTemporaryDir>
#include <QtTest>

#include <cstdio>

namespace {

const ApplicationIdentity viewer{QStringLiteral("viewer"), QStringLiteral("models/a.nec")};

QString offered()
{
    QString result;
    result +=
        common_ServiceOf<common_IApplication>::hasService() ? QLatin1Char('a') : QLatin1Char('-');
    result += common_ServiceOf<common_IApplicationInfo>::hasService() ? QLatin1Char('i')
                                                                      : QLatin1Char('-');
    result += common_ServiceOf<common_ISession>::hasService() ? QLatin1Char('s') : QLatin1Char('-');
    result +=
        common_ServiceOf<common_IIconUtility>::hasService() ? QLatin1Char('c') : QLatin1Char('-');
    result +=
        common_ServiceOf<common_IPixmapUtility>::hasService() ? QLatin1Char('p') : QLatin1Char('-');
    result +=
        common_ServiceOf<common_HelpClient>::hasService() ? QLatin1Char('h') : QLatin1Char('-');
    return result;
}

void showLocked(QWidget* parent)
{
    GET_SERVICE(common_ISession)
        ->showUserMessage(
            common_UserMessage::create(QStringLiteral("locked"), QStringLiteral("17331"),
                                       common_UserMessage::Warning, common_UserMessage::PlainText),
            parent);
}

} // namespace

class tst_services : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void areThereAsLongAsTheObject()
    {
        QCOMPARE(offered(), QStringLiteral("------"));
        {
            const Services services(viewer, false);
            QCOMPARE(offered(), QStringLiteral("aiscph"));
            QVERIFY(!GET_SERVICE(common_IApplication)->isNonInteractive());
            QVERIFY(!GET_SERVICE(common_IIconUtility)->getIcon(QStringLiteral("info")).isNull());
        }
        QCOMPARE(offered(), QStringLiteral("------"));
    }

    void aProgramWithoutWindowsHasNoneOfTheirServices()
    {
        const ChildRun child(QStringLiteral("batch"));
        QVERIFY2(child.hasEndedWell(), qPrintable(child.error()));
        QCOMPARE(child.output(), QStringLiteral("ais---\n"));
        QCOMPARE(child.error(), QStringLiteral("viewer: locked (17331)\n"));
    }

    void knowTheApplication()
    {
        SKIP_ON_WINDOWS("the installation is the folder above the programs");
        qputenv("KEST_HOME", "/installation");
        qputenv("KEST_USER_HOME", "/home/user");
        const Services services(viewer, true);
        const common_IApplicationInfo* const info = GET_SERVICE(common_IApplicationInfo);
        QVERIFY(GET_SERVICE(common_IApplication)->isNonInteractive());
        QCOMPARE(info->applicationName(), QStringLiteral("viewer"));
        QCOMPARE(info->installationDirectory(), QStringLiteral("/installation"));
        QCOMPARE(info->defaultSettingsDirectory(), QStringLiteral("/installation"));
        QCOMPARE(info->userSettingsDirectory(), QStringLiteral("/home/user"));
        QCOMPARE(info->initialRecentFile(), QStringLiteral("/installation/models/a.nec"));
        qputenv("KEST_TEST_FOLDER", "/home");
        qputenv("KEST_USER_HOME", "${KEST_TEST_FOLDER}/other");
        QCOMPARE(info->userSettingsDirectory(), QStringLiteral("/home/other"));
        qputenv("KEST_HOME", "$KEST_TEST_FOLDER/suite");
        QCOMPARE(info->installationDirectory(), QStringLiteral("/home/suite"));
        qunsetenv("KEST_USER_HOME");
        QVERIFY(info->userSettingsDirectory().endsWith(QStringLiteral("/kest")));
        qunsetenv("KEST_HOME");
        QVERIFY(info->installationDirectory().endsWith(QStringLiteral("/suite")));
    }

    // Nobody may ever read what is written into a pipe.
    void scriptIsNotRecordedIntoAPipe()
    {
        const QTemporaryDir folder;
        const QString pipe = folder.filePath(QStringLiteral("pipe"));
        SPECIAL_FILE_OR_SKIP(S_IFIFO, pipe);
        const QString script = folder.filePath(QStringLiteral("script"));
        for (const QString& file : {pipe, script}) {
            qputenv("KEST_SCRIPT", QFile::encodeName(file));
            const Services services(viewer, true);
            GET_SERVICE(common_IScriptRecorder)
                ->recordCommand(common_ActivePtr<common_DomainEntity>(), QStringLiteral(":do()"));
        }
        qunsetenv("KEST_SCRIPT");
        QFile recorded(script);
        QVERIFY(recorded.open(QIODevice::ReadOnly));
        QCOMPARE(recorded.readAll(), QByteArray(":do()\n"));
    }

    void messageGoesWithItsWindow()
    {
        const Services services(viewer, false);
        QPointer<QWidget> window = new QWidget;
        const BoxAnswerer answerer([&window](QMessageBox& /*box*/) { delete window; });
        showLocked(window);
        QCOMPARE(answerer.texts, QStringList(QStringLiteral("locked")));
        QVERIFY(window.isNull());
    }

    void anApplicationMayHaveNoInitialFile()
    {
        const Services services({QStringLiteral("charts"), QString()}, true);
        QCOMPARE(GET_SERVICE(common_IApplicationInfo)->initialRecentFile(), QString());
    }
};

static int batch(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    const Services services(viewer, true);
    std::puts(qPrintable(offered()));
    showLocked(nullptr);
    return 0;
}

int main(int argc, char* argv[])
{
    if (!ChildRun::taskOfThisRun().isEmpty()) {
        return batch(argc, argv);
    }
    QApplication application(argc, argv);
    tst_services test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_services.moc"
