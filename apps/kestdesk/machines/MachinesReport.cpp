#include "MachinesReport.h"

#include <HostName.h>

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

using suite::MachinesFile;
using suite::HostName::withBrackets;

namespace {

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
    {"note", Terminal::Colour::Cyan},
    {"warning", Terminal::Colour::Yellow},
    {"error", Terminal::Colour::Red},
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

// In the order in which they are looked for.
constexpr Place places[] = {
    {"KEST_USER_HOME", "machines.kest", "the user's"},
    {"KEST_HOME", "shared/mpi/machines.kest", "the installation's"},
};

QString candidate(const Place& place)
{
    return QDir::toNativeSeparators(
        QDir(qEnvironmentVariable(place.variable)).filePath(QLatin1String(place.path)));
}

QString findingText(const MachinesFile::Finding& finding)
{
    const QString where =
        finding.line > 0 ? QStringLiteral("line %1, ").arg(finding.line) : QString();
    const QString what = finding.text.isEmpty() ? QString() : finding.text + QLatin1String(": ");
    return QStringLiteral("%1%2: %3%4")
        .arg(where, QLatin1String(look(finding.severity).name), what, finding.reason);
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

MachinesReport::MachinesReport()
{
    if (m_finder.isValid()) {
        m_file = MachinesFile::read(m_finder.getMachineFileInfo()->absoluteFilePath());
    }
}

void MachinesReport::write(Terminal& terminal) const
{
    if (!isFound()) {
        writeSearch(terminal);
        return;
    }
    const Place& place = places[m_finder.isLocalFile() ? 0 : 1];
    terminal.writeLine(
        QStringLiteral("%1 (%2, in %3)")
            .arg(QDir::toNativeSeparators(m_finder.getMachineFileInfo()->absoluteFilePath()),
                 QLatin1String(place.owner), QLatin1String(place.variable)));
    writeEntries(terminal);
    terminal.writeLine(m_finder.getProcesses() < 0
                           ? QStringLiteral("in all: no processes")
                           : QStringLiteral("in all: %1 processes, hosts: %2")
                                 .arg(m_finder.getProcesses())
                                 .arg(m_file.hosts().size()));
    writeFindings(m_file, terminal);
}

void MachinesReport::writeSearch(Terminal& terminal) const
{
    terminal.writeLine(QStringLiteral("There is no machines file. Looked for:"),
                       Terminal::Colour::Red);
    for (const Place& place : places) {
        terminal.writeLine(
            QStringLiteral("  %1 (%2, in %3)")
                .arg(candidate(place), QLatin1String(place.owner), QLatin1String(place.variable)));
    }
    terminal.writeLine(QStringLiteral("\"kestdesk machines edit\" makes the user's: a text file "
                                      "with a line \"host:count\" for each host;"));
    terminal.writeLine(QStringLiteral("\"kestdesk machines use-local\" makes one that names this "
                                      "machine."));
}

void MachinesReport::writeEntries(Terminal& terminal) const
{
    const QVector<MachinesFile::Entry> shown = m_file.entries().mid(0, shownEntries);
    int width = 0;
    for (const MachinesFile::Entry& entry : shown) {
        width = std::max(width, std::min(withBrackets(entry.host).size(), widestHost));
    }
    for (const MachinesFile::Entry& entry : shown) {
        terminal.writeLine(
            QStringLiteral("  %1  %2").arg(withBrackets(entry.host), -width).arg(entry.count, 4));
    }
    if (m_file.entryCount() > shown.size()) {
        terminal.writeLine(
            QStringLiteral("  ... and %1 lines more").arg(m_file.entryCount() - shown.size()));
    }
}

// Errors come first where there is not room for all.
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
            terminal.writeLine(QStringLiteral("... and %1 more of kind \"%2\"")
                                   .arg(more)
                                   .arg(QLatin1String(look(severity).name)),
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
    const QString path = m_finder.getMachineFileInfo()->absoluteFilePath();
    const QJsonObject report{
        {QStringLiteral("file"), isFound() ? QJsonValue(path) : QJsonValue()},
        {QStringLiteral("foundIn"),
         isFound() ? QJsonValue(QLatin1String(places[m_finder.isLocalFile() ? 0 : 1].variable))
                   : QJsonValue()},
        {QStringLiteral("candidates"), candidates},
        {QStringLiteral("processes"), m_finder.getProcesses()},
        {QStringLiteral("hosts"), m_file.hosts().size()},
        {QStringLiteral("entries"), entriesJson(m_file)},
        {QStringLiteral("findings"), findingsJson(m_file)},
        {QStringLiteral("findingCounts"), countsJson(m_file)},
    };
    return QJsonDocument(report).toJson();
}
