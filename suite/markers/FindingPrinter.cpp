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
    const QString place =
        finding.line == 0 ? m_subject
                          : QStringLiteral("%1:%2").arg(m_subject, QString::number(finding.line));
    return QStringLiteral("ERROR %1: ").arg(finding.number()) + place + QStringLiteral(": ") +
           withoutColons(finding.reason);
}

// The reader of warnings and notices takes the text behind the last colon: there is exactly one.
QString FindingPrinter::remarkText(const Finding& finding, const QString& word) const
{
    const QString place = finding.line == 0 ? QString()
                                            : withoutColons(m_subject) +
                                                  QStringLiteral(" line %1, ").arg(finding.line);
    return word + QStringLiteral(" %1: ").arg(finding.number()) + place +
           withoutColons(finding.reason);
}

} // namespace suite
