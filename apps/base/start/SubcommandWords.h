// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QMap>
#include <QString>
#include <QStringList>

struct Subcommand;
struct SubcommandOption;

/// The words behind the name of a subcommand.
class SubcommandWords
{
    Q_DECLARE_TR_FUNCTIONS(SubcommandWords)

public:
    /// Separates options from operands; options may stand anywhere. "-" alone is an operand. The
    /// command must outlive this object.
    SubcommandWords(const Subcommand& command, QStringList words);

    /// Why the words are invalid; empty if the command can be run.
    QString problem() const { return m_problem; }

    /// Whether the option of that name, with its hyphens, is given.
    bool has(const char* option) const { return m_values.contains(QLatin1String(option)); }

    /// The option's number; `usual` if the option is not given.
    int number(const char* option, int usual) const;

    /// The option's text; empty if the option is not given.
    QString text(const char* option) const { return m_values.value(QLatin1String(option)); }

    /// All words except the options. Their number suits the command.
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
    QMap<QString, QString> m_values; ///< values of the given options, by name
};
