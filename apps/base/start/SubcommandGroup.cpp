// SPDX-License-Identifier: MIT
#include "SubcommandGroup.h"

#include "ErrorOutput.h"
#include "SubcommandWords.h"

#include <PlainText.h>

#include <QCoreApplication>

#include <algorithm>
#include <cstdio>
#include <utility>

namespace {

constexpr int exitRefused = 2;

bool asksForHelp(const QStringList& words)
{
    return words.contains(QStringLiteral("--help")) || words.contains(QStringLiteral("-h"));
}

constexpr int widestSyntax = 36; // of which the meaning stands beside it

int widthOf(const QVector<Subcommand>& commands)
{
    int width = 0;
    for (const Subcommand& command : commands) {
        const int size = command.syntax().size();
        width = std::max(width, size <= widestSyntax ? size : 0);
    }
    return width;
}

QString lineOf(const Subcommand& command, int width)
{
    const QString syntax = command.syntax();
    const QString meaning = QCoreApplication::translate("Subcommand", command.meaning);
    return syntax.size() <= width
               ? QStringLiteral("  %1  %2\n").arg(syntax, -width).arg(meaning)
               : QStringLiteral("  %1\n  %2  %3\n").arg(syntax, QString(width, u' '), meaning);
}

} // namespace

SubcommandGroup::SubcommandGroup(QString name, QVector<Subcommand> commands, QString notes)
    : m_name(std::move(name)), m_commands(std::move(commands)), m_notes(std::move(notes))
{}

QString SubcommandGroup::usage() const
{
    const int width = widthOf(m_commands);
    QStringList words = {QCoreApplication::applicationName(), m_name, QStringLiteral("COMMAND")};
    words.removeAll(QString());
    QString text = tr("Usage: %1\n").arg(words.join(QLatin1Char(' ')));
    for (const Subcommand& command : m_commands) {
        text += lineOf(command, width);
    }
    return text + m_notes;
}

int SubcommandGroup::run(const QStringList& words) const
{
    if (asksForHelp(words)) {
        std::fputs(qPrintable(usage()), stdout);
        return 0;
    }
    const QString name = words.value(0);
    const auto command =
        std::find_if(m_commands.begin(), m_commands.end(),
                     [&name](const Subcommand& row) { return name == QLatin1String(row.name); });
    if (command == m_commands.end()) {
        return refuse(words.isEmpty() ? tr("no command given")
                                      : tr("unknown command \"%1\"").arg(suite::excerpt(name)));
    }
    const SubcommandWords rest(*command, words.mid(1));
    return rest.problem().isEmpty() ? command->run(rest) : refuse(rest.problem());
}

int SubcommandGroup::refuse(const QString& problem) const
{
    std::fputs(qPrintable(usage()), stderr);
    ErrorOutput::print(problem);
    return exitRefused;
}
