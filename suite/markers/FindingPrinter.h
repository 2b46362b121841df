// SPDX-License-Identifier: MIT
#pragma once

#include "Finding.h"

namespace suite {

class MarkerPrinter;

/// Prints findings about one subject (the model's file name, or the program's own name). Findings
/// at a line end with the place; other errors begin with the subject.
class FindingPrinter
{
public:
    FindingPrinter(MarkerPrinter& printer, QString subject);

    /// The beginning of each notice of a kind: "NOTE 301: ".
    static QString head(FindingKind notice);

    void print(const Finding& finding);
    void print(const FindingList& findings);

    /// Prints one finding that belongs to no line.
    void print(FindingKind kind, const QStringList& parts = QStringList());

private:
    [[nodiscard]] QString errorText(const Finding& finding) const;
    [[nodiscard]] QString reasonAndPlace(const Finding& finding) const;
    [[nodiscard]] QString remarkText(const Finding& finding, const QString& word) const;

    MarkerPrinter& m_printer;
    QString m_subject;
};

} // namespace suite
