// SPDX-License-Identifier: MIT
#pragma once

#include "OutputReport.h"
#include "ReportStyle.h"

#include <QString>

#include <cstdio>

/// A check in lines for a person to read.
class TextReport : public OutputReport
{
public:
    /// The stream is not owned.
    TextReport(std::FILE* stream, ReportStyle style);

    void add(const CheckedPiece& piece) override;
    void add(const Remark& remark) override;
    void finish(const OutputSummary& summary) override;
    void fail(const QString& problem) override;

private:
    void writeLine(const QString& text);

    std::FILE* m_stream;
    ReportStyle m_style;
};
