// SPDX-License-Identifier: MIT
#include <SettingsFolders.h>

#include <common_LaunchOptionTable.h>

#include <common_ComponentsLaunchOptions.h>
#include <common_PropertyFactory.h>

#include <QSet>
#include <QSettings>
#include <QtTest>

#include <algorithm>
#include <limits>

namespace {

using MetaData = common_PropertyMetaData;
using Option = common_LaunchOption;
using Options = common_ComponentsLaunchOptions;

constexpr int persistentOptions = 39;

const QVector<Option>& table()
{
    return common_LaunchOptionTable::options();
}

QString keyOf(const Option& option)
{
    return QString::fromLatin1(option.key);
}

bool isPersistent(const Option& option)
{
    return (option.flags & MetaData::Persistent) != 0;
}

// Valid for the option, and not its default.
QString otherValue(const Option& option)
{
    switch (option.type) {
    case MetaData::Boolean:
        return option.defaultValue != 0 ? QStringLiteral("false") : QStringLiteral("true");
    case MetaData::Integer:
        return QString::number(option.defaultValue + 3);
    default:
        return QStringLiteral("text of ") + keyOf(option);
    }
}

QVector<int> sortedPositions(int Option::*position)
{
    QVector<int> positions;
    for (const Option& option : table()) {
        if (option.*position != 0) {
            positions.append(option.*position);
        }
    }
    std::sort(positions.begin(), positions.end());
    return positions;
}

QVector<int> firstNumbers(int count)
{
    QVector<int> numbers;
    for (int number = 1; number <= count; ++number) {
        numbers.append(number);
    }
    return numbers;
}

} // namespace

class tst_common_LaunchOptionTable : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void keysAreUnique()
    {
        QSet<QString> keys;
        for (const Option& option : table()) {
            QVERIFY2(!keyOf(option).isEmpty() && !keys.contains(keyOf(option)), option.key);
            keys.insert(keyOf(option));
        }
        QCOMPARE(keys.size(), 41);
    }

    void positionsAreCompleteAndUnique()
    {
        QCOMPARE(sortedPositions(&Option::writePosition), firstNumbers(persistentOptions));
        QCOMPARE(sortedPositions(&Option::readPosition), firstNumbers(persistentOptions));
    }

    void ordersFollowThePositions()
    {
        const auto& written = common_LaunchOptionTable::writeOrder();
        const auto& read = common_LaunchOptionTable::readOrder();
        QCOMPARE(written.size(), persistentOptions);
        QCOMPARE(read.size(), persistentOptions);
        for (int i = 0; i < persistentOptions; ++i) {
            QCOMPARE(written[i]->writePosition, i + 1);
            QCOMPARE(read[i]->readPosition, i + 1);
        }
    }

    void onlyPersistentOptionsHavePositions_data() { everyOption(); }
    void onlyPersistentOptionsHavePositions()
    {
        QFETCH(int, number);
        const Option& option = table()[number];
        QCOMPARE(option.writePosition > 0, isPersistent(option));
        QCOMPARE(option.readPosition > 0, isPersistent(option));
        QCOMPARE((option.flags & MetaData::Transient) != 0, !isPersistent(option));
    }

    void defaultsAreValid_data() { everyOption(); }
    void defaultsAreValid()
    {
        QFETCH(int, number);
        const Option& option = table()[number];
        const auto isDefault = [&option](const EnumType& member) {
            return member.value == option.defaultValue;
        };
        QVERIFY(option.members.isEmpty() || option.type == MetaData::Integer);
        QVERIFY(option.members.isEmpty() ||
                std::any_of(option.members.cbegin(), option.members.cend(), isDefault));
        QVERIFY(option.type != MetaData::String || option.defaultValue == 0);
        QVERIFY(option.type != MetaData::Boolean || option.defaultValue == 0 ||
                option.defaultValue == 1);
        QVERIFY(option.smallest <= option.defaultValue);
    }

    void everyRowIsRegistered_data() { everyOption(); }
    void everyRowIsRegistered()
    {
        QFETCH(int, number);
        const Option& option = table()[number];
        QVERIFY(common_PropertyFactory::hasMetaData(keyOf(option)));
        const MetaData& metaData = common_PropertyFactory::getMetaData(keyOf(option));
        QCOMPARE(metaData.type(), option.type);
        QCOMPARE(metaData.label(), QString::fromLatin1(option.label));
        QCOMPARE(metaData.flags(), option.flags);
        QCOMPARE(metaData.getEnumList().size(), option.members.size());
    }

    void everyRowMakesTheRoundTrip_data() { everyOption(); }
    void everyRowMakesTheRoundTrip()
    {
        QFETCH(int, number);
        const Option& option = table()[number];
        const SettingsFolders folders;
        const QString key = keyOf(option);
        const QString before = qAsConst(*Options::create(ReadOnlyAccess))[key].castToQString();
        const QString value = otherValue(option);
        {
            const Options::Pointer options = Options::create(ReadWriteAccess);
            (*options)[key].assignFromQString(value);
            options->writeSettings();
        }
        const QSettings file(folders.userFile(), QSettings::IniFormat);
        const QString fileKey = QStringLiteral("options/") + key;
        QCOMPARE(file.contains(fileKey), isPersistent(option));
        QCOMPARE(file.value(fileKey).toString(), isPersistent(option) ? value : QString());
        QCOMPARE(qAsConst(*Options::create(ReadOnlyAccess))[key].castToQString(),
                 isPersistent(option) ? value : before);
        QVERIFY(before != value);
    }

    void smallerValuesAreReadAsTheSmallest()
    {
        int limited = 0;
        for (const Option& option : table()) {
            if (option.smallest == std::numeric_limits<int>::min()) {
                continue;
            }
            ++limited;
            const SettingsFolders folders;
            QSettings file(folders.userFile(), QSettings::IniFormat);
            file.setValue(QStringLiteral("options/") + keyOf(option), option.smallest - 1);
            file.sync();
            const Options::Pointer options = Options::create(ReadOnlyAccess);
            QCOMPARE((*options)[keyOf(option)].castToInt(), option.smallest);
        }
        QCOMPARE(limited, 1);
    }

private:
    static void everyOption()
    {
        QTest::addColumn<int>("number");
        for (int number = 0; number < table().size(); ++number) {
            QTest::newRow(table()[number].key) << number;
        }
    }
};

QTEST_GUILESS_MAIN(tst_common_LaunchOptionTable)
#include "tst_common_LaunchOptionTable.moc"
