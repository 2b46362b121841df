// SPDX-License-Identifier: MIT
#include "MachinesReport.h"

#include <HostName.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <optional>

using suite::MachinesFile;
using suite::HostName::withBrackets;

namespace {

/// Translates the texts of this file.
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(MachinesReport)
};

using Severity = MachinesFile::Severity;

constexpr int shownEntries = 50;
constexpr int shownFindings = 20;
constexpr int widestHost = 40;

struct SeverityLook
{
    const char* name;
    Terminal::Colour colour;
};

// Indexed by MachinesFile::Severity.
constexpr SeverityLook severityLooks[] = {
    {QT_TRANSLATE_NOOP("MachinesReport", "note"), Terminal::Colour::Cyan},
    {QT_TRANSLATE_NOOP("MachinesReport", "warning"), Terminal::Colour::Yellow},
    {QT_TRANSLATE_NOOP("MachinesReport", "error"), Terminal::Colour::Red},
};

const SeverityLook& look(Severity severity)
{
    return severityLooks[static_cast<int>(severity)];
}

struct Place
{
    const char* variable;
    const char* path;
    const char* owner;
};

// In search order.
constexpr Place places[] = {
    {"KEST_USER_HOME", "machines.kest", QT_TRANSLATE_NOOP("MachinesReport", "the user's")},
    {"KEST_HOME", "shared/mpi/machines.kest",
     QT_TRANSLATE_NOOP("MachinesReport", "the installation's")},
};

QString candidate(const Place& place)
{
    return QDir::toNativeSeparators(
        QDir(qEnvironmentVariable(place.variable)).filePath(QLatin1String(place.path)));
}

QString findingText(const MachinesFile::Finding& finding)
{
    const QString severity = Texts::tr(look(finding.severity).name);
    const QString place =
        finding.line > 0 ? Texts::tr("line %1, %2").arg(finding.line).arg(severity) : severity;
    const QString what = finding.text.isEmpty() ? QString() : finding.text + QLatin1String(": ");
    return QStringLiteral("%1: %2%3").arg(place, what, finding.reason);
}

QJsonArray entriesJson(const MachinesFile& file)
{
    QJsonArray result;
    for (const MachinesFile::Entry& entry : file.entries()) {
        result.append(QJsonObject{{QStringLiteral("line"), entry.line},
                                  {QStringLiteral("host"), withBrackets(entry.host)},
                                  {QStringLiteral("processes"), entry.count}});
    }
    return result;
}

QJsonValue jobJson(const suite::SlurmJob& job, bool isUsed)
{
    if (!job.isThere()) {
        return {};
    }
    QJsonArray entries;
    for (const MachinesFile::Entry& entry : job.machines().hosts()) {
        entries.append(QJsonObject{{QStringLiteral("host"), entry.host},
                                   {QStringLiteral("processes"), entry.count}});
    }
    return QJsonObject{{QStringLiteral("id"), job.id()},
                       {QStringLiteral("isUsed"), isUsed},
                       {QStringLiteral("error"), job.error()},
                       {QStringLiteral("processes"), job.machines().total()},
                       {QStringLiteral("entries"), entries}};
}

// Of the file in use, if there is one.
std::optional<QString> pathOf(const common_MachineFileFinder& finder)
{
    return finder.isValid() ? std::make_optional(finder.getMachineFileInfo()->absoluteFilePath())
                            : std::nullopt;
}

QJsonArray findingsJson(const MachinesFile& file)
{
    QJsonArray result;
    for (const MachinesFile::Finding& finding : file.findings()) {
        result.append(
            QJsonObject{{QStringLiteral("line"), finding.line},
                        {QStringLiteral("severity"), QLatin1String(look(finding.severity).name)},
                        {QStringLiteral("text"), finding.text},
                        {QStringLiteral("reason"), finding.reason}});
    }
    return result;
}

QJsonObject countsJson(const MachinesFile& file)
{
    QJsonObject result;
    for (const Severity severity : {Severity::Error, Severity::Warning, Severity::Note}) {
        result.insert(QLatin1String(look(severity).name), file.count(severity));
    }
    return result;
}

} // namespace

MachinesReport::MachinesReport() : m_machines(pathOf(m_finder), m_job)
{}

void MachinesReport::write(Terminal& terminal) const
{
    if (!m_job.error().isEmpty()) {
        terminal.writeLine(m_job.error(), Terminal::Colour::Red);
    }
    if (m_machines.isFromJob()) {
        writeJob(terminal);
    } else if (m_finder.isValid()) {
        writeFile(terminal);
    } else {
        writeSearch(terminal);
    }
}

void MachinesReport::writeFile(Terminal& terminal) const
{
    terminal.writeLine(fileName());
    writeEntries(terminal, m_finder.getProcesses());
    writeFindings(machines(), terminal);
    if (m_job.isThere() && isUsable()) {
        terminal.writeLine(
            Texts::tr("all hosts belong to %1, so runs use this file").arg(m_job.name()));
    }
}

void MachinesReport::writeJob(Terminal& terminal) const
{
    terminal.writeLine(
        Texts::tr("%1 (in SLURM_JOB_NODELIST), whose hosts runs use").arg(m_job.name()));
    writeEntries(terminal, machines().total());
    terminal.writeLine(fileRemark(), Terminal::Colour::Cyan);
}

// The machines file in use, and whose it is.
QString MachinesReport::fileName() const
{
    const Place& place = places[m_finder.isLocalFile() ? 0 : 1];
    return Texts::tr("%1 (%2, in %3)")
        .arg(QDir::toNativeSeparators(m_finder.getMachineFileInfo()->absoluteFilePath()),
             Texts::tr(place.owner), QLatin1String(place.variable));
}

// Why the machines file is not used in a job.
QString MachinesReport::fileRemark() const
{
    if (!m_finder.isValid()) {
        return Texts::tr("there is no machines file");
    }
    return m_machines.remark().isEmpty()
               ? Texts::tr("%1 names no host").arg(fileName())
               : Texts::tr("not used: %1, %2").arg(fileName(), m_machines.remark());
}

void MachinesReport::writeSearch(Terminal& terminal) const
{
    terminal.writeLine(Texts::tr("There is no machines file. Looked for:"), Terminal::Colour::Red);
    for (const Place& place : places) {
        terminal.writeLine(
            Texts::tr("  %1 (%2, in %3)")
                .arg(candidate(place), Texts::tr(place.owner), QLatin1String(place.variable)));
    }
    terminal.writeLine(Texts::tr("\"kestdesk machines edit\" makes the user's: a text file "
                                 "with a line \"host:count\" for each host;"));
    terminal.writeLine(Texts::tr("\"kestdesk machines use-local\" makes one that names this "
                                 "machine."));
}

void MachinesReport::writeEntries(Terminal& terminal, int processes) const
{
    const MachinesFile& file = machines();
    const QVector<MachinesFile::Entry> shown = file.entries().mid(0, shownEntries);
    int width = 0;
    for (const MachinesFile::Entry& entry : shown) {
        width = std::max(width, std::min<int>(withBrackets(entry.host).size(), widestHost));
    }
    for (const MachinesFile::Entry& entry : shown) {
        terminal.writeLine(
            QStringLiteral("  %1  %2").arg(withBrackets(entry.host), -width).arg(entry.count, 4));
    }
    if (file.entryCount() > shown.size()) {
        terminal.writeLine(
            Texts::tr("  ... and %1 lines more").arg(file.entryCount() - shown.size()));
    }
    terminal.writeLine(
        processes < 0
            ? Texts::tr("in all: no processes")
            : Texts::tr("in all: %1 processes, hosts: %2").arg(processes).arg(file.hosts().size()));
}

// Errors come first if there is not room for all.
void MachinesReport::writeFindings(const MachinesFile& file, Terminal& terminal)
{
    for (const Severity severity : {Severity::Error, Severity::Warning, Severity::Note}) {
        int left = shownFindings;
        for (const MachinesFile::Finding& finding : file.findings()) {
            if (finding.severity == severity && left-- > 0) {
                terminal.writeLine(findingText(finding), look(severity).colour);
            }
        }
        const int more = file.count(severity) - shownFindings;
        if (more > 0) {
            terminal.writeLine(Texts::tr("... and %1 more of kind \"%2\"")
                                   .arg(more)
                                   .arg(Texts::tr(look(severity).name)),
                               look(severity).colour);
        }
    }
}

QByteArray MachinesReport::json() const
{
    QJsonArray candidates;
    for (const Place& place : places) {
        candidates.append(candidate(place));
    }
    const std::optional<QString> path = pathOf(m_finder);
    const MachinesFile file = path ? MachinesFile::read(*path) : MachinesFile();
    const QJsonObject report{
        {QStringLiteral("file"), path ? QJsonValue(*path) : QJsonValue()},
        {QStringLiteral("foundIn"),
         path ? QJsonValue(QLatin1String(places[m_finder.isLocalFile() ? 0 : 1].variable))
              : QJsonValue()},
        {QStringLiteral("candidates"), candidates},
        {QStringLiteral("processes"), m_finder.getProcesses()},
        {QStringLiteral("hosts"), file.hosts().size()},
        {QStringLiteral("entries"), entriesJson(file)},
        {QStringLiteral("findings"), findingsJson(file)},
        {QStringLiteral("findingCounts"), countsJson(file)},
        {QStringLiteral("job"), jobJson(m_job, m_machines.isFromJob())},
    };
    return QJsonDocument(report).toJson();
}
