// SPDX-License-Identifier: MIT
#include "CommandLine.h"

#include "PlainText.h"

#include <QFileInfo>
#include <QRegularExpression>

#include <utility>

namespace suite {

namespace {

// Infinity is no number to compute with.
constexpr double largestValue = 1e15;

bool isInRange(const OptionRow& row, const QString& value)
{
    bool isNumber = false;
    const int number = value.toInt(&isNumber);
    return isNumber && number >= row.least && number <= row.most;
}

bool isPositive(const QString& value)
{
    bool isNumber = false;
    const double number = value.toDouble(&isNumber);
    return isNumber && number > 0 && number <= largestValue;
}

bool areHosts(const QString& value)
{
    const QStringList words = value.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QString& word : words) {
        if (word.startsWith(QLatin1Char('-'))) {
            return false;
        }
    }
    return !words.isEmpty();
}

bool areGpus(const QString& value)
{
    static const QRegularExpression pattern(
        QStringLiteral("\\A([0-9]{1,6}(:[0-9,]*)?|:[0-9,]*)\\z"));
    return pattern.match(value).hasMatch();
}

bool isGoodValue(const OptionRow& row, const QString& value)
{
    switch (row.kind) {
    case ValueKind::Integer:
        return isInRange(row, value);
    case ValueKind::Positive:
        return isPositive(value);
    case ValueKind::ProcessCount:
        return value == QLatin1String("all") || isInRange(row, value);
    case ValueKind::Word:
        return QString::fromLatin1(row.words).split(QLatin1Char(' ')).contains(value);
    case ValueKind::Text:
        return !value.startsWith(QLatin1Char('-')) && !value.isEmpty();
    case ValueKind::Hosts:
        return areHosts(value);
    case ValueKind::OptionalGpus:
        return areGpus(value);
    case ValueKind::None:
    case ValueKind::Switch:
        return true;
    }
    return false;
}

QString expectation(const OptionRow& row)
{
    switch (row.kind) {
    case ValueKind::Integer:
        return QStringLiteral("a whole number from %1 to %2").arg(row.least).arg(row.most);
    case ValueKind::Positive:
        return QStringLiteral("a number greater than 0");
    case ValueKind::ProcessCount:
        return QStringLiteral("a whole number from %1 to %2, or all").arg(row.least).arg(row.most);
    case ValueKind::Word:
        return QStringLiteral("one of the words ") + QLatin1String(row.words);
    case ValueKind::Hosts:
        return QStringLiteral("host names that do not begin with a hyphen");
    default:
        return QStringLiteral("a text that does not begin with a hyphen");
    }
}

bool takesValue(const OptionRow& row)
{
    return row.kind != ValueKind::None && row.kind != ValueKind::Switch;
}

} // namespace

CommandLine::CommandLine(OptionGroup group, QStringList arguments)
    : m_group(group), m_words(std::move(arguments))
{
    takeModelOfFrontEnd();
    while (!m_words.isEmpty()) {
        readWord();
    }
    const bool onlyAsks = has(OptionGroup::Common, QStringLiteral("--help")) ||
                          has(OptionGroup::Common, QStringLiteral("--version"));
    if (m_model.isEmpty() && !onlyAsks) {
        m_errors.append(QStringLiteral("no model is given"));
    }
}

// Front ends give the model's bare name first and say who they are behind it. Whatever such a name
// looks like, it is the model's.
void CommandLine::takeModelOfFrontEnd()
{
    const bool isFrontEnd = m_words.mid(1).contains(QStringLiteral("--run-from-gui"));
    if (isFrontEnd && m_words.first().startsWith(QLatin1Char('-')) &&
        QFileInfo::exists(m_words.first())) {
        m_model = m_words.takeFirst();
    }
}

// Front ends pass an option field that holds only blanks as an empty word: it says nothing.
void CommandLine::readWord()
{
    const QString word = m_words.takeFirst();
    if (word.isEmpty()) {
        return;
    }
    if (word == QLatin1String("--") && m_model.isEmpty()) {
        while (!m_words.isEmpty()) {
            setModel(m_words.takeFirst());
        }
        return;
    }
    const OptionRow* row = optionRow(m_group, word);
    if (row == nullptr) {
        row = earlierSwitch(word);
    }
    if (row != nullptr) {
        readOption(*row);
    } else {
        readModel(word);
    }
}

// Switches lead from any group to those that the groups before it lead to.
const OptionRow* CommandLine::earlierSwitch(const QString& word) const
{
    for (const OptionGroup group : m_groups) {
        const OptionRow* row = optionRow(group, word);
        if (row != nullptr && row->kind == ValueKind::Switch) {
            return row;
        }
    }
    return nullptr;
}

void CommandLine::readOption(const OptionRow& row)
{
    const Key key(row.group, QLatin1String(row.name));
    if (row.kind == ValueKind::Switch) {
        m_behind.insert(key, m_words);
        if (!m_groups.contains(m_group)) {
            m_groups.append(m_group);
        }
        m_group = row.target;
    }
    m_options.insert(key, takesValue(row) ? readValue(row) : QString());
}

QString CommandLine::readValue(const OptionRow& row)
{
    const QString name = QLatin1String(row.name);
    const QString next = m_words.value(0);
    if (isGoodValue(row, next)) {
        return m_words.takeFirst();
    }
    if (row.kind == ValueKind::OptionalGpus) {
        return {};
    }
    const bool isMissing = m_words.isEmpty() || next.startsWith(QLatin1String("--"));
    if (isMissing) {
        reportError(QStringLiteral("the value is missing of option"), name);
        return {};
    }
    m_errors.append(QStringLiteral("option %1 needs %2 and has '%3'")
                        .arg(name, expectation(row), excerpt(m_words.takeFirst())));
    return {};
}

// A file may be called like an option that nobody knows; then the model is meant.
void CommandLine::readModel(const QString& word)
{
    const bool looksLikeOption = word.startsWith(QLatin1Char('-'));
    if (looksLikeOption && (!m_model.isEmpty() || !QFileInfo::exists(word))) {
        reportError(QStringLiteral("unknown option"), word);
    } else {
        setModel(word);
    }
}

void CommandLine::setModel(const QString& word)
{
    if (m_model.isEmpty()) {
        m_model = word;
    } else {
        reportError(QStringLiteral("unexpected argument"), word);
    }
}

void CommandLine::reportError(const QString& problem, const QString& word)
{
    m_errors.append(problem + QStringLiteral(" '%1'").arg(excerpt(word)));
}

bool CommandLine::has(OptionGroup group, const QString& name) const
{
    return m_options.contains(Key(group, name));
}

QString CommandLine::value(OptionGroup group, const QString& name) const
{
    return m_options.value(Key(group, name));
}

QString CommandLine::processCount(OptionGroup group) const
{
    const QString name = QStringLiteral("-np");
    return value(group, has(group, name) ? name : QStringLiteral("-NP"));
}

QStringList CommandLine::wordsBehind(OptionGroup group, const QString& name) const
{
    return m_behind.value(Key(group, name));
}

QString CommandLine::help(const QString& program, OptionGroup group)
{
    QString text =
        QStringLiteral("Usage: %1 MODEL [options]\n       %1 [options] -- MODEL\n").arg(program);
    QVector<OptionGroup> groups = {OptionGroup::Common, group};
    const QVector<OptionRow> rows = optionRows();
    // Grows while it is walked through: the solver's options lead to further groups.
    for (int index = 1; index < groups.size(); ++index) {
        for (const OptionRow& row : rows) {
            if (row.group == groups.at(index) && row.kind == ValueKind::Switch &&
                !groups.contains(row.target)) {
                groups.append(row.target);
            }
        }
    }
    for (const OptionGroup each : qAsConst(groups)) {
        text += QLatin1Char('\n');
        for (const OptionRow& row : rows) {
            if (row.group == each) {
                text += QStringLiteral("  %1 %2\n")
                            .arg(QLatin1String(row.name), -26)
                            .arg(QLatin1String(row.help));
            }
        }
    }
    return text;
}

} // namespace suite
