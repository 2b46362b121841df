// SPDX-License-Identifier: MIT
#include "ComparisonReport.h"

#include "ReasonText.h"

#include <RunComparison.h>
#include <RunTexts.h>

#include <QCoreApplication>

namespace {

/// Translates the texts of this file.
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(ComparisonReport)
};

using Colour = Terminal::Colour;
using File = RunComparison::File;

void writeRemoved(const QString& text, Terminal& terminal)
{
    terminal.writeLine(QStringLiteral("  - ") + text, Colour::Red);
}

void writeAdded(const QString& text, Terminal& terminal)
{
    terminal.writeLine(QStringLiteral("  + ") + text, Colour::Green);
}

void writeFields(const QString& title, const QVector<RunComparison::Field>& fields,
                 Terminal& terminal)
{
    if (!fields.isEmpty()) {
        terminal.writeLine(title);
    }
    for (const RunComparison::Field& field : fields) {
        writeRemoved(field.label + QStringLiteral(": ") + field.left, terminal);
        writeAdded(field.label + QStringLiteral(": ") + field.right, terminal);
    }
}

void writeText(const RunComparison::Text& text, Terminal& terminal)
{
    if (text.isSame) {
        return;
    }
    const QString file = Texts::tr(text.file.toLatin1().constData());
    if (!text.problem.isEmpty()) {
        terminal.writeLine(
            Texts::tr("The %1 was not compared: %2").arg(file, ReasonText::shown(text.problem)),
            Colour::Yellow);
        return;
    }
    if (text.changes.isEmpty()) {
        terminal.writeLine(Texts::tr("The %1 differs in the ends of lines only").arg(file));
    }
    for (const suite::LineChange& change : text.changes) {
        terminal.writeLine(Texts::tr("The %1, line %2 and line %3")
                               .arg(file)
                               .arg(change.leftLine)
                               .arg(change.rightLine));
        for (const QString& line : change.left) {
            writeRemoved(line, terminal);
        }
        for (const QString& line : change.right) {
            writeAdded(line, terminal);
        }
    }
}

void writeMessages(const QVector<RunComparison::Message>& messages, Terminal& terminal)
{
    if (!messages.isEmpty()) {
        terminal.writeLine(Texts::tr("Messages"));
    }
    for (const RunComparison::Message& message : messages) {
        const int more = message.right - message.left;
        const QString text = QStringLiteral("%1: %2").arg(
            ReasonText::shown(RecordedMessage::word(message.type)), message.text.trimmed());
        const QString times =
            qAbs(more) > 1 ? Texts::tr(" (%1 times more)").arg(qAbs(more)) : QString();
        if (more < 0) {
            writeRemoved(text + times, terminal);
        } else {
            writeAdded(text + times, terminal);
        }
    }
}

QString tableText(const suite::TableDifference& table)
{
    QStringList parts;
    if (table.largest > 0) {
        parts.append(Texts::tr("impedances differ by up to %1 % (at %2 MHz)")
                         .arg(table.largest * 100, 0, 'g', 3)
                         .arg(table.frequency, 0, 'g', 6));
    }
    if (table.unknown > 0) {
        parts.append(Texts::tr("%1 known in one only").arg(table.unknown));
    }
    if (table.onlyLeft + table.onlyRight > 0) {
        parts.append(Texts::tr("frequencies: %1 in both, %2 and %3 in one only")
                         .arg(table.common)
                         .arg(table.onlyLeft)
                         .arg(table.onlyRight));
    }
    return parts.isEmpty() ? Texts::tr("the impedances are the same")
                           : parts.join(QStringLiteral(", "));
}

void writeFiles(const QVector<File>& files, Terminal& terminal)
{
    for (const File& file : files) {
        if (file.state == File::State::Same) {
            continue;
        }
        QString text =
            Texts::tr("File %1: %2").arg(file.name, ReasonText::shown(File::word(file.state)));
        if (file.left && file.right && file.left->size != file.right->size) {
            text += QStringLiteral(" (%1, %2)")
                        .arg(RunTexts::size(file.left->size), RunTexts::size(file.right->size));
        }
        if (file.table) {
            text += QStringLiteral(", ") + tableText(*file.table);
        }
        terminal.writeLine(text);
        if (!file.problem.isEmpty()) {
            terminal.writeLine(
                Texts::tr("  not compared by frequency: %1").arg(ReasonText::shown(file.problem)),
                Colour::Yellow);
        }
    }
}

} // namespace

void ComparisonReport::write(const RunComparison& comparison, Terminal& terminal)
{
    terminal.writeLine(Texts::tr("- run %1, %2")
                           .arg(comparison.leftNumber)
                           .arg(RunTexts::duration(comparison.leftDuration)),
                       Colour::Red);
    terminal.writeLine(Texts::tr("+ run %1, %2")
                           .arg(comparison.rightNumber)
                           .arg(RunTexts::duration(comparison.rightDuration)),
                       Colour::Green);
    writeFields(Texts::tr("Run"), comparison.run, terminal);
    writeFields(Texts::tr("Launch options"), comparison.launchOptions, terminal);
    writeFields(Texts::tr("Environment"), comparison.environment, terminal);
    writeText(comparison.model, terminal);
    writeText(comparison.machinesFile, terminal);
    writeFields(Texts::tr("Computer"), comparison.computer, terminal);
    writeMessages(comparison.messages, terminal);
    writeFields(Texts::tr("Outcome"), comparison.shownOutcome(), terminal);
    writeFiles(comparison.files, terminal);
    for (const QString& problem : comparison.problems) {
        terminal.writeLine(ReasonText::shown(problem), Colour::Yellow);
    }
    if (comparison.isSame()) {
        terminal.writeLine(Texts::tr("The runs are the same."));
    }
}
