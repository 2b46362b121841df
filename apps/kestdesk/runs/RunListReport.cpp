// SPDX-License-Identifier: MIT
#include "RunListReport.h"

#include "RunColours.h"

#include <RunTexts.h>
#include <VisibleText.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <iterator>

namespace {

using Cells = QStringList;

// Numbers are right-aligned.
struct Column
{
    const char* title;
    bool isNumber;
};

constexpr Column columns[] = {
    {QT_TRANSLATE_NOOP("RunListReport", "Run"), true},
    {QT_TRANSLATE_NOOP("RunListReport", "Started"), false},
    {QT_TRANSLATE_NOOP("RunListReport", "State"), false},
    {QT_TRANSLATE_NOOP("RunListReport", "Duration"), true},
    {QT_TRANSLATE_NOOP("RunListReport", "Errors"), true},
    {QT_TRANSLATE_NOOP("RunListReport", "Warnings"), true},
    {QT_TRANSLATE_NOOP("RunListReport", "Component"), false},
    {QT_TRANSLATE_NOOP("RunListReport", "Model"), false},
};
constexpr int columnCount = static_cast<int>(std::size(columns));

bool isOfModel(const RunRecord& record, const QString& model)
{
    const QString name = QFileInfo(record.model).fileName();
    return model.isEmpty() || name == model || QDir::match(model, name) ||
           record.model == QFileInfo(model).absoluteFilePath();
}

Cells cellsOf(const RunRecord& record)
{
    return {QString::number(record.number),
            RunSummary::time(record.started),
            RunRecord::word(record.state),
            record.hasEnded() ? RunTexts::duration(record.duration) : QString(),
            QString::number(record.errors),
            QString::number(record.warnings),
            suite::visibleText(record.component),
            suite::visibleFileName(record.model)};
}

QString lineOf(const Cells& cells, const QVector<int>& widths)
{
    QStringList parts;
    for (int i = 0; i < columnCount; ++i) {
        const int width = i == columnCount - 1 ? 0 : widths.at(i);
        parts.append(columns[i].isNumber ? cells.at(i).rightJustified(width)
                                         : cells.at(i).leftJustified(width));
    }
    return parts.join(QStringLiteral("  "));
}

} // namespace

QStringList RunListReport::stateWords()
{
    using State = RunRecord::State;
    QStringList words;
    for (const State state : {State::Running, State::Interrupted, State::Valid, State::Fault,
                              State::NotStarted, State::Stopped, State::Damaged}) {
        words.append(RunRecord::word(state));
    }
    return words;
}

QVector<RunRecord> RunListReport::filtered(const QVector<RunRecord>& records, const Filter& filter)
{
    QVector<RunRecord> result;
    std::copy_if(records.cbegin(), records.cend(), std::back_inserter(result),
                 [&filter](const RunRecord& record) {
                     return isOfModel(record, filter.model) &&
                            (filter.state.isEmpty() ||
                             RunRecord::word(record.state) == filter.state);
                 });
    return filter.most > 0 ? result.mid(0, filter.most) : result;
}

void RunListReport::write(const QVector<RunRecord>& records, Terminal& terminal)
{
    Cells titles;
    QVector<int> widths;
    for (const Column& column : columns) {
        titles.append(QCoreApplication::translate("RunListReport", column.title));
        widths.append(titles.constLast().size());
    }
    QVector<Cells> rows;
    for (const RunRecord& record : records) {
        rows.append(cellsOf(record));
        for (int i = 0; i < columnCount; ++i) {
            widths[i] = std::max<int>(widths.at(i), rows.constLast().at(i).size());
        }
    }
    terminal.writeLine(lineOf(titles, widths));
    for (int i = 0; i < rows.size(); ++i) {
        terminal.writeLine(lineOf(rows.at(i), widths),
                           RunColours::of(RunSummary::kind(records.at(i).state)));
    }
}
