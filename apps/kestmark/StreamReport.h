// SPDX-License-Identifier: MIT
#pragma once

#include "OutputReport.h"
#include "ReportStyle.h"

#include <QByteArray>

#include <cstdio>

/// A report that is written while the output is read.
class StreamReport : public OutputReport
{
protected:
    /// The stream is not owned.
    StreamReport(std::FILE* stream, ReportStyle style);

    /// Whether the style leaves the piece out.
    bool isLeftOut(const CheckedPiece& piece) const;

    void write(const QByteArray& bytes);

    /// Hands over to readers what was written.
    void flush();

private:
    std::FILE* m_stream;
    ReportStyle m_style;
};
