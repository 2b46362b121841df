// SPDX-License-Identifier: MIT
#include <SettingsFolders.h>

#include <KestdeskSettings.h>

#include <QSet>
#include <QSettings>
#include <QtTest>

namespace {

// Another number than the default.
int otherNumber(const KestdeskSettings::Row& row)
{
    return row.usual == row.most ? row.least : row.usual + 1;
}

} // namespace

class tst_kestdesk_settings : public QObject
{
    Q_OBJECT

private:
    SettingsFolders m_folders;

    QString userFile() const
    {
        return m_folders.info.userSettings + QStringLiteral("/kestdesk.ini");
    }

    static void addEachSetting()
    {
        QTest::addColumn<int>("setting");
        for (const KestdeskSettings::Row& row : KestdeskSettings::rows()) {
            QTest::newRow(row.key) << int(row.setting);
        }
    }

private Q_SLOTS:
    void cleanup()
    {
        QFile::remove(userFile());
        QFile::remove(m_folders.defaultFile());
    }

    void eachSettingHasOneRowInOrderAndAKeyOfItsOwn()
    {
        const QVector<KestdeskSettings::Row>& rows = KestdeskSettings::rows();
        QCOMPARE(rows.size(), int(KestdeskSettings::SettingCount));
        QSet<QString> keys;
        for (int i = 0; i < rows.size(); ++i) {
            QCOMPARE(int(rows.at(i).setting), i);
            QVERIFY(rows.at(i).least <= rows.at(i).usual && rows.at(i).usual <= rows.at(i).most);
            keys.insert(QLatin1String(rows.at(i).key));
        }
        QCOMPARE(keys.size(), rows.size());
    }

    void withoutAFileHasTheDefaultsAndWritesNothing()
    {
        const KestdeskSettings settings = KestdeskSettings::read();
        QVERIFY(settings.notifies());
        QVERIFY(settings.opensLastModel());
        QVERIFY(settings.asksBeforeStopping());
        QCOMPARE(settings.secondsUntilAsking(), 10);
        QCOMPARE(settings.runsAtOnce(), 1);
        QCOMPARE(settings.archiveDays(), 90);
        QCOMPARE(settings.archiveMegabytes(), 1000);
        QCOMPARE(m_folders.userFolderContent(), QStringList());
    }

    void eachValueComesBackFromTheFile_data() { addEachSetting(); }

    void eachValueComesBackFromTheFile()
    {
        QFETCH(int, setting);
        const auto changed = KestdeskSettings::Setting(setting);
        const int number = otherNumber(KestdeskSettings::rows().at(setting));
        QVERIFY(SettingsFolders::write(userFile(), "[session]\nmodel=m.nec\n"));
        KestdeskSettings written = KestdeskSettings::read();
        written.setValue(changed, number);
        QCOMPARE(written.tryWriteSettings(), QString());
        const KestdeskSettings read = KestdeskSettings::read();
        for (const KestdeskSettings::Row& row : KestdeskSettings::rows()) {
            QCOMPARE(read.value(row.setting), row.setting == changed ? number : row.usual);
        }
        const QSettings file(userFile(), QSettings::IniFormat);
        QCOMPARE(file.value(QStringLiteral("session/model")).toString(), QStringLiteral("m.nec"));
    }

    void settersKeepNumbersWithinTheirLimits_data() { addEachSetting(); }

    void settersKeepNumbersWithinTheirLimits()
    {
        QFETCH(int, setting);
        const KestdeskSettings::Row& row = KestdeskSettings::rows().at(setting);
        KestdeskSettings settings(userFile());
        settings.setValue(row.setting, row.least - 1);
        QCOMPARE(settings.value(row.setting), row.least);
        settings.setValue(row.setting, row.most + 1);
        QCOMPARE(settings.value(row.setting), row.most);
    }

    void valuesThatMakeNoSenseTakeTheDefault_data()
    {
        QTest::addColumn<QByteArray>("value");
        // clang-format off
        QTest::newRow("a word")            << QByteArray("many");
        QTest::newRow("nothing")           << QByteArray();
        QTest::newRow("below the limits")  << QByteArray("-1");
        QTest::newRow("beyond the limits") << QByteArray("100000000");
        QTest::newRow("beyond numbers")    << QByteArray("99999999999999999999");
        QTest::newRow("a fraction")        << QByteArray("0.5");
        QTest::newRow("a list")            << QByteArray("0, 2");
        QTest::newRow("invalid")           << QByteArray("@Invalid()");
        // clang-format on
    }

    void valuesThatMakeNoSenseTakeTheDefault()
    {
        QFETCH(QByteArray, value);
        QByteArray content = "[preferences]\n";
        for (const KestdeskSettings::Row& row : KestdeskSettings::rows()) {
            content += QByteArray(row.key) + '=' + value + '\n';
        }
        QVERIFY(SettingsFolders::write(userFile(), content));
        const KestdeskSettings settings = KestdeskSettings::read();
        for (const KestdeskSettings::Row& row : KestdeskSettings::rows()) {
            QCOMPARE(settings.value(row.setting), row.usual);
        }
        QCOMPARE(SettingsFolders::read(userFile()), content);
    }

    void switchesAreReadAsNumbersToo()
    {
        QVERIFY(SettingsFolders::write(userFile(), "[preferences]\nnotifications=0\n"
                                                   "openLastModel=1\naskBeforeStopping=false\n"));
        const KestdeskSettings settings = KestdeskSettings::read();
        QVERIFY(!settings.notifies());
        QVERIFY(settings.opensLastModel());
        QVERIFY(!settings.asksBeforeStopping());
    }

    void switchesAreWrittenAsWords()
    {
        KestdeskSettings settings(userFile());
        settings.setValue(KestdeskSettings::Notifies, 0);
        settings.writeSettings();
        QVERIFY(SettingsFolders::read(userFile()).contains("\nnotifications=false\n"));
        QVERIFY(SettingsFolders::read(userFile()).contains("\nopenLastModel=true\n"));
    }

    void installationsDefaultsCountUntilThereIsAUsersFile()
    {
        QVERIFY(SettingsFolders::write(m_folders.defaultFile(), "[preferences]\narchiveDays=7\n"));
        QCOMPARE(KestdeskSettings::read().archiveDays(), 7);
        QVERIFY(SettingsFolders::write(userFile(), "[session]\nmodel=\n"));
        QCOMPARE(KestdeskSettings::read().archiveDays(), 90);
    }

    void defaultsCanBeRestored()
    {
        KestdeskSettings settings(userFile());
        for (const KestdeskSettings::Row& row : KestdeskSettings::rows()) {
            settings.setValue(row.setting, otherNumber(row));
        }
        settings.restoreDefaults();
        for (const KestdeskSettings::Row& row : KestdeskSettings::rows()) {
            QCOMPARE(settings.value(row.setting), row.usual);
        }
    }
};

QTEST_GUILESS_MAIN(tst_kestdesk_settings)

#include "tst_kestdesk_settings.moc"
