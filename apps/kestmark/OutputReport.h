// SPDX-License-Identifier: MIT
#pragma once

class QString;
struct CheckedPiece;
struct OutputSummary;
struct Remark;

/// Shows what a check finds, while it is found.
class OutputReport
{
public:
    virtual ~OutputReport() = default;

    virtual void add(const CheckedPiece& piece) = 0;

    /// Remarks that concern the whole output.
    virtual void add(const Remark& remark) = 0;

    /// At the end of the output.
    virtual void finish(const OutputSummary& summary) = 0;

    /// In place of finish(), when the output could not be read to its end.
    virtual void fail(const QString& problem) = 0;
};
