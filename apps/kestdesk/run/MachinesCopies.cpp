// SPDX-License-Identifier: MIT
#include "MachinesCopies.h"

#include "ComponentRunner.h"
#include "CopyAnnouncement.h"

#include <FileReplacement.h>
#include <InputFile.h>
#include <KEST_binfiles.h>
#include <MachinesFile.h>
#include <ProcessMark.h>
#include <RunningProcesses.h>
#include <WriteAll.h>

#include <common_MachineFileFinder.h>

#include <QDateTime>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QThread>
#include <QTime>

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace {

constexpr int nameCount = 1000;       // one for each millisecond of a second
constexpr int longestWait = 3000;     // milliseconds
constexpr qint64 longestSetUp = 3000; // milliseconds from an announcement until there is a copy
constexpr qint64 largestRecord = 200;
constexpr qint64 never = -1;
const QString copyPrefix = QStringLiteral("gui_tmp_machfile_");

// Returns nothing for a file that no run can use: the component refuses such a file and gives the
// reason.
std::optional<QByteArray> contentOf(const QString& fileName)
{
    return suite::InputFile(fileName).read(suite::MachinesFile::largestFile);
}

qint64 timeOf(const QFileInfo& file)
{
    return file.lastModified().toMSecsSinceEpoch();
}

QString recordOf(const QString& copy)
{
    const QFileInfo info(copy);
    return QStringLiteral("%1/.%2.owner").arg(info.path(), info.fileName());
}

// False if another owner's record exists. If no record can be written, the run continues without
// one.
bool writeRecord(const QString& copy)
{
    QFile record(recordOf(copy));
    if (!record.open(QIODevice::WriteOnly | QIODevice::NewOnly)) {
        return !record.exists();
    }
    record.write(ProcessMark::own().word().toLatin1() + ' ' +
                 QByteArray::number(timeOf(QFileInfo(copy))) + '\n');
    return true;
}

/// The content of a record.
struct Ownership
{
    QString record;
    QString copy;
    std::optional<ProcessMark> owner;
    qint64 time = 0;

    // A component may still use the copy after the program that made it was killed.
    bool isLeft() const
    {
        return owner && owner->hasEnded() &&
               !RunningProcesses::haveArgumentEndingWith(QLatin1Char('/') +
                                                         QFileInfo(copy).fileName());
    }
};

Ownership ownership(const QString& folder, const QString& copyName)
{
    Ownership result;
    result.copy = folder + QLatin1Char('/') + copyName;
    result.record = recordOf(result.copy);
    const QFileInfo record(result.record);
    if (record.isSymLink() || !record.isFile() || record.size() > largestRecord ||
        !RunningProcesses::isOwnFile(record)) {
        return result;
    }
    const QStringList words = QString::fromLatin1(contentOf(result.record).value_or(QByteArray()))
                                  .simplified()
                                  .split(QLatin1Char(' '));
    result.owner = ProcessMark::parse(words.first());
    result.time = words.value(1).toLongLong();
    return result;
}

QVector<Ownership> leftCopies(const QString& folder)
{
    static const QRegularExpression recordName(QRegularExpression::anchoredPattern(
        QStringLiteral("\\.(%1\\d{1,3})\\.owner").arg(copyPrefix)));
    QVector<Ownership> result;
    const QStringList names = QDir(folder).entryList({QStringLiteral(".%1*").arg(copyPrefix)},
                                                     QDir::Files | QDir::Hidden);
    for (const QString& name : names) {
        const QString copyName = recordName.match(name).captured(1);
        const Ownership found = ownership(folder, copyName);
        if (!copyName.isEmpty() && found.isLeft()) {
            result.append(found);
        }
    }
    return result;
}

bool isAsTheMachinesFile(const QString& copy)
{
    common_MachineFileFinder finder;
    return finder.isValid() &&
           contentOf(copy) == contentOf(finder.getMachineFileInfo()->absoluteFilePath());
}

// On Windows, a copy has the time of what was copied, but was made at a time of its own.
qint64 birthOf(const QFileInfo& file)
{
    const QDateTime birth = file.birthTime();
    return birth.isValid() ? birth.toMSecsSinceEpoch() : timeOf(file);
}

// Whether a program that was killed made this copy after it had announced it, and before the copy
// had a record.
bool isOf(const CopyAnnouncement::Left& announcement, const QFileInfo& copy)
{
    const qint64 age = birthOf(copy) - announcement.time;
    return !copy.isSymLink() && age >= 0 && age <= longestSetUp &&
           QFileInfo(recordOf(copy.filePath())).size() == 0 && RunningProcesses::isOwnFile(copy) &&
           isAsTheMachinesFile(copy.filePath()) &&
           !RunningProcesses::haveArgumentEndingWith(QLatin1Char('/') + copy.fileName());
}

void removeAnnounced(const QString& folder, const CopyAnnouncement::Left& announcement)
{
    const QFileInfoList copies =
        QDir(folder).entryInfoList({copyPrefix + QLatin1Char('*')}, QDir::Files);
    for (const QFileInfo& copy : copies) {
        if (isOf(announcement, copy)) {
            FileReplacement::remove(recordOf(copy.filePath()));
            FileReplacement::remove(copy.filePath());
        }
    }
    FileReplacement::remove(announcement.path);
}

// The record is removed first: a new copy of this name can only be made after the old one is
// removed, and must not find the record of another owner.
void remove(const Ownership& left)
{
    const QFileInfo copy(left.copy);
    const bool isTheCopy = copy.isFile() && !copy.isSymLink() && timeOf(copy) == left.time;
    FileReplacement::remove(left.record);
    if (isTheCopy) {
        FileReplacement::remove(left.copy);
    }
}

/// Prevents other programs from clearing the same folder at the same time.
class ClearingLock
{
public:
    explicit ClearingLock(const QString& folder)
        : m_path((folder + QStringLiteral("/.gui_tmp_machfile")).toStdWString())
        , m_isTaken(KEST_binfiles_set_lock_hard(m_path.c_str(), 0, &m_handle) ==
                    KEST_BINFILES_LOCK_TAKEN)
    {}

    ~ClearingLock()
    {
        if (m_isTaken) {
            KEST_binfiles_remove_lock(m_path.c_str(), m_handle);
        }
    }

    ClearingLock(const ClearingLock&) = delete;
    ClearingLock& operator=(const ClearingLock&) = delete;

    bool isTaken() const { return m_isTaken; }

private:
    std::wstring m_path;
    uint64_t m_handle = 0;
    bool m_isTaken;
};

} // namespace

MachinesCopies::MachinesCopies(QString folder) : m_folder(std::move(folder))
{}

void MachinesCopies::removeLeft() const
{
    if (leftCopies(m_folder).isEmpty() && CopyAnnouncement::left(m_folder).isEmpty()) {
        return;
    }
    const ClearingLock lock(m_folder);
    if (!lock.isTaken()) {
        return; // another program is clearing
    }
    const QVector<Ownership> left = leftCopies(m_folder); // read while the lock is held
    for (const Ownership& copy : left) {
        remove(copy);
    }
    const QVector<CopyAnnouncement::Left> announced = CopyAnnouncement::left(m_folder);
    for (const CopyAnnouncement::Left& announcement : announced) {
        removeAnnounced(m_folder, announcement);
    }
}

MachinesCopies::Times MachinesCopies::times() const
{
    Times result;
    const QFileInfoList files = QDir(m_folder).entryInfoList(
        {copyPrefix + QLatin1Char('*')}, QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot);
    for (const QFileInfo& file : files) {
        result.insert(pathOf(file.fileName()), timeOf(file));
    }
    return result;
}

MachinesCopies::Claim MachinesCopies::claim(ComponentRunner& runner, const Times& before) const
{
    const QString copy = runner.getTemporaryFilenames().value(0);
    runner.setTemporaryFilenames({});
    const QFileInfo file(copy);
    if (copy.isEmpty() || (!file.exists() && !file.isSymLink())) {
        return Claim::Own; // none was made
    }
    const bool isNew = file.isFile() && !file.isSymLink() &&
                       before.value(pathOf(file.fileName()), never) != timeOf(file);
    if (!isNew || !writeRecord(copy)) {
        return Claim::Foreign;
    }
    runner.setTemporaryFilenames({copy, recordOf(copy)});
    if (!isAsTheMachinesFile(copy)) {
        runner.deleteTemporaryFiles();
        return Claim::Foreign;
    }
    return Claim::Own;
}

// Skips a name for which another program writes an owner's record in the meantime.
QString MachinesCopies::add(ComponentRunner& runner, const QByteArray& content) const
{
    QDir().mkpath(m_folder);
    for (int number = 0; number < nameCount; ++number) {
        QString path = pathOf(number);
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered)) {
            if (file.exists()) {
                continue;
            }
            return QString();
        }
        if (!suite::writeAll(file, content)) {
            file.remove();
            return QString();
        }
        file.close();
        if (writeRecord(path)) {
            runner.setTemporaryFilenames({path, recordOf(path)});
            return path;
        }
    }
    return QString();
}

int MachinesCopies::millisecondOf(const ComponentRunner& runner)
{
    const QString copy = runner.getTemporaryFilenames().value(0);
    return copy.isEmpty() ? -1 : copy.section(QLatin1Char('_'), -1).toInt();
}

bool MachinesCopies::waitForFreeName(const Times& times, int lead) const
{
    const std::vector<bool> taken = takenNumbers(times);
    const auto waitOf = [&taken](int number) {
        int wait = 0;
        while (wait < nameCount && taken[std::size_t((number + wait) % nameCount)]) {
            ++wait;
        }
        return wait;
    };
    const QDeadlineTimer deadline(longestWait);
    while (!deadline.hasExpired()) {
        const int wait = waitOf((QTime::currentTime().msec() + lead) % nameCount);
        if (wait == 0 || wait == nameCount) {
            return wait == 0;
        }
        QThread::msleep(static_cast<unsigned long>(wait - 1)); // polls during the last millisecond
    }
    return true;
}

std::vector<bool> MachinesCopies::takenNumbers(const Times& times) const
{
    std::vector<bool> taken(nameCount);
    for (int number = 0; number < nameCount; ++number) {
        taken[std::size_t(number)] = times.contains(pathOf(number));
    }
    return taken;
}

QString MachinesCopies::pathOf(int number) const
{
    return pathOf(copyPrefix + QString::number(number));
}

QString MachinesCopies::pathOf(const QString& name) const
{
    return QDir(m_folder).filePath(name);
}
