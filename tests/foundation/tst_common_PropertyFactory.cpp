// SPDX-License-Identifier: MIT
#include <ChildRun.h>

#include <common_ComponentsLaunchOptions.h>
#include <common_PropertyFactory.h>
#include <common_PropertyMetaData.h>

#include <QtTest>

namespace {

const char* const early = "Test.RegisteredWhenLoaded";

common_PropertyMetaData metaData(const QString& name, int flags = 3)
{
    return {name, QString(), common_PropertyMetaData::Integer, common_PropertyMetaData::Single,
            flags};
}

void add(const QString& name, int flags = 3)
{
    common_PropertyFactory::addMetaData(name, metaData(name, flags));
}

bool registerEarly()
{
    add(QLatin1String(early));
    return true;
}

// As libraries do it, before main() begins.
const bool isRegistered = registerEarly();

int doTask(const QString& task)
{
    if (task == QLatin1String("twice")) {
        add(QStringLiteral("Test.Twice"));
        add(QStringLiteral("Test.Twice"));
    } else if (task == QLatin1String("of the library")) {
        add(QStringLiteral("RunParallel"));
    } else if (task == QLatin1String("unknown")) {
        common_PropertyFactory::getMetaData(QStringLiteral("Test.Unknown"));
    }
    return 0;
}

} // namespace

class tst_common_PropertyFactory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void knowsWhatWasRegisteredBeforeMain()
    {
        QVERIFY(isRegistered);
        QVERIFY(common_PropertyFactory::hasMetaData(QLatin1String(early)));
        QVERIFY(common_PropertyFactory::names().contains(QLatin1String(early)));
    }

    void sharesOneRegistryWithTheLibraries()
    {
        QVERIFY(common_ComponentsLaunchOptions::s_classIdString); // so that its library is loaded
        QVERIFY(common_PropertyFactory::hasMetaData(QStringLiteral("RunParallel")));
        QVERIFY(common_PropertyFactory::names().indexOf(QStringLiteral("RunParallel")) <
                common_PropertyFactory::names().indexOf(QLatin1String(early)));
    }

    void knowsNothingElse()
    {
        QVERIFY(!common_PropertyFactory::hasMetaData(QStringLiteral("Test.Unknown")));
        QVERIFY(!common_PropertyFactory::hasMetaData(QString()));
        QVERIFY(!common_PropertyFactory::hasMetaData(QStringLiteral("runparallel")));
    }

    void listsNamesInTheOrderOfRegistration()
    {
        const int before = common_PropertyFactory::names().size();
        const QStringList added = {QStringLiteral("Test.Z"), QStringLiteral("Test.A"),
                                   QStringLiteral("Test.M"), QStringLiteral("test.a")};
        for (const QString& name : added) {
            add(name);
        }
        QCOMPARE(common_PropertyFactory::names().mid(before), added);
    }

    void givesTheMetaDataThatWasRegistered()
    {
        add(QStringLiteral("Test.One"), 1);
        add(QStringLiteral("Test.Two"), 2);
        QCOMPARE(common_PropertyFactory::getMetaData(QStringLiteral("Test.One")).flags(), 1);
        QCOMPARE(common_PropertyFactory::getMetaData(QStringLiteral("Test.Two")).flags(), 2);
    }

    void theNameOfTheRegistrationCounts()
    {
        common_PropertyFactory::addMetaData(QStringLiteral("Test.Alias"),
                                            metaData(QStringLiteral("Test.Other")));
        QVERIFY(common_PropertyFactory::hasMetaData(QStringLiteral("Test.Alias")));
        QVERIFY(!common_PropertyFactory::hasMetaData(QStringLiteral("Test.Other")));
    }

    void membersThatAreStoredBackStay()
    {
        const QString name = QStringLiteral("Test.Enumerated");
        add(name);
        common_PropertyMetaData& registered = common_PropertyFactory::getMetaData(name);
        for (int value = 0; value < 3; ++value) {
            QVector<EnumType> members = common_PropertyFactory::getMetaData(name).getEnumList();
            members.append(EnumType(QString::number(value), value, QStringLiteral("key")));
            common_PropertyFactory::getMetaData(name).setEnumerated(members);
            add(QStringLiteral("Test.Between%1").arg(value));
        }
        QCOMPARE(registered.getEnumList().size(), 3);
        QCOMPARE(registered.getEnumList().at(2).value, 2);
        QCOMPARE(&registered, &common_PropertyFactory::getMetaData(name));
    }

    void endsTheProcess_data()
    {
        QTest::addColumn<QString>("task");
        QTest::addColumn<QString>("text");
        // clang-format off
        QTest::newRow("second registration")              << QStringLiteral("twice")          << QStringLiteral("!hasMetaData(name)");
        QTest::newRow("registration of a library's name") << QStringLiteral("of the library") << QStringLiteral("!hasMetaData(name)");
        QTest::newRow("metadata of an unknown name")      << QStringLiteral("unknown")        << QStringLiteral("hasMetaData(name)");
        // clang-format on
    }

    void endsTheProcess()
    {
        QFETCH(QString, task);
        QFETCH(QString, text);
        const ChildRun child(task);
        QVERIFY(child.hasCrashed());
        QVERIFY2(child.error().endsWith(QStringLiteral(": Assertion failed: %1\n").arg(text)),
                 qPrintable(child.error()));
    }
};

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    if (!ChildRun::taskOfThisRun().isEmpty()) {
        return doTask(ChildRun::taskOfThisRun());
    }
    tst_common_PropertyFactory test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_common_PropertyFactory.moc"
