#include "MachinesFile.h"

#include "MachinesLine.h"

#include <InputFile.h>

#include <QFile>

#include <algorithm>

namespace {

constexpr int longestText = 60;
constexpr qint64 largestFile = 64 << 20; // bytes

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

QString cut(const QByteArray& text)
{
    return text.size() <= longestText
               ? QString::fromUtf8(text)
               : QString::fromUtf8(text.left(longestText)) + QStringLiteral("...");
}

} // namespace

QString MachinesFile::open(QFile& file)
{
    using Problem = suite::InputFile::Problem;
    suite::InputFile input(file.fileName());
    const bool isReadable = input.readStart(0).has_value();
    if (!isReadable && input.problem() != Problem::Missing &&
        input.problem() != Problem::Unreadable) {
        return input.reason();
    }
    if (file.size() > largestFile) {
        return QStringLiteral("it is larger than %1 MB").arg(largestFile >> 20);
    }
    return file.open(QIODevice::ReadOnly) ? QString() : file.errorString();
}

MachinesFile MachinesFile::read(const QString& fileName)
{
    QFile file(fileName);
    MachinesFile result;
    const QString error = open(file);
    if (!error.isEmpty()) {
        result.add(0, Severity::Error, {},
                   file.error() != QFile::NoError
                       ? QStringLiteral("it cannot be read: %1").arg(error)
                       : error);
        return result;
    }
    result = parse(file.readAll());
    if (file.error() != QFile::NoError) {
        result.add(0, Severity::Error, {},
                   QStringLiteral("it cannot be read whole: %1").arg(file.errorString()));
    }
    return result;
}

MachinesFile MachinesFile::parse(const QByteArray& content)
{
    MachinesFile result;
    if (!result.checkEncoding(content)) {
        return result;
    }
    result.addLines(content.startsWith(encodings[0].mark) ? content.mid(encodings[0].mark.size())
                                                          : content);
    result.m_namesNoHost = result.m_entries.isEmpty() && result.isRight();
    if (result.m_namesNoHost) {
        result.add(0, Severity::Error, {}, QStringLiteral("it names no host"));
    }
    return result;
}

// Whether the content is text at all.
bool MachinesFile::checkEncoding(const QByteArray& content)
{
    for (const Encoding& encoding : encodings) {
        if (content.startsWith(encoding.mark)) {
            add(1, encoding.isText ? Severity::Warning : Severity::Error, {},
                QLatin1String(encoding.reason));
            return encoding.isText;
        }
    }
    const int zero = content.indexOf('\0');
    if (zero >= 0) {
        add(static_cast<int>(std::count(content.cbegin(), content.cbegin() + zero, '\n')) + 1,
            Severity::Error, {}, QStringLiteral("a zero byte: this is no text file"));
    }
    return zero < 0;
}

void MachinesFile::addLines(const QByteArray& content)
{
    int number = 0;
    for (int begin = 0; begin < content.size();) {
        const int end = content.indexOf('\n', begin);
        const int length = (end < 0 ? content.size() : end) - begin;
        // Not copied: a line is looked at and forgotten.
        addLine(++number, QByteArray::fromRawData(content.constData() + begin, length));
        begin += length + 1;
    }
}

void MachinesFile::addLine(int number, const QByteArray& line)
{
    const bool windows = line.endsWith('\r');
    if (windows && !m_carriageReturnsTold) {
        m_carriageReturnsTold = true;
        add(number, Severity::Note, {},
            QStringLiteral("lines end as on Windows, with a carriage return"));
    }
    const MachinesLine parsed = MachinesLine::parse(line);
    if (!parsed.error.isEmpty()) {
        add(number, Severity::Error, line.trimmed(), parsed.error);
    } else if (!parsed.host.isEmpty()) {
        addEntry(number, line.trimmed(), parsed);
    }
}

void MachinesFile::addEntry(int number, const QByteArray& line, const MachinesLine& parsed)
{
    m_entries.append({number, QString::fromLatin1(parsed.host), parsed.processes});
    const QByteArray key = parsed.host.toLower();
    const int firstLine = m_firstLines.value(key, 0);
    if (firstLine > 0) {
        add(number, Severity::Warning, line,
            QStringLiteral("the host stands in line %1 already").arg(firstLine));
    } else {
        m_firstLines.insert(key, number);
    }
    if (parsed.host.startsWith('[')) {
        add(number, Severity::Warning, line,
            QStringLiteral("the processes of an address in brackets are left out of the total"));
    }
}

void MachinesFile::add(int line, Severity severity, const QByteArray& text, const QString& reason)
{
    if (m_counts[static_cast<int>(severity)]++ < mostFindings) {
        m_findings.append({line, severity, cut(text), reason});
    }
}
