#include "MachinesFile.h"

#include "PlainText.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <limits>

namespace suite {

namespace {

constexpr int MostErrors = 20;
constexpr int LongestLine = 1024;
constexpr qint64 LargestFile = 16 << 20;
constexpr int MostProcesses = 100000; // of one host

} // namespace

MachinesFile::MachinesFile(const QString& path)
{
    QFile file(path);
    const QFileInfo info(path);
    if (info.exists() && !info.isFile()) {
        m_errors.append(QStringLiteral("the machines file '%1' is no file").arg(excerpt(path)));
        return;
    }
    if (!file.open(QIODevice::ReadOnly)) {
        m_errors.append(QStringLiteral("the machines file '%1' cannot be read, %2")
                            .arg(excerpt(path), file.errorString()));
        return;
    }
    const QByteArray bytes = file.read(LargestFile + 1);
    if (bytes.size() > LargestFile) {
        m_errors.append(QStringLiteral("the machines file '%1' is too large").arg(excerpt(path)));
        return;
    }
    int number = 0;
    const QList<QByteArray> lines = bytes.split('\n');
    for (const QByteArray& line : lines) {
        readLine(line, ++number);
    }
    if (m_entries.isEmpty() && m_errors.isEmpty()) {
        m_errors.append(QStringLiteral("the machines file '%1' names no host").arg(excerpt(path)));
    }
}

int MachinesFile::total() const
{
    qint64 sum = 0;
    for (const Entry& entry : m_entries) {
        sum += entry.count;
    }
    return static_cast<int>(qMin(sum, qint64(std::numeric_limits<int>::max())));
}

void MachinesFile::readLine(const QByteArray& line, int number)
{
    static const QRegularExpression pattern(
        QStringLiteral("\\A(\\[[0-9A-Fa-f:.]+\\]|[A-Za-z0-9._][A-Za-z0-9._-]*)(:([0-9]+))?\\z"));
    const QByteArray content = line.trimmed();
    if (content.isEmpty() || content.startsWith('#')) {
        return;
    }
    if (content.size() > LongestLine) {
        complain(number, QStringLiteral("is too long"));
        return;
    }
    const QString text = QString::fromUtf8(content);
    const QRegularExpressionMatch match = pattern.match(text);
    if (!match.hasMatch()) {
        complain(number, QStringLiteral("is not host:count but '%1'").arg(excerpt(text)));
        return;
    }
    Entry entry;
    entry.host = match.captured(1);
    const QString count = match.captured(3);
    bool isCount = true;
    entry.count = count.isEmpty() ? 1 : count.toInt(&isCount);
    if (!isCount || entry.count < 1 || entry.count > MostProcesses) {
        complain(number, QStringLiteral("has the count %1, which must be from 1 to %2")
                             .arg(excerpt(count))
                             .arg(MostProcesses));
        return;
    }
    m_entries.append(entry);
}

void MachinesFile::complain(int line, const QString& problem)
{
    if (m_errors.size() < MostErrors) {
        m_errors.append(QStringLiteral("line %1 of the machines file %2").arg(line).arg(problem));
    }
}

} // namespace suite
