// SPDX-License-Identifier: MIT
#include "TunedModel.h"

#include "Expression.h"

#include <QCryptographicHash>

TunedModel::TunedModel(const suite::Model& model) : m_bytes(model.deck.bytes)
{
    const suite::NamedValue& value = model.optimisation->value;
    m_value = {line(value.line).start + value.column, value.length};
    m_frequency = line(model.deck.cards.at(model.frequencyCard).line);
}

QByteArray TunedModel::withValue(double value) const
{
    QByteArray result = m_bytes;
    return result.replace(m_value.start, m_value.length, suite::plainNumber(value).toLatin1());
}

QByteArray TunedModel::withValueAndFrequency(double value, double frequency) const
{
    const QByteArray card = "FR 0 1 0 0 " + suite::plainNumber(frequency).toLatin1() + " 0";
    const QByteArray number = suite::plainNumber(value).toLatin1();
    QByteArray result = m_bytes;
    // The one further behind first: it does not move the other.
    if (m_frequency.start > m_value.start) {
        result.replace(m_frequency.start, m_frequency.length, card);
        result.replace(m_value.start, m_value.length, number);
    } else {
        result.replace(m_value.start, m_value.length, number);
        result.replace(m_frequency.start, m_frequency.length, card);
    }
    return result;
}

QByteArray TunedModel::fingerprint() const
{
    return QCryptographicHash::hash(m_bytes, QCryptographicHash::Sha256).toHex();
}

// Without its line feed.
TunedModel::Piece TunedModel::line(int number) const
{
    int start = 0;
    for (int current = 1; current < number; ++current) {
        start = m_bytes.indexOf('\n', start) + 1;
    }
    const int lineFeed = m_bytes.indexOf('\n', start);
    const int end = lineFeed < 0 ? m_bytes.size() : lineFeed;
    return {start, end - start};
}
