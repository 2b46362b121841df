#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

struct Subcommand;
struct SubcommandOption;

/// The words behind the name of a subcommand.
class SubcommandWords
{
public:
    /// The options are taken out of the words, wherever they stand. "-" alone is an operand. The
    /// command must outlive this.
    SubcommandWords(const Subcommand& command, QStringList words);

    /// What is wrong with them; empty when the command can be run.
    QString problem() const { return m_problem; }

    /// Whether the option of that name, with its hyphens, is given.
    bool has(const char* option) const { return m_values.contains(QLatin1String(option)); }

    /// The option's number, or the usual one where the option is not given.
    int number(const char* option, int usual) const;

    /// The option's text; empty where the option is not given.
    QString text(const char* option) const { return m_values.value(QLatin1String(option)); }

    /// All words but the options, as many as the command takes.
    const QStringList& operands() const { return m_operands; }

private:
    void read(QStringList words);
    void readOption(const SubcommandOption& option, const QString& word, QStringList& rest);
    void readValue(const SubcommandOption& option, const QString& typed);
    QString numberProblem(const SubcommandOption& option, const QString& typed) const;
    void checkCount();
    void setProblem(const QString& problem);

    const Subcommand& m_command;
    QStringList m_operands;
    QString m_problem;
    QMap<QString, QString> m_values; ///< of the options that are given, by their names
};
