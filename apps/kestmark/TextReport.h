// SPDX-License-Identifier: MIT
#pragma once

#include "StreamReport.h"

#include <QString>

/// A check in lines for a person to read.
class TextReport : public StreamReport
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
};
