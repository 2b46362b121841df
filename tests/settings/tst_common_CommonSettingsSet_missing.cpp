// SPDX-License-Identifier: MIT
#include "SettingsSetStage.h"

#include <SettingsFolders.h>

#include <QApplication>
#include <QMessageBox>
#include <QtTest>

namespace {

QString tryWithoutFiles(const QString& deed, const QString& folder)
{
    QProcess process;
    Child::start(process, deed, folder);
    if (!process.waitForFinished() || process.exitCode() != 0) {
        return QStringLiteral("failed");
    }
    return QString::fromUtf8(unixLines(process.readAllStandardError()));
}

} // namespace

class tst_common_CommonSettingsSet_missing : public QObject, protected SettingsSetStage
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }

    void cleanup() { tearDown(); }

    void tellsOfTheMissingDefaultsInABox()
    {
        const SettingsFolders folders;
        const FakeApplication application(false);
        const FakeSplashScreen splashScreen;
        QStringList callsBefore;
        m_reader->setListener([&] { callsBefore = splashScreen.calls; });
        const Set set(folders.info.userSettings, QStringLiteral("PreKest"));
        const QVector<BoxReader::Box> boxes = m_reader->take();
        QCOMPARE(boxes.size(), 1);
        QCOMPARE(boxes[0].title, QStringLiteral("Missing *.ini file"));
        QCOMPARE(boxes[0].text, QStringLiteral("Couldn't find %1\n"
                                               "A default prekest.ini file was created.")
                                    .arg(asNamedBySets(folders.defaultFile())));
        QCOMPARE(boxes[0].details, QString());
        QCOMPARE(boxes[0].icon, QMessageBox::Warning);
        QVERIFY(!boxes[0].parent);
        QCOMPARE(callsBefore, QStringList(QStringLiteral("hide")));
        QCOMPARE(splashScreen.calls, (QStringList{QStringLiteral("hide"), QStringLiteral("show")}));
        QCOMPARE(folders.userFolderContent(), QStringList());
        QVERIFY(set.geometry());
        QVERIFY(set.recentFiles());
    }

    void tellsOfTheMissingDefaultsWithoutASplashScreen()
    {
        const SettingsFolders folders;
        const Set set(folders.info.userSettings, QStringLiteral("Kest"));
        QCOMPARE(m_reader->take().size(), 1);
        QCOMPARE(set.getFullFilename(), asNamedBySets(folders.userFile()));
    }

    void keepsPercentSignsOfTheFoldersInTheText()
    {
        SettingsFolders folders;
        folders.info.defaultSettings = folders.path() + QStringLiteral("/%1 %2 <b>");
        const Set set(folders.info.userSettings, QStringLiteral("Kest%1"));
        const QVector<BoxReader::Box> boxes = m_reader->take();
        QCOMPARE(boxes.size(), 1);
        QCOMPARE(boxes[0].text, QStringLiteral("Couldn't find ") +
                                    asNamedBySets(folders.defaultFile()) +
                                    QStringLiteral("\nA default ") +
                                    QStringLiteral("kest%1.ini file was created."));
        QVERIFY(set.geometry());
    }

    void printsThatTheDefaultsAreMissingWhenNobodyIsThere()
    {
        const QTemporaryDir folder;
        const QString told = QStringLiteral("Missing *.ini file\n"
                                            "Couldn't find %1/installation%2default.ini\n"
                                            "A default prekest.ini file was created.\n")
                                 .arg(folder.path(), QDir::separator());
        const QString file = folder.path() + QDir::separator() + QStringLiteral("prekest.ini\n");
        QCOMPARE(tryWithoutFiles(QStringLiteral("without splash screen"), folder.path()),
                 told + file);
        QCOMPARE(tryWithoutFiles(QStringLiteral("with splash screen"), folder.path()),
                 QStringLiteral("hide\n") + told + QStringLiteral("show\n") + file);
    }

    void tellsNothingWhenOneOfTheFilesIsThere_data()
    {
        QTest::addColumn<bool>("user");
        QTest::addColumn<bool>("installation");
        QTest::newRow("user's") << true << false;
        QTest::newRow("installation's") << false << true;
        QTest::newRow("both") << true << true;
    }

    void tellsNothingWhenOneOfTheFilesIsThere()
    {
        QFETCH(bool, user);
        QFETCH(bool, installation);
        const SettingsFolders folders;
        QVERIFY(!user || SettingsFolders::write(folders.userFile(), ""));
        QVERIFY(!installation || SettingsFolders::write(folders.defaultFile(), ""));
        const FakeSplashScreen splashScreen;
        const Set set(folders.info.userSettings, QStringLiteral("KEST"));
        QVERIFY(m_reader->take().isEmpty());
        QCOMPARE(splashScreen.calls, QStringList());
        QVERIFY(set.geometry());
    }
};

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    if (!Child::deed().isEmpty()) {
        doDeed(Child::deed());
        return 0;
    }
    tst_common_CommonSettingsSet_missing test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_common_CommonSettingsSet_missing.moc"
