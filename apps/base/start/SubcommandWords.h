#pragma once

#include <QString>
#include <QStringList>

#include <optional>

struct Subcommand;
struct SubcommandOption;

/// The words behind the name of a subcommand.
class SubcommandWords
{
public:
    /// The option is taken out of the words, wherever it stands. The command must outlive this.
    SubcommandWords(const Subcommand& command, QStringList words);

    /// What is wrong with them; empty when the command can be run.
    QString problem() const { return m_problem; }

    bool hasOption() const { return m_hasOption; }

    /// The option's number, or the usual one where the option is not given.
    int number(int usual) const { return m_number.value_or(usual); }

    /// All words but the option, as many as the command takes.
    const QStringList& operands() const { return m_operands; }

private:
    void read(QStringList words);
    void readOption(const SubcommandOption& option, const QString& word, QStringList& rest);
    void readNumber(const SubcommandOption& option, const QString& typed);
    void checkCount();
    void setProblem(const QString& problem);

    const Subcommand& m_command;
    QStringList m_operands;
    QString m_problem;
    std::optional<int> m_number;
    bool m_hasOption = false;
};
