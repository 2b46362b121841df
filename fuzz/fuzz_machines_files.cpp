// A machines file as the library counts it and as kestdesk checks it.

#include "Fuzzing.h"

#include <MachinesFile.h>

#include <common_MachineFileFinder.h>

#include <QCoreApplication>
#include <QFile>
#include <QStringList>
#include <QTemporaryDir>

#include <algorithm>
#include <limits>

namespace {

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
        QFile file(m_folder.filePath(QStringLiteral("machines.kest")));
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

void tryDesk(const QByteArray& content)
{
    const MachinesFile file = MachinesFile::parse(content);
    const int lines = content.count('\n') + 1;
    int line = 0;
    for (const MachinesFile::Entry& entry : file.entries()) {
        require(entry.line > line && entry.line <= lines, "entries come in the order of lines");
        require(!entry.host.isEmpty(), "an entry names a host");
        require(entry.processes >= 1 && entry.processes <= 4096, "an entry has a sane count");
        line = entry.line;
    }
    for (const MachinesFile::Finding& finding : file.findings()) {
        require(finding.line >= 0 && finding.line <= lines, "a finding names a line of the file");
        require(!finding.reason.isEmpty(), "a finding says what is wrong");
    }
    require(file.findings().size() <= 3 * MachinesFile::mostFindings, "findings are limited");
    require(!file.isRight() || file.hostCount() > 0, "a file that is right names a host");
    require(file.hostCount() <= file.entries().size(), "every host has an entry");
}

} // namespace

void fuzz(FuzzedInput input)
{
    needApplication<QCoreApplication>();
    const QByteArray content = input.rest();
    tryFinder(content);
    tryDesk(content);
}
