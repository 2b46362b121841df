// SPDX-License-Identifier: MIT
#include "FindingPrinter.h"

#include "MarkerPrinter.h"
#include "PlainText.h"

#include <utility>

namespace suite {

FindingPrinter::FindingPrinter(MarkerPrinter& printer, QString subject)
    : m_printer(printer), m_subject(std::move(subject))
{}

QString FindingPrinter::head(FindingKind notice)
{
    return QStringLiteral("NOTE %1: ").arg(Finding{notice, 0, QString()}.number());
}

void FindingPrinter::print(const Finding& finding)
{
    switch (finding.severity()) {
    case Severity::Fatal:
    case Severity::Error:
        m_printer.print(Marker::Error, errorText(finding));
        break;
    case Severity::Warning:
        m_printer.print(Marker::Warning, remarkText(finding, QStringLiteral("WARNING")));
        break;
    case Severity::Notice:
        m_printer.print(Marker::Notice, remarkText(finding, QStringLiteral("NOTE")));
        break;
    }
}

void FindingPrinter::print(const FindingList& findings)
{
    const auto sorted = findings.sorted();
    for (const Finding& finding : sorted) {
        print(finding);
    }
}

void FindingPrinter::print(FindingKind kind, const QStringList& parts)
{
    FindingList one;
    one.add(kind, 0, parts);
    print(one);
}

QString FindingPrinter::errorText(const Finding& finding) const
{
    const QString subject = finding.line == 0 ? m_subject + QStringLiteral(": ") : QString();
    return QStringLiteral("ERROR %1: ").arg(finding.number()) + subject + reasonAndPlace(finding);
}

// The reader of warnings and notices takes the text behind the last colon: there is exactly one.
QString FindingPrinter::remarkText(const Finding& finding, const QString& word) const
{
    return word + QStringLiteral(" %1: ").arg(finding.number()) + reasonAndPlace(finding);
}

QString FindingPrinter::reasonAndPlace(const Finding& finding) const
{
    return finding.place(m_subject).behind(withoutColons(finding.reason));
}

} // namespace suite
