// SPDX-License-Identifier: MIT
#pragma once

#include "Subcommand.h"

#include <QCoreApplication>
#include <QStringList>
#include <QVector>

/// The subcommands behind one first word, such as those of "kestdesk options".
class SubcommandGroup
{
    Q_DECLARE_TR_FUNCTIONS(SubcommandGroup)

public:
    /// The notes are lines that the help has below the commands. The name is empty for the commands
    /// of a program that has no others.
    SubcommandGroup(QString name, QVector<Subcommand> commands, QString notes);

    QString name() const { return m_name; }
    const QVector<Subcommand>& commands() const { return m_commands; }

    /// The commands and what they do, a line each.
    QString usage() const;

    /// Runs the command from the words behind the group's name; "--help" prints the usage. For
    /// invalid words, prints the error and the usage to standard error and returns 2.
    int run(const QStringList& words) const;

private:
    int refuse(const QString& problem) const;

    QString m_name;
    QVector<Subcommand> m_commands;
    QString m_notes;
};
