// SPDX-License-Identifier: MIT
#include "SubcommandWords.h"

#include "Subcommand.h"

#include <PlainText.h>

#include <algorithm>

namespace {

// What the values are called in messages.
[[maybe_unused]] constexpr const char* valueWords[] = {
    QT_TRANSLATE_NOOP("SubcommandOption", "seconds"), QT_TRANSLATE_NOOP("SubcommandOption", "name"),
    QT_TRANSLATE_NOOP("SubcommandOption", "word"),    QT_TRANSLATE_NOOP("SubcommandOption", "n"),
    QT_TRANSLATE_NOOP("SubcommandOption", "host"),
};

QString valueWord(const SubcommandOption& option)
{
    const QByteArray word = QByteArray(option.valueName).toLower();
    return QCoreApplication::translate("SubcommandOption", word.constData());
}

} // namespace

SubcommandWords::SubcommandWords(const Subcommand& command, QStringList words) : m_command(command)
{
    read(std::move(words));
    checkCount();
}

void SubcommandWords::read(QStringList words)
{
    const QVector<SubcommandOption>& options = m_command.options;
    while (!words.isEmpty()) {
        const QString word = words.takeFirst();
        const QString name = word.section(QLatin1Char('='), 0, 0);
        const auto option =
            std::find_if(options.cbegin(), options.cend(), [&name](const SubcommandOption& row) {
                return name == QLatin1String(row.name);
            });
        if (!word.startsWith(QLatin1Char('-')) || word == QLatin1String("-")) {
            m_operands.append(word);
        } else if (option != options.cend()) {
            readOption(*option, word, words);
        } else {
            setProblem(tr("unknown option \"%1\"").arg(suite::excerpt(name)));
        }
    }
}

// "--name", "--name VALUE" or "--name=VALUE".
void SubcommandWords::readOption(const SubcommandOption& option, const QString& word,
                                 QStringList& rest)
{
    if (has(option.name)) {
        setProblem(tr("%1 is given twice").arg(QLatin1String(option.name)));
    }
    m_values.insert(QLatin1String(option.name), QString());
    const bool isJoined = word.contains(QLatin1Char('='));
    if (!option.takesValue()) {
        if (isJoined) {
            setProblem(tr("%1 takes no value").arg(QLatin1String(option.name)));
        }
    } else if (isJoined) {
        readValue(option, word.section(QLatin1Char('='), 1));
    } else {
        readValue(option, rest.isEmpty() ? QString() : rest.takeFirst());
    }
}

void SubcommandWords::readValue(const SubcommandOption& option, const QString& typed)
{
    if (option.takesNumber()) {
        setProblem(numberProblem(option, typed));
    } else if (typed.isEmpty()) {
        setProblem(tr("%1 takes a %2").arg(QLatin1String(option.name), valueWord(option)));
    }
    m_values.insert(QLatin1String(option.name), typed);
}

QString SubcommandWords::numberProblem(const SubcommandOption& option, const QString& typed) const
{
    bool isNumber = false;
    const int number = typed.toInt(&isNumber);
    return isNumber && number >= option.least && number <= option.most
               ? QString()
               : tr("%1 takes whole %2 from %3 to %4, and not \"%5\"")
                     .arg(QLatin1String(option.name), valueWord(option),
                          QString::number(option.least), QString::number(option.most),
                          suite::excerpt(typed));
}

int SubcommandWords::number(const char* option, int usual) const
{
    return has(option) ? text(option).toInt() : usual;
}

void SubcommandWords::checkCount()
{
    const QString all = QLatin1String(m_command.operands);
    const QStringList names = all.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    const bool isOpen = all.contains(QLatin1String("..."));
    const QString missing = names.value(m_operands.size());
    if (!missing.isEmpty() && !missing.startsWith(QLatin1Char('['))) {
        setProblem(tr("%1 is missing").arg(missing.section(QLatin1String("..."), 0, 0)));
    } else if (m_operands.size() > names.size() && !isOpen) {
        setProblem(
            tr("unexpected argument \"%1\"").arg(suite::excerpt(m_operands.at(names.size()))));
    }
}

// The first one counts.
void SubcommandWords::setProblem(const QString& problem)
{
    if (m_problem.isEmpty()) {
        m_problem = problem;
    }
}
