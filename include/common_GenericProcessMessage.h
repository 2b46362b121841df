// SPDX-License-Identifier: MIT
#pragma once

#include <common_IProcessMessage.h>
#include <kest_common_export.h>

#include <QString>
#include <QVector>

/// A line of a program that prints no markers: output from standard output, an error from standard
/// error.
///
/// Its text keeps ASCII characters only; see parse(). For programs that print other characters,
/// give common_ProcessRunner a message class of your own, or common_KestProcessMessage.
///
/// A value class. Has the static parseOutput() and parseError() that common_ProcessRunner needs.
class KEST_COMMON_EXPORT common_GenericProcessMessage : public common_IProcessMessage
{
public:
    /// Empty text of type Output.
    common_GenericProcessMessage() = default;
    /// The text is kept as it is.
    common_GenericProcessMessage(Type type, const QString& text);

    /// The line, trimmed by the parser.
    QString getText() const override;
    /// Output or Error, by the channel, in parsed messages.
    Type getType() const override;

    /// Exactly one message of the type, also for an empty text. Carriage returns and line feeds are
    /// removed, and white space is trimmed at both ends. Characters that are not ASCII are lost:
    /// they become "?" or the Unicode replacement character.
    static QVector<common_GenericProcessMessage> parse(Type type, const QString& text);

    /// parse() as Output.
    static QVector<common_GenericProcessMessage> parseOutput(const QString& text);

    /// parse() as Error.
    static QVector<common_GenericProcessMessage> parseError(const QString& text);

private:
    QString m_text;
    Type m_type = Output;
};
