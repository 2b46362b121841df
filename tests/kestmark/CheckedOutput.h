// SPDX-License-Identifier: MIT
#pragma once

#include <CheckedPiece.h>
#include <OutputCheck.h>
#include <OutputReport.h>

#include <QByteArray>
#include <QStringList>

/// Keeps what a check reports.
class CheckedOutput : public OutputReport
{
public:
    /// Of the whole output; it is passed on in pieces of that many bytes, all at once with 0.
    static CheckedOutput of(const QByteArray& output, int pieceSize = 0)
    {
        CheckedOutput result;
        OutputCheck check(result);
        const int size = pieceSize > 0 ? pieceSize : qMax(1, output.size());
        for (int begin = 0; begin < output.size(); begin += size) {
            check.add(output.mid(begin, size));
        }
        check.finish();
        return result;
    }

    void add(const CheckedPiece& piece) override { pieces.append(piece); }
    void add(const Remark& remark) override { remarks.append(remark); }
    void finish(const OutputSummary& last) override { summary = last; }
    void fail(const QString& problem) override { problems.append(problem); }

    /// The words of the remarks about pieces.
    QStringList pieceRemarks() const
    {
        QStringList result;
        for (const CheckedPiece& piece : pieces) {
            for (const Remark& remark : piece.remarks) {
                result.append(remark.word());
            }
        }
        return result;
    }

    /// The words of the remarks about the whole.
    QStringList otherRemarks() const
    {
        QStringList result;
        for (const Remark& remark : remarks) {
            result.append(remark.word());
        }
        return result;
    }

    QVector<CheckedPiece> pieces;
    QVector<Remark> remarks;
    OutputSummary summary;
    QStringList problems;
};
