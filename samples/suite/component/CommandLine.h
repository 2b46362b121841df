// SPDX-License-Identifier: MIT
#pragma once

#include "OptionTable.h"

#include <QMap>
#include <QStringList>

namespace suite {

/// A component's command line: the model, and options from the table.
class CommandLine
{
public:
    /// Reads the words behind the program's name. The group is the component's own.
    CommandLine(OptionGroup group, QStringList arguments);

    /// The errors, one text each; empty if there are none.
    [[nodiscard]] const QStringList& errors() const { return m_errors; }

    [[nodiscard]] QString model() const { return m_model; }

    /// Whether an option was given in its group, and the last value given with it.
    [[nodiscard]] bool has(OptionGroup group, const QString& name) const;
    [[nodiscard]] QString value(OptionGroup group, const QString& name) const;

    /// The number of processes in a group's options: a number, "all", or an empty text. The option
    /// has two spellings.
    [[nodiscard]] QString processCount(OptionGroup group) const;

    /// All words behind a switch, for the program that the switch belongs to.
    [[nodiscard]] QStringList wordsBehind(OptionGroup group, const QString& name) const;

    /// The help text of a component.
    static QString help(const QString& program, OptionGroup group);

private:
    using Key = QPair<OptionGroup, QString>;

    void takeModelOfFrontEnd();
    void readWord();
    [[nodiscard]] const OptionRow* earlierSwitch(const QString& word) const;
    void readOption(const OptionRow& row);
    QString readValue(const OptionRow& row);
    void readModel(const QString& word);
    void setModel(const QString& word);
    void reportError(const QString& problem, const QString& word);

    OptionGroup m_group;
    QVector<OptionGroup> m_groups; ///< those that a switch has left
    QStringList m_words;
    QString m_model;
    QMap<Key, QString> m_options;
    QMap<Key, QStringList> m_behind;
    QStringList m_errors;
};

} // namespace suite
