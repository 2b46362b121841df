// SPDX-License-Identifier: MIT
#include "RunRecord.h"

#include <QDir>
#include <QJsonArray>

#include <algorithm>
#include <iterator>

namespace {

constexpr int currentFormat = 1;
const QString formatKey = QStringLiteral("format");
const QString stateKey = QStringLiteral("state");

// Indexed by RunRecord::State.
constexpr const char* stateWords[] = {"running",         "interrupted", "valid",  "fault",
                                      "could not start", "stopped",     "damaged"};

// The keys of the members, by type.
template <typename T>
struct Member
{
    const char* key;
    T RunRecord::*member;
};

// clang-format off
constexpr Member<QString> startTexts[] = {
    {"face",             &RunRecord::face},
    {"owner",            &RunRecord::owner},
    {"component",        &RunRecord::component},
    {"model",            &RunRecord::model},
    {"modelCopy",        &RunRecord::modelCopy},
    {"modelChecksum",    &RunRecord::modelChecksum},
    {"machinesCopy",     &RunRecord::machinesCopy},
    {"program",          &RunRecord::program},
    {"workingDirectory", &RunRecord::workingDirectory},
    {"host",             &RunRecord::host},
    {"system",           &RunRecord::system},
    {"processor",        &RunRecord::processor},
    {"user",             &RunRecord::user},
    {"suiteVersion",     &RunRecord::suiteVersion},
    {"qtVersion",        &RunRecord::qtVersion},
    {"installation",     &RunRecord::installation},
};
constexpr Member<QStringList> startLists[] = {
    {"runOptions",  &RunRecord::runOptions},
    {"arguments",   &RunRecord::arguments},
    {"environment", &RunRecord::environment},
    {"leftOutHosts", &RunRecord::leftOutHosts},
};
constexpr Member<int> startNumbers[] = {
    {"cores",       &RunRecord::cores},
    {"segments",    &RunRecord::segments},
    {"frequencies", &RunRecord::frequencies},
    {"processes",   &RunRecord::processes},
    {"repeats",     &RunRecord::repeats},
};
constexpr Member<QString> endTexts[] = {
    {"outcome",   &RunRecord::outcome},
    {"reason",    &RunRecord::reason},
    {"problem",   &RunRecord::problem},
    {"stoppedBy", &RunRecord::stoppedBy},
    {"gap",       &RunRecord::gap},
};
constexpr Member<QStringList> endLists[] = {
    {"lastLines", &RunRecord::lastLines},
};
constexpr Member<int> endNumbers[] = {
    {"exitCode",        &RunRecord::exitCode},
    {"totalPercentage", &RunRecord::totalPercentage},
    {"errors",          &RunRecord::errors},
    {"warnings",        &RunRecord::warnings},
    {"notices",         &RunRecord::notices},
    {"omittedLines",    &RunRecord::omittedLines},
};
// clang-format on

QJsonValue toJsonValue(const QStringList& list)
{
    return QJsonArray::fromStringList(list);
}

template <typename T>
QJsonValue toJsonValue(const T& value)
{
    return value;
}

void readValue(const QJsonValue& json, QString& value)
{
    value = json.toString();
}

void readValue(const QJsonValue& json, int& value)
{
    value = json.toInt(value);
}

void readValue(const QJsonValue& json, QStringList& value)
{
    value.clear();
    const QJsonArray array = json.toArray();
    for (const QJsonValue& each : array) {
        value.append(each.toString());
    }
}

template <typename Rows>
void write(const Rows& rows, const RunRecord& record, QJsonObject& json)
{
    for (const auto& row : rows) {
        json.insert(QLatin1String(row.key), toJsonValue(record.*row.member));
    }
}

template <typename Rows>
void read(const Rows& rows, const QJsonObject& json, RunRecord& record)
{
    for (const auto& row : rows) {
        readValue(json.value(QLatin1String(row.key)), record.*row.member);
    }
}

QString timeText(const QDateTime& time)
{
    return time.toUTC().toString(Qt::ISODateWithMs);
}

QDateTime timeOf(const QJsonValue& json)
{
    return QDateTime::fromString(json.toString(), Qt::ISODateWithMs);
}

QJsonArray optionsToJson(const QVector<RunRecord::Option>& options)
{
    QJsonArray array;
    for (const RunRecord::Option& option : options) {
        array.append(QJsonObject{{QStringLiteral("name"), option.name},
                                 {QStringLiteral("value"), option.value},
                                 {QStringLiteral("default"), option.defaultValue}});
    }
    return array;
}

QVector<RunRecord::Option> optionsOf(const QJsonValue& json)
{
    QVector<RunRecord::Option> options;
    const QJsonArray array = json.toArray();
    for (const QJsonValue& each : array) {
        options.append({each[QStringLiteral("name")].toString(),
                        each[QStringLiteral("value")].toString(),
                        each[QStringLiteral("default")].toString()});
    }
    return options;
}

QJsonArray filesToJson(const QVector<RunRecord::File>& files)
{
    QJsonArray array;
    for (const RunRecord::File& file : files) {
        array.append(QJsonObject{{QStringLiteral("path"), file.path},
                                 {QStringLiteral("size"), file.size},
                                 {QStringLiteral("checksum"), file.checksum},
                                 {QStringLiteral("copy"), file.copy}});
    }
    return array;
}

QVector<RunRecord::File> filesOf(const QJsonValue& json)
{
    QVector<RunRecord::File> files;
    const QJsonArray array = json.toArray();
    for (const QJsonValue& each : array) {
        const double size = each[QStringLiteral("size")].toDouble(-1);
        files.append({each[QStringLiteral("path")].toString(), static_cast<qint64>(size),
                      each[QStringLiteral("checksum")].toString(),
                      each[QStringLiteral("copy")].toString()});
    }
    return files;
}

std::optional<RunRecord::State> endStateOf(const QString& word)
{
    using State = RunRecord::State;
    for (const State state :
         {State::Interrupted, State::Valid, State::Fault, State::NotStarted, State::Stopped}) {
        if (RunRecord::word(state) == word) {
            return state;
        }
    }
    return std::nullopt;
}

} // namespace

QString RunRecord::word(State state)
{
    return QLatin1String(stateWords[static_cast<int>(state)]);
}

QString RunRecord::modelCopyPath() const
{
    return modelCopy.isEmpty() ? QString() : QDir(folder).filePath(modelCopy);
}

QVector<RunRecord::Option> RunRecord::changedOptions() const
{
    QVector<Option> changed;
    std::copy_if(launchOptions.cbegin(), launchOptions.cend(), std::back_inserter(changed),
                 [](const Option& option) { return option.isChanged(); });
    return changed;
}

QJsonObject RunRecord::startToJson() const
{
    QJsonObject json{{formatKey, currentFormat},
                     {QStringLiteral("started"), timeText(started)},
                     {QStringLiteral("launchOptions"), optionsToJson(launchOptions)}};
    write(startTexts, *this, json);
    write(startLists, *this, json);
    write(startNumbers, *this, json);
    return json;
}

QJsonObject RunRecord::endToJson() const
{
    QJsonObject json{{stateKey, word(state)},
                     {QStringLiteral("ended"), timeText(ended)},
                     {QStringLiteral("duration"), duration},
                     {QStringLiteral("isCrash"), isCrash},
                     {QStringLiteral("files"), filesToJson(files)}};
    write(endTexts, *this, json);
    write(endLists, *this, json);
    write(endNumbers, *this, json);
    return json;
}

QJsonObject RunRecord::toJson() const
{
    QJsonObject json = startToJson();
    const QJsonObject end = endToJson();
    for (auto each = end.begin(); each != end.end(); ++each) {
        json.insert(each.key(), each.value());
    }
    json.insert(QStringLiteral("number"), number);
    json.insert(QStringLiteral("folder"), folder);
    return json;
}

std::optional<RunRecord> RunRecord::fromStart(const QJsonObject& json)
{
    RunRecord record;
    record.started = timeOf(json.value(QLatin1String("started")));
    if (json.value(formatKey).toInt() != currentFormat || !record.started.isValid()) {
        return std::nullopt;
    }
    record.launchOptions = optionsOf(json.value(QLatin1String("launchOptions")));
    read(startTexts, json, record);
    read(startLists, json, record);
    read(startNumbers, json, record);
    return record;
}

bool RunRecord::readEnd(const QJsonObject& json)
{
    const std::optional<State> endState = endStateOf(json.value(stateKey).toString());
    const QDateTime time = timeOf(json.value(QLatin1String("ended")));
    if (!endState || !time.isValid()) {
        return false;
    }
    state = *endState;
    ended = time;
    duration = static_cast<qint64>(json.value(QLatin1String("duration")).toDouble());
    isCrash = json.value(QLatin1String("isCrash")).toBool();
    files = filesOf(json.value(QLatin1String("files")));
    read(endTexts, json, *this);
    read(endLists, json, *this);
    read(endNumbers, json, *this);
    return true;
}
