#include "IterationMessage.h"

#include <QRegularExpression>

namespace {

// 0 to 100; -1 when the line is not about an iteration.
int percentageOf(const QString& text)
{
    static const QRegularExpression iteration(
        QStringLiteral("^iteration (\\d{1,6}) of (\\d{1,6})\\b"));
    const QRegularExpressionMatch match = iteration.match(text);
    const int total = match.captured(2).toInt();
    return total > 0 ? qBound(0, match.captured(1).toInt() * 100 / total, 100) : -1;
}

} // namespace

IterationMessage::IterationMessage(Type type, const QString& text) : m_type(type), m_text(text)
{}

QString IterationMessage::getText() const
{
    return m_text;
}

common_IProcessMessage::Type IterationMessage::getType() const
{
    return m_type;
}

// The line still has its line end.
QVector<IterationMessage> IterationMessage::parseOutput(const QString& line)
{
    const QString text = line.trimmed();
    if (text.startsWith(QLatin1String("warning: "))) {
        return {IterationMessage(Warning, text.mid(9))};
    }
    QVector<IterationMessage> messages = {IterationMessage(Output, text)};
    const int percentage = percentageOf(text);
    if (percentage >= 0) {
        messages.append(IterationMessage(TotalPercentage, QString::number(percentage)));
    }
    return messages;
}

QVector<IterationMessage> IterationMessage::parseError(const QString& line)
{
    return {IterationMessage(Error, line.trimmed())};
}
