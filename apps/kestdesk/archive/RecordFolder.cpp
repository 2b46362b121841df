// SPDX-License-Identifier: MIT
#include "RecordFolder.h"

#include <InputFile.h>
#include <OutputFile.h>
#include <ProcessMark.h>

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>

#include <utility>

namespace {

const QString startFile = QStringLiteral("run.json");
const QString endFile = QStringLiteral("end.json");
constexpr qint64 mostBytes = 16 << 20; // of a part

std::optional<QJsonObject> readObject(const QString& path)
{
    const auto content = suite::InputFile(path).read(mostBytes);
    const QJsonDocument document = QJsonDocument::fromJson(content.value_or(QByteArray()));
    return document.isObject() ? std::optional(document.object()) : std::nullopt;
}

bool hasOwner(const RunRecord& record)
{
    const auto mark = ProcessMark::parse(record.owner);
    return mark && !mark->hasEnded();
}

} // namespace

RecordFolder::RecordFolder(QString path) : m_path(std::move(path))
{}

QString RecordFolder::messagesFile() const
{
    return QDir(m_path).filePath(QStringLiteral("messages.jsonl"));
}

// Checks whether the owner is alive before reading its last file: the owner may write that file and
// end in between.
std::optional<RunRecord> RecordFolder::read() const
{
    const QDir folder(m_path);
    const auto start = readObject(folder.filePath(startFile));
    auto record = start ? RunRecord::fromStart(*start) : std::nullopt;
    if (!record) {
        return std::nullopt;
    }
    record->folder = folder.absolutePath();
    const bool isOwned = hasOwner(*record);
    const auto end = readObject(folder.filePath(endFile));
    if ((!end || !record->readEnd(*end)) && !isOwned) {
        record->state = RunRecord::State::Interrupted;
        record->ended = QFileInfo(messagesFile()).lastModified().toUTC();
        record->duration = record->started.msecsTo(record->ended);
    }
    return record;
}

// Its end may be whole, and so may the copy of the model.
std::optional<RunRecord> RecordFolder::readDamaged() const
{
    const QDir folder(m_path);
    if (!folder.exists()) {
        return std::nullopt;
    }
    RunRecord record;
    record.folder = folder.absolutePath();
    const auto end = readObject(folder.filePath(endFile));
    if (!end || !record.readEnd(*end)) {
        record.ended = QFileInfo(messagesFile()).lastModified().toUTC();
    }
    record.started = record.ended.isValid() ? record.ended.addMSecs(-record.duration)
                                            : QFileInfo(m_path).lastModified().toUTC();
    record.state = RunRecord::State::Damaged;
    record.outcome.clear();
    record.reason.clear();
    record.problem = QStringLiteral("%1 cannot be read")
                         .arg(QDir::toNativeSeparators(folder.filePath(startFile)));
    return record;
}

qint64 RecordFolder::stamp() const
{
    const auto timeOf = [this](const QString& name) {
        const QFileInfo file(QDir(m_path).filePath(name));
        return file.exists() ? file.lastModified().toMSecsSinceEpoch() : 0;
    };
    return timeOf(startFile) * 31 + timeOf(endFile);
}

bool RecordFolder::writeStart(const RunRecord& record)
{
    return writeFile(startFile, QJsonDocument(record.startToJson()).toJson());
}

bool RecordFolder::writeEnd(const RunRecord& record)
{
    return writeFile(endFile, QJsonDocument(record.endToJson()).toJson());
}

bool RecordFolder::writeFile(const QString& name, const QByteArray& content)
{
    suite::OutputFile file(QDir(m_path).filePath(name));
    const bool isWritten = file.replace(content);
    m_reason = isWritten
                   ? QString()
                   : QStringLiteral("%1 cannot be written: %2").arg(file.path(), file.reason());
    return isWritten;
}
