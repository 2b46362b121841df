// SPDX-License-Identifier: MIT
#include <ChildRun.h>
#include <FakeServices.h>
#include <SettingsObjects.h>

#include <common_LockFile.h>
#include <common_ServiceOf.h>

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

namespace {

void askForMissingService()
{
    common_ServiceOf<common_ISession>::getService("the session", "src/x/y.cpp", 4711);
}

void askForMissingServiceByMacro()
{
    GET_SERVICE(common_ISession);
}

void askForRemovedService()
{
    {
        const FakeSession session;
    }
    askForMissingService();
}

void readSettingsWithoutApplicationInfo()
{
    TextSettings(QStringLiteral("/no/such/file")).readSettings();
}

int doTask(const QString& task)
{
    if (task == QLatin1String("missing")) {
        askForMissingService();
    } else if (task == QLatin1String("missing, by macro")) {
        askForMissingServiceByMacro();
    } else if (task == QLatin1String("removed")) {
        askForRemovedService();
    } else if (task == QLatin1String("settings")) {
        readSettingsWithoutApplicationInfo();
    }
    return 0;
}

} // namespace

class tst_common_ServiceOf : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void thereIsNoServiceUntilItIsSet()
    {
        QVERIFY(!common_ServiceOf<common_ISession>::hasService());
        FakeSession session;
        QVERIFY(common_ServiceOf<common_ISession>::hasService());
        QVERIFY(!common_ServiceOf<common_IApplicationInfo>::hasService());
        QCOMPARE(GET_SERVICE(common_ISession), static_cast<common_ISession*>(&session));
        QCOMPARE(common_ServiceOf<common_ISession>::getService("name", "file", 1),
                 static_cast<common_ISession*>(&session));
    }

    void nullRemovesAService()
    {
        const FakeSession session;
        common_ServiceOf<common_ISession>::setService(nullptr);
        QVERIFY(!common_ServiceOf<common_ISession>::hasService());
    }

    void anotherServiceTakesItsPlace()
    {
        FakeSession first;
        FakeSession second;
        QCOMPARE(GET_SERVICE(common_ISession), static_cast<common_ISession*>(&second));
        common_ServiceOf<common_ISession>::setService(&first);
        QCOMPARE(GET_SERVICE(common_ISession), static_cast<common_ISession*>(&first));
    }

    // The interface need not be the first base of the object that implements it.
    void findsTheRightPartOfAnObject()
    {
        class Both : public common_ISplashScreen, public common_IApplication
        {
        public:
            void hide() override {}
            void show() override {}
            bool isNonInteractive() const override { return true; }
        };
        Both both;
        common_ServiceOf<common_ISplashScreen>::setService(&both);
        common_ServiceOf<common_IApplication>::setService(&both);
        QVERIFY(GET_SERVICE(common_IApplication)->isNonInteractive());
        common_ServiceOf<common_IApplication>::setService(nullptr);
        QVERIFY(common_ServiceOf<common_ISplashScreen>::hasService());
        common_ServiceOf<common_ISplashScreen>::setService(nullptr);
    }

    void aLibrarySeesWhatTheApplicationSets()
    {
        const QTemporaryDir directory;
        QFile defaults(directory.filePath(QStringLiteral("default.ini")));
        QVERIFY(defaults.open(QIODevice::WriteOnly));
        defaults.write("[texts]\ntext=installed\n");
        defaults.close();
        const FakeApplicationInfo info(directory.path());
        const FakeSession session;
        const QString file = directory.filePath(QStringLiteral("kest.ini"));
        TextSettings settings(file);
        settings.readSettings();
        QCOMPARE(settings.text, QStringLiteral("installed"));
        common_LockFile holder((QFileInfo(file)));
        common_LockFile refused((QFileInfo(file)));
        QVERIFY(holder.lock(false));
        QVERIFY(!refused.lock(false));
        QCOMPARE(session.shown.size(), 1);
    }

    void aMissingServiceEndsTheProcess_data()
    {
        QTest::addColumn<QString>("task");
        QTest::addColumn<QString>("error");
        // clang-format off
        QTest::newRow("missing")           << QStringLiteral("missing")           << QStringLiteral("src/x/y\\.cpp \\(4711\\): Assertion failed: the session");
        QTest::newRow("removed")           << QStringLiteral("removed")           << QStringLiteral("src/x/y\\.cpp \\(4711\\): Assertion failed: the session");
        QTest::newRow("missing, by macro") << QStringLiteral("missing, by macro") << QStringLiteral(".*tst_common_ServiceOf\\.cpp \\(\\d+\\): Assertion failed: common_ISession");
        QTest::newRow("in a library")      << QStringLiteral("settings")          << QStringLiteral("src/settings/common_settings\\.cpp \\(\\d+\\): Assertion failed: common_IApplicationInfo");
        // clang-format on
    }

    void aMissingServiceEndsTheProcess()
    {
        QFETCH(QString, task);
        QFETCH(QString, error);
        const ChildRun child(task);
        QVERIFY(child.hasCrashed());
        const QRegularExpression expected(
            QRegularExpression::anchoredPattern(error + QLatin1Char('\n')));
        QVERIFY2(expected.match(child.error()).hasMatch(), qPrintable(child.error()));
    }
};

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    if (!ChildRun::taskOfThisRun().isEmpty()) {
        return doTask(ChildRun::taskOfThisRun());
    }
    tst_common_ServiceOf test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_common_ServiceOf.moc"
