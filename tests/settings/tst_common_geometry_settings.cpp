// SPDX-License-Identifier: MIT
#include <SettingsFolders.h>

#include <common_geometry_settings.h>

#include <QSettings>
#include <QtTest>

namespace {

using Values = QVector<int>;

Values valuesOf(const common_geometry_settings& geometry)
{
    return {geometry.x_pos(), geometry.y_pos(), geometry.width(), geometry.height(),
            int(geometry.isMaximised())};
}

void assign(common_geometry_settings& geometry, const Values& values)
{
    geometry.set_x_pos(values[0]);
    geometry.set_y_pos(values[1]);
    geometry.set_width(values[2]);
    geometry.set_height(values[3]);
    geometry.set_isMaximised(values[4] != 0);
}

Values defaults()
{
    return {0, 0, 1020, 720, 1};
}

Values others()
{
    return {11, -22, 333, 444, 0};
}

} // namespace

class tst_common_geometry_settings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isNormalWithoutAnyFile()
    {
        const SettingsFolders folders;
        common_geometry_settings geometry(folders.userFile());
        assign(geometry, others());
        geometry.readSettings();
        QCOMPARE(valuesOf(geometry), defaults());
        QCOMPARE(folders.userFolderContent(), QStringList());
    }

    void readsWhatIsStored_data()
    {
#ifdef Q_OS_WIN // where the case of letters does not matter
        const Values respelt{5, 0, 1020, 720, 1};
#else
        const Values respelt = defaults();
#endif
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<Values>("expected");
        // clang-format off
        QTest::newRow("everything")         << QByteArray("[geometry]\nx_pos=11\ny_pos=-22\nwidth=333\nheight=444\nisMaximised=false\n") << others();
        QTest::newRow("empty group")        << QByteArray("[geometry]\n")                      << defaults();
        QTest::newRow("other group")        << QByteArray("width=1\n[options]\nheight=1\n")    << defaults();
        QTest::newRow("x only")             << QByteArray("[geometry]\nx_pos=5\n")             << Values{5, 0, 1020, 720, 1};
        QTest::newRow("y only")             << QByteArray("[geometry]\ny_pos=5\n")             << Values{0, 5, 1020, 720, 1};
        QTest::newRow("width only")         << QByteArray("[geometry]\nwidth=5\n")             << Values{0, 0, 5, 720, 1};
        QTest::newRow("height only")        << QByteArray("[geometry]\nheight=5\n")            << Values{0, 0, 1020, 5, 1};
        QTest::newRow("not maximised only") << QByteArray("[geometry]\nisMaximised=false\n")   << Values{0, 0, 1020, 720, 0};
        QTest::newRow("words")              << QByteArray("[geometry]\nx_pos=a\ny_pos=b\nwidth=c\nheight=d\nisMaximised=e\n") << Values{0, 0, 0, 0, 1};
        QTest::newRow("empty values")       << QByteArray("[geometry]\nx_pos=\ny_pos=\nwidth=\nheight=\nisMaximised=\n") << Values{0, 0, 0, 0, 0};
        QTest::newRow("lists")              << QByteArray("[geometry]\nwidth=1, 2\nheight=3, 4\nisMaximised=true, true\n") << Values{0, 0, 0, 0, 0};
        QTest::newRow("huge numbers")       << QByteArray("[geometry]\nwidth=99999999999999999999\nheight=2147483647\n") << Values{0, 0, 0, 2147483647, 1};
        QTest::newRow("spelt differently")  << QByteArray("[geometry]\nX_POS=5\nisMaximized=false\n") << respelt;
        // clang-format on
    }

    void readsWhatIsStored()
    {
        QFETCH(QByteArray, content);
        QFETCH(Values, expected);
        const SettingsFolders folders;
        QVERIFY(SettingsFolders::write(folders.userFile(), content));
        common_geometry_settings geometry(folders.userFile());
        geometry.readSettings();
        QCOMPARE(valuesOf(geometry), expected);
    }

    void readsTheInstallationsDefaultsWithoutAUserFile()
    {
        const SettingsFolders folders;
        QVERIFY(SettingsFolders::write(folders.defaultFile(), "[geometry]\nwidth=640\n"));
        common_geometry_settings geometry(folders.userFile());
        geometry.readSettings();
        QCOMPARE(valuesOf(geometry), (Values{0, 0, 640, 720, 1}));
    }

    void writesItsFiveKeysAndLeavesTheRest()
    {
        const SettingsFolders folders;
        QVERIFY(SettingsFolders::write(folders.userFile(), "[options]\nFarmOut=true\n"));
        common_geometry_settings geometry(folders.userFile());
        assign(geometry, others());
        geometry.writeSettings();
        const QByteArray written = SettingsFolders::read(folders.userFile());
        QVERIFY2(written.contains("[options]\nFarmOut=true\n"), written.constData());
        const QSettings settings(folders.userFile(), QSettings::IniFormat);
        QCOMPARE(settings.allKeys().size(), 6);
        QCOMPARE(settings.value(QStringLiteral("geometry/x_pos")).toString(), QStringLiteral("11"));
        QCOMPARE(settings.value(QStringLiteral("geometry/y_pos")).toString(),
                 QStringLiteral("-22"));
        QCOMPARE(settings.value(QStringLiteral("geometry/width")).toString(),
                 QStringLiteral("333"));
        QCOMPARE(settings.value(QStringLiteral("geometry/height")).toString(),
                 QStringLiteral("444"));
        QCOMPARE(settings.value(QStringLiteral("geometry/isMaximised")).toString(),
                 QStringLiteral("false"));
        common_geometry_settings read(folders.userFile());
        read.readSettings();
        QCOMPARE(valuesOf(read), others());
    }

    void restoresTheBuiltInDefaultsWhateverTheFilesSay()
    {
        const SettingsFolders folders;
        QVERIFY(SettingsFolders::write(folders.userFile(), "[geometry]\nwidth=1\n"));
        QVERIFY(SettingsFolders::write(folders.defaultFile(), "[geometry]\nwidth=2\n"));
        common_geometry_settings geometry(folders.userFile());
        assign(geometry, others());
        geometry.restoreDefaults();
        QCOMPARE(valuesOf(geometry), defaults());
        QCOMPARE(SettingsFolders::read(folders.userFile()), QByteArray("[geometry]\nwidth=1\n"));
    }

    void copiesTheFileAndTheValuesWhenConstructed()
    {
        const SettingsFolders folders;
        common_geometry_settings geometry(folders.userFile());
        assign(geometry, others());
        common_geometry_settings copy(geometry);
        QCOMPARE(valuesOf(copy), others());
        QCOMPARE(copy.getFileName(), folders.userFile());
        copy.writeSettings();
        QVERIFY(SettingsFolders::read(folders.userFile()).startsWith("[geometry]\n"));
        copy.set_width(1);
        QCOMPARE(geometry.width(), 333);
    }

    void copiesTheValuesOnly()
    {
        const SettingsFolders folders;
        const QString otherFile = folders.path() + QStringLiteral("/other.ini");
        common_geometry_settings source(folders.userFile());
        assign(source, others());
        common_geometry_settings target(otherFile);
        target.copy(source);
        QCOMPARE(valuesOf(target), others());
        QCOMPARE(target.getFileName(), otherFile);
        target.writeSettings();
        QVERIFY(QFile::exists(otherFile));
        QVERIFY(!QFile::exists(folders.userFile()));
    }

    void assignsTheFileAndTheValues()
    {
        const SettingsFolders folders;
        const QString otherFile = folders.path() + QStringLiteral("/other.ini");
        common_geometry_settings source(folders.userFile());
        assign(source, others());
        common_geometry_settings target(otherFile);
        target.restoreDefaults();
        target = source;
        QCOMPARE(valuesOf(target), others());
        QCOMPARE(target.getFileName(), folders.userFile());
        target.writeSettings();
        QVERIFY(!QFile::exists(otherFile));
        QVERIFY(SettingsFolders::read(folders.userFile()).startsWith("[geometry]\n"));
    }
};

QTEST_GUILESS_MAIN(tst_common_geometry_settings)

#include "tst_common_geometry_settings.moc"
