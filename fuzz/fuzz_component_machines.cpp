// A machines file as the components use it.

#include "Fuzzing.h"

#include <MachinesFile.h>

#include <algorithm>

using suite::MachinesFile;

namespace {

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
    for (const MachinesFile::Entry& entry : file.entries()) {
        require(MachinesFile::isHost(entry.host), "every host is one");
        require(entry.count >= 1, "every host takes a process");
        total += entry.count;
    }
    require(total == file.total(), "the total is that of the hosts");
    require(total >= 1 && total <= MachinesFile::mostProcesses, "the total is sane");
    require(file.hostOf(0) == file.entries().first().host, "the first process is the first host's");
    require(file.hostOf(total - 1) == file.entries().last().host,
            "the last process is the last host's");
    require(file.hostOf(total) == file.hostOf(0), "further processes start from the first host");
}

} // namespace

void fuzz(FuzzedInput input)
{
    const QString name = QStringLiteral("machines.kest");
    const MachinesFile file = MachinesFile::parse(input.rest(), name);
    for (const QString& error : file.errors()) {
        require(error.contains(name), "an error names the file");
    }
    if (file.errors().isEmpty()) {
        requireUsable(file);
        const MachinesFile again = MachinesFile::parse(file.plainContent(), name);
        require(again.errors().isEmpty() && areSame(again.entries(), file.entries()),
                "what the parallel runtime gets has the same hosts");
        require(!file.hostList().contains(QLatin1Char(' ')), "the list is one word");
    }
}
