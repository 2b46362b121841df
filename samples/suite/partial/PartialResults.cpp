// SPDX-License-Identifier: MIT
#include "PartialResults.h"

#include "PartialRow.h"

#include <QFileInfo>

namespace suite {

namespace {

constexpr int headerLines = 5;

// Longest line of the header.
constexpr qint64 longestHeaderLine = 1000;

} // namespace

PartialResults::PartialResults(const QString& path, const SweepDeck& deck)
    : m_deck(deck), m_header(deck), m_file(path)
{}

FindingList PartialResults::begin()
{
    FindingList findings;
    if (!m_file.exists()) {
        return findings;
    }
    const QString difference = problemOfFile();
    if (!m_file.isOpen()) {
        return notKept(QStringLiteral("'%1' cannot be used, %2").arg(name(), difference));
    }
    findings.add(FindingKind::PartialReplaced, 0,
                 {name(), difference.isEmpty() ? QStringLiteral("--resume would take them over")
                                               : difference});
    return findings;
}

FindingList PartialResults::resume()
{
    FindingList findings;
    if (!m_file.exists()) {
        findings.add(FindingKind::NothingToResume, 0, {name()});
        return findings;
    }
    const QString problem = problemOfFile();
    if (!problem.isEmpty()) {
        findings.add(FindingKind::ResumeRefused, 0, {name(), problem});
        return findings;
    }
    m_isContinued = true;
    readRows();
    findings.add(FindingKind::PartialTakenOver, 0,
                 {QString::number(m_count), QString::number(m_deck.count()), name()});
    if (m_damaged > 0) {
        findings.add(FindingKind::PartialDamaged, 0, {QString::number(m_damaged), name()});
    }
    return findings;
}

// Why the rows of the file do not belong to this sweep; empty if they do. Leaves the file open if
// it is a file of partial results.
QString PartialResults::problemOfFile()
{
    if (!m_file.open()) {
        return m_file.error();
    }
    QFile file(path());
    const QByteArray header = file.open(QIODevice::ReadOnly) ? readHeader(file) : QByteArray();
    if (!PartialHeader::isPartial(header)) {
        m_file.close();
    }
    return m_header.differenceTo(header);
}

QByteArray PartialResults::readHeader(QFile& file)
{
    QByteArray result;
    for (int line = 0; line < headerLines; ++line) {
        result += file.readLine(longestHeaderLine);
    }
    return result;
}

void PartialResults::readRows()
{
    QFile file(path());
    qint64 place = file.open(QIODevice::ReadOnly) ? readHeader(file).size() : 0;
    while (file.isOpen() && !file.atEnd()) {
        const QByteArray line = file.readLine();
        const std::optional<PartialRow> row = PartialRow::parse(line);
        if (row && isFrequency(row->index)) {
            m_rows.emplace(row->index, place);
        } else {
            ++m_damaged;
        }
        place += line.size();
    }
    m_count = static_cast<int>(m_rows.size());
}

QVector<int> PartialResults::missing() const
{
    QVector<int> result;
    for (int index = 0; index < m_deck.count(); ++index) {
        if (m_rows.count(index) == 0) {
            result.append(index);
        }
    }
    return result;
}

std::optional<EngineOutput> PartialResults::takenOver(int index) const
{
    QFile file(path());
    if (!file.open(QIODevice::ReadOnly) || !file.seek(m_rows.at(index))) {
        return std::nullopt;
    }
    const std::optional<PartialRow> row = PartialRow::parse(file.readLine());
    return row && row->index == index ? std::make_optional(row->output()) : std::nullopt;
}

FindingList PartialResults::add(int index, const EngineOutput& output)
{
    if (!m_isKeeping) {
        return {};
    }
    const QByteArray line = PartialRow::line(index, m_deck.frequency(index), output);
    const bool isWritten =
        m_isContinued ? m_file.append(line) : m_file.replace(m_header.bytes() + line);
    if (!isWritten) {
        return notKept(QStringLiteral("'%1' cannot be written, %2").arg(name(), m_file.error()));
    }
    m_isContinued = true;
    ++m_count;
    return {};
}

FindingList PartialResults::kept() const
{
    FindingList findings;
    if (m_count > 0) {
        findings.add(FindingKind::PartialKept, 0,
                     {QString::number(m_count), QString::number(m_deck.count()), name()});
    }
    return findings;
}

void PartialResults::remove()
{
    m_file.remove();
}

QString PartialResults::name() const
{
    return QFileInfo(path()).fileName();
}

FindingList PartialResults::notKept(const QString& reason)
{
    m_isKeeping = false;
    FindingList findings;
    findings.add(FindingKind::PartialNotKept, 0, {reason});
    return findings;
}

} // namespace suite
