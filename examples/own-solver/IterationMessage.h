#pragma once

#include <common_IProcessMessage.h>

#include <QString>
#include <QVector>

/// A message of an iterative solver that knows no markers.
///
/// It prints "iteration 3 of 12 ..." and "warning: ..." on standard output, and errors on standard
/// error. parseOutput() and parseError() are what common_ProcessRunner needs.
class IterationMessage : public common_IProcessMessage
{
public:
    IterationMessage() = default; // QVector needs it
    IterationMessage(Type type, const QString& text);

    QString getText() const override;
    Type getType() const override;

    /// A line is its text; an iteration comes with the percentage that is done by then.
    static QVector<IterationMessage> parseOutput(const QString& line);
    static QVector<IterationMessage> parseError(const QString& line);

private:
    Type m_type = Output;
    QString m_text;
};
