// SPDX-License-Identifier: MIT
#include <common_LaunchOptionMembers.h>
#include <common_LaunchOptionNames.h>
#include <common_PropertyFactory.h>

#include <common_LaunchOptionTable.h>

#include <QFile>
#include <QRegularExpression>
#include <QtTest>

namespace {

using MetaData = common_PropertyMetaData;

/// A constant in a header: its name, its value and the comment behind it.
struct Constant
{
    QString name;
    QString value;
    QString comment;
};

QString header(const char* name)
{
    QFile file(QStringLiteral(KEST_INCLUDE_DIRECTORY "/") + QLatin1String(name));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QVector<Constant> documentedNames()
{
    static const QRegularExpression line(
        QStringLiteral("constexpr const char\\* (\\w+) *= \"([^\"]+)\"; *///< (.*)\n"));
    QVector<Constant> constants;
    auto matches = line.globalMatch(header("common_LaunchOptionNames.h"));
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        constants.append({match.captured(1), match.captured(2), match.captured(3)});
    }
    return constants;
}

// "kestProcessPriority" of "Kest.ProcessPriority".
QString constantName(const QString& key)
{
    QString name = key;
    name.remove(QLatin1Char('.'));
    name[0] = name[0].toLower();
    return name;
}

// The enumeration that has the option's members.
QString enumeration(const common_LaunchOption& option)
{
    QString name = QLatin1String(option.key);
    return name.mid(name.indexOf(QLatin1Char('.')) + 1);
}

QString typeAndDefault(const common_LaunchOption& option)
{
    switch (option.type) {
    case MetaData::Boolean:
        return option.defaultValue != 0 ? QStringLiteral("boolean, true")
                                        : QStringLiteral("boolean, false");
    case MetaData::Integer:
        return QStringLiteral("integer, %1").arg(option.defaultValue);
    default:
        return QStringLiteral("text, empty");
    }
}

// What the header says of an option.
QString expectedComment(const common_LaunchOption& option)
{
    QString comment = typeAndDefault(option);
    if (!option.members.isEmpty()) {
        comment += QStringLiteral(", a member of ") + enumeration(option);
    }
    if (option.smallest != std::numeric_limits<int>::min()) {
        comment += QStringLiteral(", at least %1").arg(option.smallest);
    }
    if (option.writePosition == 0) {
        comment += QStringLiteral(", not kept in the file");
    }
    return comment;
}

// The lines "Name = number" of an enumeration in the header.
QStringList enumerators(const QString& enumeration)
{
    const QString text = header("common_LaunchOptionMembers.h");
    const int begin = int(text.indexOf(QStringLiteral("enum %1 {").arg(enumeration)));
    QStringList found;
    if (begin >= 0) {
        static const QRegularExpression line(QStringLiteral("(\\w+ = \\d+)"));
        auto matches =
            line.globalMatch(text.mid(begin, int(text.indexOf(QLatin1Char('}'), begin)) - begin));
        while (matches.hasNext()) {
            found.append(matches.next().captured(1));
        }
    }
    return found;
}

} // namespace

class tst_common_LaunchOptionNames : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void areThoseOfTheRegisteredOptions()
    {
        const QStringList names = common_LaunchOptionNames::all();
        QCOMPARE(names.size(), 41);
        for (const QString& name : names) {
            QVERIFY2(common_PropertyFactory::hasMetaData(name), qPrintable(name));
        }
        QCOMPARE(names.first(), QLatin1String(common_LaunchOptionNames::prekestAdvancedOptions));
        QCOMPARE(names.last(), QLatin1String(common_LaunchOptionNames::timekestDeleteTempFiles));
    }

    void everyOptionHasAConstantThatSaysItsTypeAndDefault()
    {
        const QVector<Constant> constants = documentedNames();
        const QVector<common_LaunchOption>& options = common_LaunchOptionTable::options();
        QCOMPARE(constants.size(), options.size());
        for (int number = 0; number < options.size(); ++number) {
            const common_LaunchOption& option = options.at(number);
            const Constant& constant = constants.at(number);
            QCOMPARE(constant.value, QLatin1String(option.key));
            QCOMPARE(constant.name, constantName(constant.value));
            QCOMPARE(constant.comment, expectedComment(option));
        }
    }

    void everyMemberHasAnEnumeratorOfItsNumber()
    {
        int enumerated = 0;
        for (const common_LaunchOption& option : common_LaunchOptionTable::options()) {
            QStringList expected;
            for (const EnumType& member : option.members) {
                QString name = member.key;
                name.replace(QStringLiteral("sshrsh"), QStringLiteral("SshRsh"));
                expected.append(QStringLiteral("%1 = %2").arg(name).arg(member.value));
            }
            if (!expected.isEmpty()) {
                ++enumerated;
                QCOMPARE(enumerators(enumeration(option)), expected);
            }
        }
        QCOMPARE(enumerated, 4);
    }

    void theMembersHaveTheNumbersOfTheirEnumerators()
    {
        namespace members = common_LaunchOptionMembers;
        QCOMPARE(members::processPriorities().at(4).value, int(members::HighestProcessPriority));
        QCOMPARE(members::remoteExecutionMethods().at(0).value,
                 int(members::SshRshExecutionMethod));
        QCOMPARE(members::parallelAuthenticMethods().at(0).value,
                 int(members::ParallelAuthenticMethodTypeSSPI));
        QCOMPARE(members::errorThresholds().at(2).value, int(members::LowErrorThreshold));
    }
};

QTEST_GUILESS_MAIN(tst_common_LaunchOptionNames)
#include "tst_common_LaunchOptionNames.moc"
