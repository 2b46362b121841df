// SPDX-License-Identifier: MIT
#include "RunNumbers.h"

#include <PlainText.h>

#include <QCoreApplication>

#include <utility>

namespace {

/// Translates the texts of this file.
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(RunNumbers)
};

} // namespace

RunNumbers::RunNumbers(RunArchive archive) : m_archive(std::move(archive))
{}

std::optional<int> RunNumbers::parse(const QString& word)
{
    m_isInvalidWord = false;
    if (word == QLatin1String("last")) {
        const QVector<int> all = m_archive.numbers();
        m_problem = Texts::tr("no runs are recorded");
        return all.isEmpty() ? std::nullopt : std::optional(all.constLast());
    }
    bool isNumber = false;
    const int number = word.toInt(&isNumber);
    m_isInvalidWord = !isNumber || number < 1;
    m_problem =
        Texts::tr(R"("%1" is neither the number of a run nor "last")").arg(suite::excerpt(word));
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
        isThere ? Texts::tr("the record of run %1 in %2 cannot be read")
                      .arg(*number)
                      .arg(m_archive.folder())
                : Texts::tr("there is no run %1; \"kestdesk runs list\" shows all").arg(*number);
    return found;
}
