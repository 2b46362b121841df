#include "SubcommandWords.h"

#include "Subcommand.h"

#include <PlainText.h>

SubcommandWords::SubcommandWords(const Subcommand& command, QStringList words) : m_command(command)
{
    read(std::move(words));
    checkCount();
}

void SubcommandWords::read(QStringList words)
{
    while (!words.isEmpty()) {
        const QString word = words.takeFirst();
        const QString name = word.section(QLatin1Char('='), 0, 0);
        if (!word.startsWith(QLatin1Char('-'))) {
            m_operands.append(word);
        } else if (m_command.option != nullptr && name == QLatin1String(m_command.option->name)) {
            readOption(*m_command.option, word, words);
        } else {
            setProblem(QStringLiteral("unknown option \"%1\"").arg(suite::excerpt(name)));
        }
    }
}

// "--name", "--name NUMBER" or "--name=NUMBER".
void SubcommandWords::readOption(const SubcommandOption& option, const QString& word,
                                 QStringList& rest)
{
    if (m_hasOption) {
        setProblem(QStringLiteral("%1 is given twice").arg(QLatin1String(option.name)));
    }
    m_hasOption = true;
    const bool isJoined = word.contains(QLatin1Char('='));
    if (*option.valueName == '\0') {
        if (isJoined) {
            setProblem(QStringLiteral("%1 takes no value").arg(QLatin1String(option.name)));
        }
    } else if (isJoined) {
        readNumber(option, word.section(QLatin1Char('='), 1));
    } else {
        readNumber(option, rest.isEmpty() ? QString() : rest.takeFirst());
    }
}

void SubcommandWords::readNumber(const SubcommandOption& option, const QString& typed)
{
    bool isNumber = false;
    const int number = typed.toInt(&isNumber);
    if (!isNumber || number < option.least || number > option.most) {
        setProblem(QStringLiteral("%1 takes whole %2 from %3 to %4, and not \"%5\"")
                       .arg(QLatin1String(option.name),
                            QString(QLatin1String(option.valueName)).toLower(),
                            QString::number(option.least), QString::number(option.most),
                            suite::excerpt(typed)));
    }
    m_number = number;
}

void SubcommandWords::checkCount()
{
    const QString ellipsis = QStringLiteral("...");
    const QString operands = QLatin1String(m_command.operands);
    const int fewest = operands.isEmpty() ? 0 : 1;
    if (m_operands.size() < fewest) {
        setProblem(QStringLiteral("%1 is missing").arg(operands.section(ellipsis, 0, 0)));
    } else if (m_operands.size() > fewest && !operands.endsWith(ellipsis)) {
        setProblem(QStringLiteral("unexpected argument \"%1\"")
                       .arg(suite::excerpt(m_operands.at(fewest))));
    }
}

// The first one counts.
void SubcommandWords::setProblem(const QString& problem)
{
    if (m_problem.isEmpty()) {
        m_problem = problem;
    }
}
