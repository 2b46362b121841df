#include "RunComparison.h"

#include "FileComparison.h"
#include "MessageComparison.h"

#include <InputFile.h>

#include <QDir>
#include <QJsonArray>
#include <QMap>

#include <algorithm>

namespace {

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
    {&RunComparison::run,      "component",        "component"},
    {&RunComparison::run,      "model",            "model"},
    {&RunComparison::run,      "segments",         "segments"},
    {&RunComparison::run,      "frequencies",      "frequencies"},
    {&RunComparison::run,      "runOptions",       "run options"},
    {&RunComparison::run,      "processes",        "processes"},
    {&RunComparison::run,      "program",          "program"},
    {&RunComparison::run,      "workingDirectory", "folder"},
    {&RunComparison::computer, "host",             "host"},
    {&RunComparison::computer, "system",           "system"},
    {&RunComparison::computer, "processor",        "processor"},
    {&RunComparison::computer, "cores",            "cores"},
    {&RunComparison::computer, "user",             "user"},
    {&RunComparison::computer, "suiteVersion",     "version of the suite"},
    {&RunComparison::computer, "qtVersion",        "version of Qt"},
    {&RunComparison::computer, "installation",     "installation"},
    {&RunComparison::outcome,  "state",            "state"},
    {&RunComparison::outcome,  "outcome",          "outcome"},
    {&RunComparison::outcome,  "reason",           "reason"},
    {&RunComparison::outcome,  "problem",          "problem"},
    {&RunComparison::outcome,  "stoppedBy",        "stopped by"},
    {&RunComparison::outcome,  "exitCode",         "exit code or signal"},
    {&RunComparison::outcome,  "isCrash",          "ended by a signal"},
    {&RunComparison::outcome,  "totalPercentage",  "percent done"},
    {&RunComparison::outcome,  "errors",           "errors"},
    {&RunComparison::outcome,  "warnings",         "warnings"},
    {&RunComparison::outcome,  "notices",          "notices"},
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
                .append({name, QLatin1String(row.label), textOf(leftJson.value(name)),
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
    result.model = compareTexts(QStringLiteral("model"), Copy(left, left.modelCopy),
                                Copy(right, right.modelCopy));
    result.machinesFile =
        compareTexts(QStringLiteral("machines file"), Copy(left, left.machinesCopy),
                     Copy(right, right.machinesCopy));
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
