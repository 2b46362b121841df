// SPDX-License-Identifier: MIT
#pragma once

#include "StreamReport.h"

#include <QJsonArray>
#include <QJsonObject>

/// A check as one JSON object, written while the output is read: "lines", an array, then "remarks",
/// those about the whole output, and "summary"; "problem" when the output could not be read.
class JsonReport : public StreamReport
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

    bool m_isFirst = true;
    QJsonArray m_remarks;
};
