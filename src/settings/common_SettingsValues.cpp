// SPDX-License-Identifier: MIT
#include "common_SettingsValues.h"

#include <SettingsKeys.h>

#include <QDataStream>
#include <QSettings>
#include <QStringList>

#include <algorithm>

namespace {

QByteArray streamed(const QVariant& value)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << value;
    return bytes;
}

// Halves of characters have no UTF-8: where QSettings writes that, this is what is left of them.
QString withoutHalves(QString text)
{
    for (int i = 0; i < text.size(); ++i) {
        const bool isPair =
            text.at(i).isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate();
        if (isPair) {
            ++i;
        } else if (text.at(i).isSurrogate()) {
            text[i] = QChar::ReplacementCharacter;
        }
    }
    return text;
}

QStringList texts(const QVariant& value)
{
    if (!value.isValid()) {
        return QStringList();
    }
    QStringList result =
        value.canConvert<QStringList>() ? value.toStringList() : QStringList(value.toString());
    for (QString& text : result) {
        text = withoutHalves(text);
    }
    return result;
}

// A number becomes a text, an empty list becomes nothing.
bool isSame(const QVariant& expected, const QVariant& read)
{
    return expected == read || streamed(expected) == streamed(read) ||
           texts(expected) == texts(read);
}

bool isNothing(const QVariant& value)
{
    return !value.isValid() || value.userType() == QMetaType::QVariant;
}

} // namespace

bool common_SettingsValues::isProper(const QString& key)
{
    return !key.isEmpty() && !key.startsWith(QLatin1Char('/')) && !key.endsWith(QLatin1Char('/')) &&
           !key.contains(QLatin1String("//"));
}

common_SettingsValues::common_SettingsValues(const QSettings& settings)
{
    const QStringList keys = settings.allKeys();
    for (const QString& key : keys) {
        if (isProper(key)) {
            m_values.insert(m_values.cend(), SettingsKeys::comparable(key),
                            {key, settings.value(key)});
        }
    }
}

bool common_SettingsValues::areSame(const common_SettingsValues& read) const
{
    return m_values.size() == read.m_values.size() &&
           std::equal(m_values.keyBegin(), m_values.keyEnd(), read.m_values.keyBegin()) &&
           std::equal(m_values.cbegin(), m_values.cend(), read.m_values.cbegin(),
                      [](const Value& mine, const Value& other) {
                          return isSame(mine.value, other.value);
                      });
}

int common_SettingsValues::countNothing() const
{
    return static_cast<int>(std::count_if(m_values.cbegin(), m_values.cend(),
                                          [](const Value& one) { return isNothing(one.value); }));
}

void common_SettingsValues::applyTo(QSettings& settings) const
{
    apply(settings, [](const QString&) { return true; });
}

void common_SettingsValues::applyChangesTo(QSettings& settings, const common_SettingsValues& before,
                                           const QString& prefix) const
{
    apply(settings, [&before, this, start = SettingsKeys::comparable(prefix)](const QString& key) {
        return key.startsWith(start) || !hasSame(key, before);
    });
}

bool common_SettingsValues::hasSame(const QString& key, const common_SettingsValues& other) const
{
    const auto mine = m_values.constFind(key);
    const auto theirs = other.m_values.constFind(key);
    const bool isMine = mine != m_values.cend();
    const bool isTheirs = theirs != other.m_values.cend();
    return isMine == isTheirs && (!isMine || isSame(mine->value, theirs->value));
}

// With a key QSettings removes all keys below it, of which some may be to stay.
void common_SettingsValues::apply(QSettings& settings,
                                  const std::function<bool(const QString&)>& isWanted) const
{
    const common_SettingsValues present(settings);
    for (auto value = present.m_values.cbegin(); value != present.m_values.cend(); ++value) {
        if (!m_values.contains(value.key()) && isWanted(value.key())) {
            settings.remove(value->key);
        }
    }
    const common_SettingsValues left(settings);
    for (auto value = m_values.cbegin(); value != m_values.cend(); ++value) {
        const QString& key = value.key();
        const bool isLost = present.m_values.contains(key) && !left.m_values.contains(key);
        if (isLost || (isWanted(key) && !hasSame(key, left))) {
            settings.setValue(value->key, value->value);
        }
    }
}
