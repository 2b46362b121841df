// SPDX-License-Identifier: MIT
#pragma once

#include <common_IProcessMessage.h>
#include <kest_common_export.h>

#include <QString>
#include <QVector>

/// A piece of a solver component's output, decoded from the markers that the components print.
///
/// A marker is "-*-", lowercase letters with at most one "-" among them, and "-*-" again; the text
/// up to the next marker is its body:
///
///     -*-error-*-             Error, the body as it is
///     -*-warning-*-           Warning, the body as it is
///     -*-notice-*-            Notice, the body as it is
///     -*-percentage-*-        Percentage, the number in front of the first "%" (its last 3 digits)
///     -*-total-percentage-*-  TotalPercentage, the same
///     -*-file-*-              File, the body trimmed
///     -*-variable-*-          Variable, the body trimmed
///     -*-linefeed-*-          LineFeed, no text
///     any other               Output, the body as it is
///
/// Without a "%" the whole body is the number of a percentage; what is not a number is 0.
///
/// A value class. Has the static parseOutput() and parseError() that common_ProcessRunner needs.
class KEST_COMMON_EXPORT common_KestProcessMessage : public common_IProcessMessage
{
public:
    /// Empty text of type Output.
    common_KestProcessMessage() = default;
    /// The text is kept as it is.
    common_KestProcessMessage(Type type, const QString& text);

    /// The body of the marker; of a percentage, a decimal integer.
    QString getText() const override;
    /// The type that the marker stands for.
    Type getType() const override;

    /// The messages in one chunk, which is one line or one piece of a long line. Never fails.
    ///
    /// Line ends are removed first. A blank chunk holds no message; one without a marker is one
    /// Output message, not trimmed. Text in front of the first marker is dropped. A marker without
    /// a body repeats the nearest body before it in the chunk. Each chunk is parsed by itself, so a
    /// marker that is cut between two chunks is not recognised. Six texts that the parallel runtime
    /// prints when it closes its sockets are removed; the text around them stays, and a chunk that
    /// contained nothing else is one empty Output message.
    static QVector<common_KestProcessMessage> parseOutput(const QString& text);

    /// The same as parseOutput(): components mark their errors themselves, on either channel.
    static QVector<common_KestProcessMessage> parseError(const QString& text);

private:
    static QString removeBogusParallelRunErrors(QString text);

    QString m_text;
    Type m_type = Output;
};
