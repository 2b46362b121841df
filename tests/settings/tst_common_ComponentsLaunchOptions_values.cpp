// SPDX-License-Identifier: MIT
#include "ExpectedOptions.h"

#include <SettingsFolders.h>

#include <common_ComponentsLaunchOptions.h>
#include <common_PropertyFactory.h>

#include <QtTest>

namespace {

QString forcedKey()
{
    return QStringLiteral("Optkest.SpecifyNumberOfFarmProcesses");
}

} // namespace

class tst_common_ComponentsLaunchOptions_values : public QObject
{
    Q_OBJECT

private Q_SLOTS:
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

private:
    static void everyPersistedOption()
    {
        QTest::addColumn<QString>("key");
        const QStringList keys = keysInOrderOfWriting();
        for (const QString& key : keys) {
            QTest::newRow(qPrintable(key)) << key;
        }
    }
};

QTEST_GUILESS_MAIN(tst_common_ComponentsLaunchOptions_values)
#include "tst_common_ComponentsLaunchOptions_values.moc"
