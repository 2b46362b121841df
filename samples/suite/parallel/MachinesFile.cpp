#include "MachinesFile.h"

#include "PlainText.h"

#include <InputFile.h>

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>
#include <climits>

namespace suite {

namespace {

constexpr int mostErrors = 10;
const QByteArray byteOrderMark = QByteArrayLiteral("\xef\xbb\xbf");
constexpr int longestHost = 255;
constexpr int longestList = 100000; // bytes; a word of a command line holds 128 KB
constexpr int maxShown = 200;       // bytes
constexpr qint64 largestFile = 64 << 20;

bool isNameCharacter(QChar character)
{
    const char latin = character.toLatin1();
    return (latin >= 'a' && latin <= 'z') || (latin >= 'A' && latin <= 'Z') ||
           (latin >= '0' && latin <= '9') || latin == '.' || latin == '-' || latin == '_';
}

bool isAddressCharacter(QChar character)
{
    return isNameCharacter(character) || character == QLatin1Char(':');
}

// The two halves of a line: the host, without brackets, and the text of its count.
struct Halves
{
    QString host;
    QString count;
    bool isSplit = false;
};

Halves split(const QString& text)
{
    Halves result;
    if (text.startsWith(QLatin1Char('['))) {
        const int end = text.indexOf(QLatin1Char(']'));
        const QString behind = text.mid(end + 1);
        const bool isBracketed = end > 0 && text.leftRef(end).contains(QLatin1Char(':'));
        result.isSplit = isBracketed && (behind.isEmpty() || behind.startsWith(QLatin1Char(':')));
        result.host = text.mid(1, end - 1);
        result.count = behind.mid(1);
    } else {
        const int colon = text.indexOf(QLatin1Char(':'));
        result.isSplit = true;
        result.host = text.left(colon);
        result.count = colon < 0 ? QString() : text.mid(colon + 1);
    }
    result.host = result.host.trimmed();
    result.count = result.count.trimmed();
    return result;
}

// 0 when the text is no count.
int countOf(const QString& text)
{
    if (text.isEmpty()) {
        return 1;
    }
    const bool hasDigitsOnly = std::all_of(text.begin(), text.end(), [](QChar character) {
        return character >= QLatin1Char('0') && character <= QLatin1Char('9');
    });
    bool isNumber = false;
    const int count = hasDigitsOnly ? text.toInt(&isNumber) : 0;
    return isNumber && count <= MachinesFile::mostProcesses ? count : 0;
}

// What to call a file in messages. A front end hands over a copy, whose name says nothing to the
// user: it was made of the user's file, which is beside it, or else of the installation's.
QString nameOf(const QString& path)
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

} // namespace

MachinesFile::MachinesFile(const QString& path) : m_name(nameOf(path))
{
    InputFile file(path);
    const std::optional<QByteArray> content = file.read(largestFile);
    if (content) {
        readContent(*content);
        return;
    }
    const QString problem = file.problem() == InputFile::Problem::Missing
                                ? QStringLiteral("does not exist")
                                : QStringLiteral("cannot be read, ") + file.reason();
    m_errors.append(QStringLiteral("the machines file '%1' %2").arg(path, problem));
}

MachinesFile MachinesFile::parse(const QByteArray& content, const QString& name)
{
    MachinesFile result;
    result.m_name = name;
    result.readContent(content);
    return result;
}

void MachinesFile::readContent(const QByteArray& content)
{
    int number = 0;
    int start = content.startsWith(byteOrderMark) ? byteOrderMark.size() : 0;
    while (start < content.size() && m_errors.size() < mostErrors) {
        const int found = content.indexOf('\n', start);
        const int end = found < 0 ? content.size() : found;
        readLine(content.mid(start, end - start), ++number);
        start = end + 1;
    }
    if (!m_errors.isEmpty()) {
        return;
    }
    if (m_total > mostProcesses) {
        m_errors.append(
            QStringLiteral("the machines file '%1' counts %2 processes and the limit is %3")
                .arg(m_name)
                .arg(m_total)
                .arg(mostProcesses));
    } else if (plainContent().size() > longestList) {
        m_errors.append(QStringLiteral("the machines file '%1' has names of more than %2 bytes")
                            .arg(m_name)
                            .arg(longestList));
    } else if (m_entries.isEmpty()) {
        m_errors.append(QStringLiteral("the machines file '%1' names no host, add a line such as "
                                       "'localhost:2' for this machine")
                            .arg(m_name));
    }
}

MachinesFile MachinesFile::ofHost(const QString& host, int count)
{
    MachinesFile result;
    result.add({host, count});
    return result;
}

void MachinesFile::readLine(const QByteArray& line, int number)
{
    const int comment = line.indexOf('#');
    const QByteArray bytes = (comment < 0 ? line : line.left(comment)).trimmed();
    if (bytes.isEmpty()) {
        return;
    }
    if (bytes.contains('\0')) {
        complain(number, bytes, QStringLiteral("the file holds binary data"));
        return;
    }
    const Halves halves = split(QString::fromUtf8(bytes));
    const int count = countOf(halves.count);
    if (!halves.isSplit || !isHost(halves.host)) {
        complain(number, bytes, QStringLiteral("this is no host's name or address"));
    } else if (count == 0) {
        complain(number, bytes,
                 QStringLiteral("the number of processes must be 1 to %1").arg(mostProcesses));
    } else {
        add({halves.host, count});
    }
}

void MachinesFile::add(const Entry& entry)
{
    const auto place = m_places.constFind(entry.host);
    if (place == m_places.constEnd()) {
        m_places.insert(entry.host, m_entries.size());
        m_entries.append(entry);
    } else {
        m_entries[*place].count = qMin(m_entries.at(*place).count + entry.count, mostProcesses + 1);
    }
    m_total = qMin(m_total, INT_MAX - entry.count) + entry.count;
}

void MachinesFile::complain(int line, const QByteArray& text, const QString& reason)
{
    m_errors.append(QStringLiteral("the machines file '%1' has in line %2 '%3', %4")
                        .arg(m_name)
                        .arg(line)
                        .arg(excerpt(QString::fromUtf8(text.left(maxShown))), reason));
}

QString MachinesFile::hostOf(int rank) const
{
    int place = m_total > 0 ? rank % m_total : 0;
    for (const Entry& entry : m_entries) {
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
    for (const Entry& entry : m_entries) {
        const bool isAddress = entry.host.contains(QLatin1Char(':'));
        result += (isAddress ? '[' + entry.host.toLatin1() + ']' : entry.host.toLatin1()) + ':' +
                  QByteArray::number(entry.count) + '\n';
    }
    return result;
}

QString MachinesFile::hostList() const
{
    return QString::fromLatin1(plainContent().trimmed().replace('\n', ','));
}

bool MachinesFile::isHost(const QString& text)
{
    const bool isAddress = text.contains(QLatin1Char(':'));
    return !text.isEmpty() && text.size() <= longestHost && !text.startsWith(QLatin1Char('-')) &&
           std::all_of(text.begin(), text.end(), isAddress ? isAddressCharacter : isNameCharacter);
}

} // namespace suite
