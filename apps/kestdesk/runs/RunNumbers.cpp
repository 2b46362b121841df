#include "RunNumbers.h"

#include <PlainText.h>

#include <utility>

RunNumbers::RunNumbers(RunArchive archive) : m_archive(std::move(archive))
{}

std::optional<int> RunNumbers::parse(const QString& word)
{
    m_isInvalidWord = false;
    if (word == QLatin1String("last")) {
        const QVector<int> all = m_archive.numbers();
        m_problem = QStringLiteral("no runs are recorded");
        return all.isEmpty() ? std::nullopt : std::optional(all.constLast());
    }
    bool isNumber = false;
    const int number = word.toInt(&isNumber);
    m_isInvalidWord = !isNumber || number < 1;
    m_problem = QStringLiteral("\"%1\" is neither the number of a run nor \"last\"")
                    .arg(suite::excerpt(word));
    return m_isInvalidWord ? std::nullopt : std::optional(number);
}

std::optional<RunRecord> RunNumbers::record(const QString& word)
{
    const std::optional<int> number = parse(word);
    if (!number) {
        return std::nullopt;
    }
    auto found = m_archive.record(*number);
    const bool isThere = m_archive.numbers().contains(*number);
    m_problem =
        isThere
            ? QStringLiteral("the record of run %1 in %2 cannot be read")
                  .arg(*number)
                  .arg(m_archive.folder())
            : QStringLiteral("there is no run %1; \"kestdesk runs list\" shows all").arg(*number);
    return found;
}
