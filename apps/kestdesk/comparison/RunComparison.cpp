// SPDX-License-Identifier: MIT
#include "RunComparison.h"

#include "FileComparison.h"
#include "MessageComparison.h"
#include "ReasonText.h"

#include <InputFile.h>

#include <QCoreApplication>
#include <QDir>
#include <QJsonArray>
#include <QMap>

#include <algorithm>

namespace {

/// Translates the texts of this file.
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(RunComparison)
};

using Field = RunComparison::Field;
using Fields = QVector<Field>;

constexpr qint64 largestText = 64 << 20;

struct FieldRow
{
    Fields RunComparison::*group;
    const char* name; ///< in the record's JSON
    const char* label;
};

// The arguments are not compared: they follow from the rest and contain names of temporary files.
// clang-format off
constexpr FieldRow fieldRows[] = {
    {&RunComparison::run,      "component",        QT_TRANSLATE_NOOP("RunComparison", "component")},
    {&RunComparison::run,      "model",            QT_TRANSLATE_NOOP("RunComparison", "model")},
    {&RunComparison::run,      "segments",         QT_TRANSLATE_NOOP("RunComparison", "segments")},
    {&RunComparison::run,      "frequencies",      QT_TRANSLATE_NOOP("RunComparison", "frequencies")},
    {&RunComparison::run,      "runOptions",       QT_TRANSLATE_NOOP("RunComparison", "run options")},
    {&RunComparison::run,      "processes",        QT_TRANSLATE_NOOP("RunComparison", "processes")},
    {&RunComparison::run,      "program",          QT_TRANSLATE_NOOP("RunComparison", "program")},
    {&RunComparison::run,      "workingDirectory", QT_TRANSLATE_NOOP("RunComparison", "folder")},
    {&RunComparison::computer, "host",             QT_TRANSLATE_NOOP("RunComparison", "host")},
    {&RunComparison::computer, "system",           QT_TRANSLATE_NOOP("RunComparison", "system")},
    {&RunComparison::computer, "processor",        QT_TRANSLATE_NOOP("RunComparison", "processor")},
    {&RunComparison::computer, "cores",            QT_TRANSLATE_NOOP("RunComparison", "cores")},
    {&RunComparison::computer, "user",             QT_TRANSLATE_NOOP("RunComparison", "user")},
    {&RunComparison::computer, "suiteVersion",     QT_TRANSLATE_NOOP("RunComparison", "version of the suite")},
    {&RunComparison::computer, "qtVersion",        QT_TRANSLATE_NOOP("RunComparison", "version of Qt")},
    {&RunComparison::computer, "installation",     QT_TRANSLATE_NOOP("RunComparison", "installation")},
    {&RunComparison::outcome,  "state",            QT_TRANSLATE_NOOP("RunComparison", "state")},
    {&RunComparison::outcome,  "outcome",          QT_TRANSLATE_NOOP("RunComparison", "outcome")},
    {&RunComparison::outcome,  "reason",           QT_TRANSLATE_NOOP("RunComparison", "reason")},
    {&RunComparison::outcome,  "problem",          QT_TRANSLATE_NOOP("RunComparison", "problem")},
    {&RunComparison::outcome,  "stoppedBy",        QT_TRANSLATE_NOOP("RunComparison", "stopped by")},
    {&RunComparison::outcome,  "exitCode",         QT_TRANSLATE_NOOP("RunComparison", "exit code or signal")},
    {&RunComparison::outcome,  "isCrash",          QT_TRANSLATE_NOOP("RunComparison", "ended by a signal")},
    {&RunComparison::outcome,  "totalPercentage",  QT_TRANSLATE_NOOP("RunComparison", "percent done")},
    {&RunComparison::outcome,  "errors",           QT_TRANSLATE_NOOP("RunComparison", "errors")},
    {&RunComparison::outcome,  "warnings",         QT_TRANSLATE_NOOP("RunComparison", "warnings")},
    {&RunComparison::outcome,  "notices",          QT_TRANSLATE_NOOP("RunComparison", "notices")},
};
// clang-format on

struct FieldGroup
{
    const char* name;
    Fields RunComparison::*group;
};

constexpr FieldGroup fieldGroups[] = {
    {"run", &RunComparison::run},
    {"launchOptions", &RunComparison::launchOptions},
    {"environment", &RunComparison::environment},
    {"computer", &RunComparison::computer},
    {"outcome", &RunComparison::outcome},
};

QString textOf(const QJsonValue& json)
{
    QStringList words;
    const QJsonArray array = json.toArray();
    for (const QJsonValue& each : array) {
        words.append(each.toString());
    }
    return json.isArray() ? words.join(QLatin1Char(' ')) : json.toVariant().toString();
}

void compareFields(const RunRecord& left, const RunRecord& right, RunComparison& result)
{
    const QJsonObject leftJson = left.toJson();
    const QJsonObject rightJson = right.toJson();
    for (const FieldRow& row : fieldRows) {
        const QLatin1String name(row.name);
        if (leftJson.value(name) != rightJson.value(name)) {
            (result.*row.group)
                .append({name, Texts::tr(row.label), textOf(leftJson.value(name)),
                         textOf(rightJson.value(name))});
        }
    }
}

using Values = QMap<QString, QString>;

Fields differences(const Values& left, const Values& right)
{
    Values all = left;
    for (auto each = right.cbegin(); each != right.cend(); ++each) {
        all.insert(each.key(), each.value());
    }
    Fields fields;
    for (auto each = all.cbegin(); each != all.cend(); ++each) {
        const QString& name = each.key();
        if (left.contains(name) != right.contains(name) || left.value(name) != right.value(name)) {
            fields.append({name, name, left.value(name), right.value(name)});
        }
    }
    return fields;
}

Values optionsOf(const RunRecord& record)
{
    Values values;
    for (const RunRecord::Option& option : record.launchOptions) {
        values.insert(option.name, option.value);
    }
    return values;
}

Values environmentOf(const RunRecord& record)
{
    Values values;
    for (const QString& variable : record.environment) {
        values.insert(variable.section(QLatin1Char('='), 0, 0),
                      variable.section(QLatin1Char('='), 1));
    }
    return values;
}

// The copy of a text in a record. A missing copy is not a problem.
struct Copy
{
    Copy(const RunRecord& record, const QString& name)
    {
        if (!name.isEmpty()) {
            suite::InputFile file(QDir(record.folder).filePath(name));
            content = file.read(largestText);
            problem = content
                          ? QString()
                          : QStringLiteral("the copy in the record of run %1 cannot be read: %2")
                                .arg(record.number)
                                .arg(file.reason());
        }
    }

    std::optional<QByteArray> content;
    QString problem;
};

RunComparison::Text compareTexts(const QString& what, const Copy& left, const Copy& right)
{
    RunComparison::Text result;
    result.file = what;
    result.problem = left.problem.isEmpty() ? right.problem : left.problem;
    if (!result.problem.isEmpty()) {
        result.isSame = false;
        return result;
    }
    result.isSame = left.content == right.content;
    if (!result.isSame) {
        result.changes = suite::LineDifference::of(left.content.value_or(QByteArray()),
                                                   right.content.value_or(QByteArray()));
    }
    return result;
}

QJsonArray toJson(const Fields& fields)
{
    QJsonArray array;
    for (const Field& field : fields) {
        array.append(QJsonObject{{QStringLiteral("name"), field.name},
                                 {QStringLiteral("left"), field.left},
                                 {QStringLiteral("right"), field.right}});
    }
    return array;
}

QJsonObject toJson(const RunComparison::Text& text)
{
    QJsonArray changes;
    for (const suite::LineChange& change : text.changes) {
        changes.append(
            QJsonObject{{QStringLiteral("leftLine"), change.leftLine},
                        {QStringLiteral("rightLine"), change.rightLine},
                        {QStringLiteral("left"), QJsonArray::fromStringList(change.left)},
                        {QStringLiteral("right"), QJsonArray::fromStringList(change.right)}});
    }
    return {{QStringLiteral("same"), text.isSame},
            {QStringLiteral("changes"), changes},
            {QStringLiteral("problem"), text.problem}};
}

} // namespace

RunComparison RunComparison::of(const RunRecord& left, const RunRecord& right)
{
    RunComparison result;
    result.leftNumber = left.number;
    result.rightNumber = right.number;
    result.leftDuration = left.duration;
    result.rightDuration = right.duration;
    compareFields(left, right, result);
    result.launchOptions = differences(optionsOf(left), optionsOf(right));
    result.environment = differences(environmentOf(left), environmentOf(right));
    result.model = compareTexts(QLatin1String(QT_TRANSLATE_NOOP("ComparisonReport", "model")),
                                Copy(left, left.modelCopy), Copy(right, right.modelCopy));
    result.machinesFile =
        compareTexts(QLatin1String(QT_TRANSLATE_NOOP("ComparisonReport", "machines file")),
                     Copy(left, left.machinesCopy), Copy(right, right.machinesCopy));
    result.messages = MessageComparison::of(left, right, result.problems);
    result.files = FileComparison::of(left, right);
    return result;
}

bool RunComparison::isSame() const
{
    const bool hasFields =
        std::any_of(std::begin(fieldGroups), std::end(fieldGroups),
                    [this](const FieldGroup& row) { return !(this->*row.group).isEmpty(); });
    const bool hasFiles = std::any_of(files.cbegin(), files.cend(), [](const File& file) {
        return file.state != File::State::Same;
    });
    return !hasFields && !hasFiles && messages.isEmpty() && problems.isEmpty() && model.isSame &&
           machinesFile.isSame;
}

QVector<RunComparison::Field> RunComparison::shownOutcome() const
{
    QVector<Field> fields = outcome;
    for (Field& field : fields) {
        field.left = ReasonText::shown(field.left);
        field.right = ReasonText::shown(field.right);
    }
    return fields;
}

QJsonObject RunComparison::toJson() const
{
    QJsonObject json{
        {QStringLiteral("same"), isSame()},
        {QStringLiteral("left"), leftNumber},
        {QStringLiteral("right"), rightNumber},
        {QStringLiteral("duration"), QJsonObject{{QStringLiteral("left"), leftDuration},
                                                 {QStringLiteral("right"), rightDuration}}},
        {QStringLiteral("modelText"), ::toJson(model)},
        {QStringLiteral("machinesFile"), ::toJson(machinesFile)},
        {QStringLiteral("messages"), MessageComparison::toJson(messages)},
        {QStringLiteral("files"), FileComparison::toJson(files)},
        {QStringLiteral("problems"), QJsonArray::fromStringList(problems)},
    };
    for (const FieldGroup& row : fieldGroups) {
        json.insert(QLatin1String(row.name), ::toJson(this->*row.group));
    }
    return json;
}
