// SPDX-License-Identifier: MIT
#include "MachinesFile.h"

#include "HostName.h"

#include <InputFile.h>

#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QRegularExpression>

#include <algorithm>
#include <climits>

namespace suite {

namespace {

constexpr int longestText = 60;     // bytes of a line that a finding shows
constexpr int longestList = 100000; // bytes; a word of a command line holds 128 KB
constexpr int mostSentences = 10;

struct Encoding
{
    QByteArray mark;
    bool isText;
    const char* reason;
};

const Encoding encodings[] = {
    {QByteArrayLiteral("\xef\xbb\xbf"), true,
     "the file begins with a byte order mark, which other programs take for a part of the host"},
    {QByteArrayLiteral("\xff\xfe"), false, "the file is in UTF-16; save it as plain text"},
    {QByteArrayLiteral("\xfe\xff"), false, "the file is in UTF-16; save it as plain text"},
};

QString cut(std::string_view text)
{
    const std::string_view shown = text.substr(0, longestText);
    return QString::fromUtf8(shown.data(), static_cast<int>(shown.size())) +
           (shown.size() < text.size() ? QStringLiteral("...") : QString());
}

int sum(int left, int right)
{
    return std::min(left, INT_MAX - right) + right;
}

QString readingProblem(const InputFile& file, const QString& path)
{
    const bool isMissing =
        file.problem() == InputFile::Problem::Missing && !QFileInfo(path).isSymLink();
    if (isMissing) {
        return QStringLiteral("it does not exist");
    }
    switch (file.problem()) {
    case InputFile::Problem::Folder:
    case InputFile::Problem::NotRegular:
    case InputFile::Problem::TooLarge:
        return file.reason();
    default:
        return QStringLiteral("it cannot be read: ") + file.reason();
    }
}

// A front end hands over a copy, whose name says nothing to the user: it was made of the user's
// file, which is beside it, or else of the installation's.
QString shownName(const QString& path)
{
    static const QRegularExpression copyName(QStringLiteral("\\Agui_tmp_machfile_[0-9]{1,3}\\z"));
    const QFileInfo info(path);
    if (!copyName.match(info.fileName()).hasMatch()) {
        return info.fileName();
    }
    const QString own = info.dir().filePath(QStringLiteral("machines.kest"));
    return QDir::toNativeSeparators(QFileInfo::exists(own)
                                        ? own
                                        : qEnvironmentVariable("KEST_HOME") +
                                              QStringLiteral("/shared/mpi/machines.kest"));
}

QString sentence(const QString& name, const MachinesFile::Finding& finding)
{
    if (finding.line == 0) {
        const int subject = finding.reason.indexOf(QLatin1Char(' ')); // behind "it"
        return QStringLiteral("the machines file '%1'%2").arg(name, finding.reason.mid(subject));
    }
    return finding.text.isEmpty()
               ? QStringLiteral("the machines file '%1' has an error in line %2, %3")
                     .arg(name, QString::number(finding.line), finding.reason)
               : QStringLiteral("the machines file '%1' has in line %2 '%3', %4")
                     .arg(name, QString::number(finding.line), finding.text, finding.reason);
}

} // namespace

/// Fills a file from its content.
class MachinesFile::Reader
{
public:
    explicit Reader(MachinesFile& file) : m_file(file) {}

    void read(const QByteArray& content);
    void add(Severity severity, int line, std::string_view text, const QString& reason);

private:
    void readEncoding(const QByteArray& content);
    void readLine(std::string_view line);
    void addEntry(const MachinesLine& line);
    void checkWhole();

    MachinesFile& m_file;
    QHash<QByteArray, int> m_places; ///< of hosts, by their names in lower case
    int m_line = 0;
    bool m_hasCarriageReturns = false;
};

void MachinesFile::Reader::read(const QByteArray& content)
{
    readEncoding(content);
    if (!m_file.m_isText) {
        return;
    }
    std::string_view rest(content.constData(), static_cast<size_t>(content.size()));
    rest.remove_prefix(content.startsWith(encodings[0].mark) ? encodings[0].mark.size() : 0);
    while (!rest.empty()) {
        const size_t end = std::min(rest.find('\n'), rest.size());
        ++m_line;
        readLine(rest.substr(0, end));
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    checkWhole();
}

void MachinesFile::Reader::readEncoding(const QByteArray& content)
{
    for (const Encoding& encoding : encodings) {
        if (content.startsWith(encoding.mark)) {
            m_file.m_isText = encoding.isText;
            add(encoding.isText ? Severity::Warning : Severity::Error, 1, {},
                QLatin1String(encoding.reason));
        }
    }
    const int nul = content.indexOf('\0');
    if (nul >= 0 && m_file.m_isText) {
        m_file.m_isText = false;
        add(Severity::Error,
            static_cast<int>(std::count(content.cbegin(), content.cbegin() + nul, '\n')) + 1, {},
            QStringLiteral("a NUL byte, so this is not a text file"));
    }
}

void MachinesFile::Reader::readLine(std::string_view line)
{
    if (!m_hasCarriageReturns && !line.empty() && line.back() == '\r') {
        m_hasCarriageReturns = true;
        add(Severity::Note, m_line, {},
            QStringLiteral("lines end as on Windows, with a carriage return"));
    }
    const MachinesLine parsed = MachinesLine::parse(line);
    if (!parsed.error.isEmpty()) {
        add(Severity::Error, m_line, parsed.text, parsed.error);
    } else if (!parsed.host.empty()) {
        addEntry(parsed);
    }
}

void MachinesFile::Reader::addEntry(const MachinesLine& line)
{
    Entry entry{QString::fromLatin1(line.host.data(), static_cast<int>(line.host.size())),
                line.count, m_line};
    m_file.m_total = sum(m_file.m_total, line.count);
    const QByteArray key =
        QByteArray(line.host.data(), static_cast<int>(line.host.size())).toLower();
    const auto place = m_places.constFind(key);
    if (place == m_places.constEnd()) {
        m_places.insert(key, m_file.m_hosts.size());
        m_file.m_hosts.append(entry);
    } else {
        Entry& first = m_file.m_hosts[*place];
        first.count = sum(first.count, line.count);
        add(Severity::Warning, m_line, line.text,
            QStringLiteral("the host stands in line %1 already").arg(first.line));
    }
    if (HostName::isAddress(entry.host)) {
        add(Severity::Warning, m_line, line.text,
            QStringLiteral("the processes of an address in brackets are left out of the total, and "
                           "a parallel run needs a name instead"));
    }
    if (m_file.m_entryCount++ < mostEntries) {
        m_file.m_entries.append(entry);
    }
}

void MachinesFile::Reader::checkWhole()
{
    m_file.m_namesNoHost = m_file.m_entries.isEmpty() && m_file.isValid();
    QString problem;
    if (m_file.m_namesNoHost) {
        problem = QStringLiteral("it names no host");
    } else if (m_file.total() > mostProcesses) {
        problem = QStringLiteral("it counts %1 processes and the limit is %2")
                      .arg(m_file.total())
                      .arg(mostProcesses);
    } else if (m_file.plainContent().size() > longestList) {
        problem = QStringLiteral("it has names of more than %1 bytes").arg(longestList);
    }
    if (!problem.isEmpty()) {
        add(Severity::Error, 0, {}, problem);
    }
}

void MachinesFile::Reader::add(Severity severity, int line, std::string_view text,
                               const QString& reason)
{
    if (m_file.m_counts[static_cast<int>(severity)]++ < mostFindings) {
        m_file.m_findings.append({line, severity, cut(text), reason});
    }
}

MachinesFile MachinesFile::read(const QString& path)
{
    InputFile file(path);
    const std::optional<QByteArray> content = file.read(largestFile);
    if (content) {
        return parse(*content, shownName(path));
    }
    MachinesFile result;
    result.m_name = path;
    Reader(result).add(Severity::Error, 0, {}, readingProblem(file, path));
    return result;
}

MachinesFile MachinesFile::parse(const QByteArray& content, const QString& name)
{
    MachinesFile result;
    result.m_name = name;
    Reader(result).read(content);
    return result;
}

MachinesFile MachinesFile::ofHost(const QString& host, int count)
{
    MachinesFile result;
    result.m_entries = {{host, count, 1}};
    result.m_entryCount = 1;
    result.m_hosts = result.m_entries;
    result.m_total = count;
    return result;
}

QStringList MachinesFile::errors() const
{
    QStringList result;
    for (const Finding& finding : m_findings) {
        if (finding.severity == Severity::Error && result.size() < mostSentences) {
            result.append(sentence(m_name, finding));
        }
    }
    if (m_namesNoHost) {
        result.last() += QStringLiteral(", add a line such as 'localhost:2' for this machine");
    }
    return result;
}

QString MachinesFile::hostOf(int rank) const
{
    int place = m_total > 0 ? rank % m_total : 0;
    for (const Entry& entry : m_hosts) {
        place -= entry.count;
        if (place < 0) {
            return entry.host;
        }
    }
    return {};
}

QByteArray MachinesFile::plainContent() const
{
    QByteArray result;
    for (const Entry& entry : m_hosts) {
        result += HostName::withBrackets(entry.host).toLatin1() + ':' +
                  QByteArray::number(entry.count) + '\n';
    }
    return result;
}

QString MachinesFile::hostList() const
{
    return QString::fromLatin1(plainContent().trimmed().replace('\n', ','));
}

} // namespace suite
