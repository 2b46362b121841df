// SPDX-License-Identifier: MIT
#include "HostList.h"

#include "HostName.h"

#include <QVector>

#include <optional>

namespace suite {

namespace {

constexpr int longestNumber = 9; // digits; an integer holds them

bool isDigits(const QString& text)
{
    for (const QChar character : text) {
        if (character < QLatin1Char('0') || character > QLatin1Char('9')) {
            return false;
        }
    }
    return !text.isEmpty() && text.size() <= longestNumber;
}

QString tooMany()
{
    return QStringLiteral("there are more than %1 hosts").arg(HostList::mostHosts);
}

/// Reads a list from its first character to its last, or to the first error.
class Reader
{
public:
    explicit Reader(const QString& text) : m_text(text) {}

    HostList read();

private:
    [[nodiscard]] bool isAt(char character) const
    {
        return m_place < m_text.size() && m_text.at(m_place) == QLatin1Char(character);
    }
    void readName();
    QStringList readBrackets();
    QStringList readRange(const QString& range);
    void append(QStringList& names, const QStringList& endings);
    QString readUntil(const char* ends);
    void checkNames(const QStringList& names);

    const QString& m_text;
    int m_place = 0;
    HostList m_result;
};

HostList Reader::read()
{
    do {
        readName();
    } while (m_result.error.isEmpty() && isAt(',') && ++m_place > 0);
    if (!m_result.error.isEmpty()) {
        m_result.hosts.clear();
    }
    return m_result;
}

// To the comma behind it, or to the end.
void Reader::readName()
{
    QStringList names = {QString()};
    do {
        append(names, {readUntil(",[]")});
        if (isAt('[')) {
            append(names, readBrackets());
        } else if (isAt(']')) {
            m_result.error = QStringLiteral("a \"]\" has no \"[\" before it");
        }
    } while (m_result.error.isEmpty() && m_place < m_text.size() && !isAt(','));
    if (m_result.error.isEmpty()) {
        checkNames(names);
        m_result.hosts += names;
    }
}

// The numbers between brackets.
QStringList Reader::readBrackets()
{
    QStringList numbers;
    do {
        ++m_place; // behind the bracket or the comma
        numbers += readRange(readUntil(",[]"));
        if (numbers.size() > HostList::mostHosts) {
            m_result.error = tooMany();
        }
    } while (m_result.error.isEmpty() && isAt(','));
    if (m_result.error.isEmpty() && !isAt(']')) {
        m_result.error = isAt('[') ? QStringLiteral("brackets stand within brackets")
                                   : QStringLiteral("a \"[\" has no \"]\" behind it");
    }
    ++m_place;
    return numbers;
}

// "7" or "01-03".
QStringList Reader::readRange(const QString& range)
{
    const QString first = range.section(QLatin1Char('-'), 0, 0);
    const QString last =
        range.contains(QLatin1Char('-')) ? range.section(QLatin1Char('-'), 1) : first;
    QStringList result;
    if (!isDigits(first) || !isDigits(last) || last.toInt() < first.toInt()) {
        m_result.error = QStringLiteral("\"%1\" is no number and no range such as \"01-12\"")
                             .arg(range.left(HostList::longestShown));
    } else if (last.toInt() - first.toInt() >= HostList::mostHosts) {
        m_result.error = tooMany();
    } else {
        for (int number = first.toInt(); number <= last.toInt(); ++number) {
            result.append(QStringLiteral("%1").arg(number, first.size(), 10, QLatin1Char('0')));
        }
    }
    return result;
}

// Each ending to each name.
void Reader::append(QStringList& names, const QStringList& endings)
{
    if (qint64(names.size()) * endings.size() + m_result.hosts.size() > HostList::mostHosts) {
        m_result.error = tooMany();
        return;
    }
    QStringList result;
    for (const QString& name : qAsConst(names)) {
        for (const QString& ending : endings) {
            result.append(name + ending);
        }
    }
    names = result;
}

QString Reader::readUntil(const char* ends)
{
    const QLatin1String endCharacters(ends);
    const int begin = m_place;
    while (m_place < m_text.size() && !endCharacters.contains(m_text.at(m_place))) {
        ++m_place;
    }
    return m_text.mid(begin, m_place - begin);
}

void Reader::checkNames(const QStringList& names)
{
    for (const QString& name : names) {
        m_result.error = HostName::isAddress(name)
                             ? QStringLiteral("\":\" is not allowed in the name of a host")
                             : HostName::error(name);
        if (!m_result.error.isEmpty()) {
            return;
        }
    }
}

} // namespace

HostList HostList::parse(const QString& text)
{
    return Reader(text).read();
}

} // namespace suite
