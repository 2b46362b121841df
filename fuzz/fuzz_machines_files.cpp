// SPDX-License-Identifier: MIT
// A machines file as the library counts it, and as the programs of the suite read it.

#include "Fuzzing.h"

#include <HostName.h>
#include <MachinesFile.h>

#include <common_MachineFileFinder.h>

#include <QCoreApplication>
#include <QFile>
#include <QStringList>
#include <QTemporaryDir>

#include <algorithm>
#include <limits>

using suite::MachinesFile;
namespace HostName = suite::HostName;

namespace {

const QString fileName = QStringLiteral("machines.kest");

// The user's folder, with the file that the finder finds.
class UserFolder
{
public:
    UserFolder()
    {
        require(m_folder.isValid(), "there is a folder");
        qputenv("KEST_USER_HOME", QFile::encodeName(m_folder.path()));
    }

    void write(const QByteArray& content) const
    {
        QFile file(m_folder.filePath(fileName));
        require(file.open(QIODevice::WriteOnly) && file.write(content) == content.size(),
                "the file can be written");
    }

private:
    QTemporaryDir m_folder;
};

QStringList naiveEntries(const QByteArray& content)
{
    QStringList entries;
    const QStringList lines = FuzzedInput::decoded(content).split(QLatin1Char('\n'));
    for (const QString& line : lines) {
        const QString entry = line.split(QLatin1Char('#')).first();
        if (!entry.trimmed().isEmpty()) {
            entries.append(entry);
        }
    }
    return entries;
}

int naiveCount(const QStringList& entries)
{
    qint64 sum = entries.isEmpty() ? -1 : 0;
    for (const QString& entry : entries) {
        QStringList parts = entry.split(QLatin1Char(':'));
        parts.removeAll(QString());
        sum += parts.size() >= 2 ? parts.at(1).toInt() : 1;
    }
    constexpr qint64 least = std::numeric_limits<int>::min();
    constexpr qint64 most = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(sum, least, most));
}

void tryFinder(const QByteArray& content)
{
    static const UserFolder folder;
    folder.write(content);
    common_MachineFileFinder finder;
    const QStringList expected = naiveEntries(content);
    require(finder.isValid() && finder.isLocalFile(), "the user's file is found");
    require(finder.parseMachinesFile() == expected, "the entries are those of the lines");
    require(finder.getProcesses() == naiveCount(expected), "the count is that of the entries");
}

void requireLines(const MachinesFile& file, int lines)
{
    int line = 0;
    for (const MachinesFile::Entry& entry : file.entries()) {
        require(entry.line > line && entry.line <= lines, "entries come in the order of lines");
        require(HostName::error(entry.host).isEmpty(), "every host is one");
        require(entry.count >= 1 && entry.count <= MachinesFile::mostProcesses,
                "an entry has a sane count");
        line = entry.line;
    }
    for (const MachinesFile::Finding& finding : file.findings()) {
        require(finding.line >= 0 && finding.line <= lines, "a finding names a line of the file");
        require(!finding.reason.isEmpty(), "a finding says what is wrong");
    }
    require(file.findings().size() <= 3 * MachinesFile::mostFindings, "findings are limited");
    require(file.hosts().size() <= file.entries().size(), "every host has an entry");
    const QStringList errors = file.errors();
    require(file.isValid() == errors.isEmpty(), "an error makes a file useless");
    for (const QString& error : errors) {
        require(error.contains(fileName), "an error names the file");
    }
}

bool isSame(const MachinesFile::Entry& left, const MachinesFile::Entry& right)
{
    return left.host == right.host && left.count == right.count;
}

bool areSame(const QVector<MachinesFile::Entry>& left, const QVector<MachinesFile::Entry>& right)
{
    return std::equal(left.cbegin(), left.cend(), right.cbegin(), right.cend(), isSame);
}

void requireUsable(const MachinesFile& file)
{
    int total = 0;
    for (const MachinesFile::Entry& entry : file.hosts()) {
        require(entry.count >= 1, "every host takes a process");
        total += entry.count;
    }
    require(!file.hosts().isEmpty(), "a file without errors names a host");
    require(total == file.total(), "the total is that of the hosts");
    require(total >= 1 && total <= MachinesFile::mostProcesses, "the total is sane");
    require(file.hostOf(0) == file.hosts().first().host, "the first process is the first host's");
    require(file.hostOf(total - 1) == file.hosts().last().host,
            "the last process is the last host's");
    require(file.hostOf(total) == file.hostOf(0), "further processes start from the first host");
    const MachinesFile again = MachinesFile::parse(file.plainContent(), fileName);
    require(again.isValid() && areSame(again.hosts(), file.hosts()),
            "what the parallel runtime gets has the same hosts");
    require(!file.hostList().contains(QLatin1Char(' ')), "the list is one word");
}

void tryReader(const QByteArray& content)
{
    const MachinesFile file = MachinesFile::parse(content, fileName);
    requireLines(file, content.count('\n') + 1);
    if (file.isValid()) {
        requireUsable(file);
    }
}

} // namespace

void fuzz(FuzzedInput input)
{
    needApplication<QCoreApplication>();
    const QByteArray content = input.rest();
    tryFinder(content);
    tryReader(content);
}
