// SPDX-License-Identifier: MIT
#pragma once

#include "CheckedPiece.h"
#include "OutputSummary.h"
#include "SolverLines.h"

class OutputReport;

/// Checks a component's output while it is read, in a constant amount of memory.
class OutputCheck
{
public:
    /// The report must outlive this.
    explicit OutputCheck(OutputReport& report);

    OutputCheck(const OutputCheck&) = delete;
    OutputCheck& operator=(const OutputCheck&) = delete;

    void add(const QByteArray& bytes);

    /// At the end of the output.
    void finish();

    const OutputSummary& summary() const { return m_summary; }

private:
    void check(const SolverPiece& piece);
    void count(const CheckedPiece& checked);
    void checkOrder(CheckedPiece& checked);
    void checkPhase(CheckedPiece& checked, int percentage);
    void checkTotal(CheckedPiece& checked, int percentage);
    void checkVariable(CheckedPiece& checked);
    void checkRest();
    void checkTotalAtEnd();
    void remark(const Remark& remark);

    OutputReport& m_report;
    SolverLines m_lines;
    OutputSummary m_summary;
    OutputSummary m_beforeLine;
    QString m_endBefore; ///< of the piece before, in the same line
};
