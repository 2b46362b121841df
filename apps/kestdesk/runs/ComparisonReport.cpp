#include "ComparisonReport.h"

#include <RunComparison.h>
#include <RunTexts.h>

namespace {

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

void writeFields(const char* title, const QVector<RunComparison::Field>& fields, Terminal& terminal)
{
    if (!fields.isEmpty()) {
        terminal.writeLine(QLatin1String(title));
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
    if (!text.problem.isEmpty()) {
        terminal.writeLine(
            QStringLiteral("The %1 was not compared: %2").arg(text.file, text.problem),
            Colour::Yellow);
        return;
    }
    if (text.changes.isEmpty()) {
        terminal.writeLine(
            QStringLiteral("The %1 differs in the ends of lines only").arg(text.file));
    }
    for (const suite::LineChange& change : text.changes) {
        terminal.writeLine(QStringLiteral("The %1, line %2 and line %3")
                               .arg(text.file)
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
        terminal.writeLine(QStringLiteral("Messages"));
    }
    for (const RunComparison::Message& message : messages) {
        const int more = message.right - message.left;
        const QString text = QStringLiteral("%1: %2").arg(RecordedMessage::word(message.type),
                                                          message.text.trimmed());
        const QString times =
            qAbs(more) > 1 ? QStringLiteral(" (%1 times more)").arg(qAbs(more)) : QString();
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
        parts.append(QStringLiteral("impedances differ by up to %1 % (at %2 MHz)")
                         .arg(table.largest * 100, 0, 'g', 3)
                         .arg(table.frequency, 0, 'g', 6));
    }
    if (table.unknown > 0) {
        parts.append(QStringLiteral("%1 known in one only").arg(table.unknown));
    }
    if (table.onlyLeft + table.onlyRight > 0) {
        parts.append(QStringLiteral("frequencies: %1 in both, %2 and %3 in one only")
                         .arg(table.common)
                         .arg(table.onlyLeft)
                         .arg(table.onlyRight));
    }
    return parts.isEmpty() ? QStringLiteral("the impedances are the same")
                           : parts.join(QStringLiteral(", "));
}

void writeFiles(const QVector<File>& files, Terminal& terminal)
{
    for (const File& file : files) {
        if (file.state == File::State::Same) {
            continue;
        }
        QString text = QStringLiteral("File %1: %2").arg(file.name, File::word(file.state));
        if (file.left && file.right && file.left->size != file.right->size) {
            text += QStringLiteral(" (%1, %2)")
                        .arg(RunTexts::size(file.left->size), RunTexts::size(file.right->size));
        }
        if (file.table) {
            text += QStringLiteral(", ") + tableText(*file.table);
        }
        terminal.writeLine(text);
        if (!file.problem.isEmpty()) {
            terminal.writeLine(QStringLiteral("  not compared by frequency: ") + file.problem,
                               Colour::Yellow);
        }
    }
}

} // namespace

void ComparisonReport::write(const RunComparison& comparison, Terminal& terminal)
{
    terminal.writeLine(QStringLiteral("- run %1, %2")
                           .arg(comparison.leftNumber)
                           .arg(RunTexts::duration(comparison.leftDuration)),
                       Colour::Red);
    terminal.writeLine(QStringLiteral("+ run %1, %2")
                           .arg(comparison.rightNumber)
                           .arg(RunTexts::duration(comparison.rightDuration)),
                       Colour::Green);
    writeFields("Run", comparison.run, terminal);
    writeFields("Launch options", comparison.launchOptions, terminal);
    writeFields("Environment", comparison.environment, terminal);
    writeText(comparison.model, terminal);
    writeText(comparison.machinesFile, terminal);
    writeFields("Computer", comparison.computer, terminal);
    writeMessages(comparison.messages, terminal);
    writeFields("Outcome", comparison.outcome, terminal);
    writeFiles(comparison.files, terminal);
    for (const QString& problem : comparison.problems) {
        terminal.writeLine(problem, Colour::Yellow);
    }
    if (comparison.isSame()) {
        terminal.writeLine(QStringLiteral("The runs are the same."));
    }
}
