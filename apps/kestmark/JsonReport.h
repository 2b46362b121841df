// SPDX-License-Identifier: MIT
#pragma once

#include "OutputReport.h"
#include "ReportStyle.h"

#include <QJsonArray>
#include <QJsonObject>

#include <cstdio>

/// A check as one JSON object, written while the output is read: "lines", an array, then "remarks",
/// those about the whole output, and "summary"; "problem" when the output could not be read.
class JsonReport : public OutputReport
{
public:
    /// The stream is not owned.
    JsonReport(std::FILE* stream, ReportStyle style);

    void add(const CheckedPiece& piece) override;
    void add(const Remark& remark) override;
    void finish(const OutputSummary& summary) override;
    void fail(const QString& problem) override;

private:
    void end(const QJsonObject& last);
    void write(const QByteArray& bytes);

    std::FILE* m_stream;
    ReportStyle m_style;
    bool m_isFirst = true;
    QJsonArray m_remarks;
};
