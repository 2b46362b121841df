// SPDX-License-Identifier: MIT
#include "RunArchive.h"

#include "InterruptedRun.h"
#include "ModelCopy.h"
#include "ProcessCount.h"
#include "RecordFolder.h"

#include <InputFile.h>
#include <MachinesFile.h>
#include <ProcessMark.h>

#include <common_IApplicationInfo.h>
#include <common_ServiceOf.h>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <algorithm>
#include <utility>

namespace {

const QString newPrefix = QStringLiteral(".new-");
const QString removedPrefix = QStringLiteral(".removed-");
const QString machinesCopy = QStringLiteral("machines.kest");
constexpr qint64 megabyte = 1 << 20;
constexpr qint64 largestMachinesFile = megabyte;

qint64 folderSize(const QString& folder)
{
    qint64 size = 0;
    QDirIterator files(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        files.next();
        size += files.fileInfo().size();
    }
    return size;
}

bool writeMachines(const QByteArray& machines, RunRecord& record, RecordFolder& folder)
{
    if (machines.isNull()) {
        return true;
    }
    record.machinesCopy = machinesCopy;
    return folder.writeFile(machinesCopy, machines);
}

} // namespace

RunArchive::RunArchive(QString folder) : m_folder(std::move(folder))
{}

RunArchive RunArchive::ofUser()
{
    return RunArchive(QDir(GET_SERVICE(common_IApplicationInfo)->userSettingsDirectory())
                          .filePath(QStringLiteral("runs")));
}

QString RunArchive::path(int number) const
{
    return QDir(m_folder).filePath(QString::number(number));
}

QVector<int> RunArchive::numbers() const
{
    QVector<int> result;
    const QStringList names = QDir(m_folder).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString& name : names) {
        bool isNumber = false;
        const int number = name.toInt(&isNumber);
        if (isNumber && number > 0 && QString::number(number) == name) {
            result.append(number);
        }
    }
    std::sort(result.begin(), result.end());
    return result;
}

QVector<RunRecord> RunArchive::records() const
{
    QVector<RunRecord> result;
    const QVector<int> all = numbers();
    for (auto number = all.crbegin(); number != all.crend(); ++number) {
        if (auto found = record(*number)) {
            result.append(std::move(*found));
        }
    }
    return result;
}

QVector<RunRecord> RunArchive::allRecords() const
{
    QVector<RunRecord> result;
    const QVector<int> all = numbers();
    for (auto number = all.crbegin(); number != all.crend(); ++number) {
        if (auto found = recordOrDamaged(*number)) {
            result.append(std::move(*found));
        }
    }
    return result;
}

std::optional<RunRecord> RunArchive::recordOrDamaged(int number) const
{
    auto found = record(number);
    if (!found) {
        found = RecordFolder(path(number)).readDamaged();
        if (found) {
            found->number = number;
        }
    }
    return found;
}

std::optional<RunRecord> RunArchive::record(int number) const
{
    auto found = RecordFolder(path(number)).read();
    if (found) {
        found->number = number;
    }
    return found;
}

QByteArray RunArchive::machinesOf(const QString& machinesFile)
{
    const auto content = suite::InputFile(machinesFile).read(largestMachinesFile);
    return content && content->isNull() ? QByteArray("") : content.value_or(QByteArray());
}

RunArchive::Addition RunArchive::add(const RunRecord& record, const QString& machinesFile) const
{
    return addWithMachines(record, machinesOf(machinesFile));
}

// The record is completed under a temporary name, so that other programs never read half of one.
RunArchive::Addition RunArchive::addWithMachines(RunRecord record, const QByteArray& machines) const
{
    if (!QDir().mkpath(m_folder)) {
        return {0, {}, QStringLiteral("the folder %1 cannot be made").arg(m_folder)};
    }
    removeLeft();
    QTemporaryDir place(
        QDir(m_folder).filePath(newPrefix + ProcessMark::own().word() + QStringLiteral("-XXXXXX")));
    if (!place.isValid()) {
        return {0, {}, QStringLiteral("nothing can be written into %1").arg(m_folder)};
    }
    record.owner = ProcessMark::own().word();
    record.processes = ProcessCount::of(record.arguments, suite::MachinesFile::parse(machines));
    RecordFolder folder(place.path());
    if (!ModelCopy::add(record, folder) || !writeMachines(machines, record, folder) ||
        !folder.writeFile(QFileInfo(folder.messagesFile()).fileName(), QByteArray()) ||
        !folder.writeStart(record)) {
        return {0, {}, folder.reason()};
    }
    Addition addition = moveIn(place.path());
    place.setAutoRemove(addition.number == 0);
    return addition;
}

// The next unused number; another program may take it in between.
RunArchive::Addition RunArchive::moveIn(const QString& newFolder) const
{
    constexpr int mostAttempts = 1000;
    const QVector<int> all = numbers();
    const int first = all.isEmpty() ? 1 : all.constLast() + 1;
    for (int number = first; number < first + mostAttempts; ++number) {
        if (QDir().rename(newFolder, path(number))) {
            return {number, path(number), {}};
        }
    }
    return {0, {}, QStringLiteral("no folder can be added to %1").arg(m_folder)};
}

bool RunArchive::remove(int number) const
{
    const auto found = record(number);
    if (found && !found->hasEnded()) {
        return false;
    }
    const QString removed = QDir(m_folder).filePath(removedPrefix + ProcessMark::own().word() +
                                                    QLatin1Char('-') + QString::number(number));
    return QDir().rename(path(number), removed) && QDir(removed).removeRecursively();
}

void RunArchive::closeInterrupted() const
{
    const QVector<int> all = numbers();
    for (const int number : all) {
        InterruptedRun::close(path(number));
    }
}

int RunArchive::prune(const Limits& limits) const
{
    removeLeft();
    const QDateTime oldest = QDateTime::currentDateTimeUtc().addDays(-limits.days);
    const qint64 most = limits.megabytes * megabyte;
    qint64 kept = 0;
    int removedCount = 0;
    QVector<int> all = numbers();
    std::reverse(all.begin(), all.end());
    for (const int number : qAsConst(all)) {
        kept += folderSize(path(number));
        const auto found = record(number);
        const bool isNewest = number == all.constFirst();
        const bool isOver = found && (kept > most || found->started < oldest);
        if (isOver && !isNewest && remove(number)) {
            ++removedCount;
        }
    }
    return removedCount;
}

qint64 RunArchive::size() const
{
    return folderSize(m_folder);
}

// Records that killed programs have left half made or half deleted.
void RunArchive::removeLeft() const
{
    const QRegularExpression pattern(
        QStringLiteral("^\\.(?:new|removed)-(%1)-").arg(QLatin1String(ProcessMark::pattern)));
    const QStringList names =
        QDir(m_folder).entryList({newPrefix + QLatin1Char('*'), removedPrefix + QLatin1Char('*')},
                                 QDir::Dirs | QDir::Hidden);
    for (const QString& name : names) {
        const auto mark = ProcessMark::parse(pattern.match(name).captured(1));
        if (mark && mark->hasEnded()) {
            QDir(QDir(m_folder).filePath(name)).removeRecursively();
        }
    }
}
