// SPDX-License-Identifier: MIT
#include "RunSummary.h"

#include "MessageReader.h"
#include "ReasonText.h"
#include "RecordFolder.h"
#include "RunTexts.h"

#include <VisibleText.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace {

/// Translates the texts of this file.
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(RunSummary)
};

using Line = RunSummary::Line;
using Kind = Line::Kind;
using Lines = QVector<Line>;
using Type = RecordedMessage::Type;

constexpr int mostFindings = 50; // of each severity
constexpr int labelWidth = 12;

// Indexed by RunRecord::State.
constexpr Kind stateKinds[] = {Kind::Plain, Kind::Fault,   Kind::Valid,  Kind::Fault,
                               Kind::Fault, Kind::Stopped, Kind::Warning};

struct Severity
{
    Type type;
    Kind kind;
};

constexpr Severity severities[] = {
    {Type::Error, Kind::Error}, {Type::Warning, Kind::Warning}, {Type::Notice, Kind::Notice}};

Kind kindOf(Type type)
{
    const auto* const end = std::end(severities);
    const auto* const found = std::find_if(std::begin(severities), end,
                                           [type](const auto& row) { return row.type == type; });
    return found == end ? Kind::Plain : found->kind;
}

void addFact(const QString& label, const QString& value, Lines& lines)
{
    if (!value.isEmpty()) {
        lines.append({QStringLiteral("  %1 %2").arg(label, -labelWidth).arg(value), Kind::Plain});
    }
}

QString joined(const QStringList& parts)
{
    QStringList filled = parts;
    filled.removeAll(QString());
    return filled.join(QStringLiteral(", "));
}

QString modelText(const RunRecord& record)
{
    const QString size = record.segments > 0
                             ? QStringLiteral(" (%1, %2)")
                                   .arg(RunTexts::counted(record.segments, "segment"),
                                        record.frequencies == 1
                                            ? Texts::tr("1 frequency")
                                            : Texts::tr("%1 frequencies").arg(record.frequencies))
                             : QString();
    return QDir::toNativeSeparators(record.model) + size;
}

// The component is the subject of the reason.
void addOutcome(const RunRecord& record, Lines& lines)
{
    const Kind kind = RunSummary::kind(record.state);
    const QString outcome = ReasonText::shown(
        record.outcome.isEmpty() ? RunRecord::word(record.state) : record.outcome);
    lines.append({Texts::tr("Run %1: %2, %3")
                      .arg(record.number)
                      .arg(QFileInfo(record.model).fileName(), outcome),
                  kind});
    if (!record.reason.isEmpty()) {
        lines.append(
            {record.component + QLatin1Char(' ') + ReasonText::shown(record.reason), kind});
    }
    if (!record.problem.isEmpty()) {
        lines.append({ReasonText::shown(record.problem), kind});
    }
    if (!record.gap.isEmpty()) {
        lines.append(
            {Texts::tr("the record is not complete: %1").arg(ReasonText::shown(record.gap)),
             Kind::Warning});
    }
}

void addStart(const RunRecord& record, Lines& lines)
{
    addFact(Texts::tr("model"), modelText(record), lines);
    addFact(Texts::tr("component"), record.component, lines);
    addFact(Texts::tr("run options"), record.runOptions.join(QStringLiteral(", ")), lines);
    addFact(Texts::tr("processes"),
            record.processes > 1 ? QString::number(record.processes) : QString(), lines);
    addFact(Texts::tr("from"), ReasonText::shown(record.face), lines);
    addFact(Texts::tr("started"), RunSummary::time(record.started), lines);
    if (record.hasEnded()) {
        addFact(Texts::tr("ended"), RunSummary::time(record.ended), lines);
        addFact(Texts::tr("duration"), RunTexts::duration(record.duration), lines);
        addFact(Texts::tr("done"), QStringLiteral("%1 %").arg(record.totalPercentage), lines);
    }
    addFact(Texts::tr("stopped by"), ReasonText::shown(record.stoppedBy), lines);
}

void addSurroundings(const RunRecord& record, Lines& lines)
{
    addFact(Texts::tr("program"), record.program, lines);
    addFact(Texts::tr("arguments"), record.arguments.join(QLatin1Char(' ')), lines);
    addFact(Texts::tr("folder"), record.workingDirectory, lines);
    const QVector<RunRecord::Option> options = record.changedOptions();
    for (const RunRecord::Option& option : options) {
        addFact(
            Texts::tr("option"),
            Texts::tr("%1=%2 (default: %3)").arg(option.name, option.value, option.defaultValue),
            lines);
    }
    for (const QString& variable : record.environment) {
        addFact(Texts::tr("variable"), variable, lines);
    }
    addFact(Texts::tr("computer"),
            joined({record.host, record.system, record.processor,
                    record.cores > 0 ? RunTexts::counted(record.cores, "core") : QString()}),
            lines);
    addFact(Texts::tr("user"), record.user, lines);
    addFact(Texts::tr("versions"),
            joined({Texts::tr("suite %1").arg(record.suiteVersion),
                    QStringLiteral("Qt ") + record.qtVersion}),
            lines);
    addFact(Texts::tr("installation"), record.installation, lines);
    addFact(Texts::tr("record"), QDir::toNativeSeparators(record.folder), lines);
}

void addFiles(const RunRecord& record, Lines& lines)
{
    if (!record.files.isEmpty()) {
        lines.append({Texts::tr("Files:"), Kind::Plain});
    }
    for (const RunRecord::File& file : record.files) {
        lines.append({QStringLiteral("  %1 (%2)")
                          .arg(QDir::toNativeSeparators(file.path), RunTexts::size(file.size)),
                      Kind::Plain});
    }
}

void addFindings(const QString& messagesFile, Lines& lines)
{
    Lines found[std::size(severities)];
    int counts[std::size(severities)] = {};
    MessageReader(messagesFile).readAll([&](const RecordedMessage& message) {
        for (std::size_t i = 0; i < std::size(severities); ++i) {
            if (severities[i].type == message.type && ++counts[i] <= mostFindings) {
                found[i].append({ReasonText::shown(RecordedMessage::word(message.type)) +
                                     QStringLiteral(": ") + message.text.trimmed(),
                                 severities[i].kind});
            }
        }
    });
    for (std::size_t i = 0; i < std::size(severities); ++i) {
        lines += found[i];
        if (counts[i] > mostFindings) {
            lines.append(
                {Texts::tr("... and %1 more")
                     .arg(RunTexts::counted(counts[i] - mostFindings,
                                            severities[i].type == Type::Error     ? "error"
                                            : severities[i].type == Type::Warning ? "warning"
                                                                                  : "notice")),
                 severities[i].kind});
        }
    }
}

void addLastLines(const QStringList& lastLines, Lines& lines)
{
    if (!lastLines.isEmpty()) {
        lines.append({Texts::tr("Last lines of the output:"), Kind::Plain});
    }
    for (const QString& line : lastLines) {
        lines.append({QStringLiteral("  ") + line, Kind::Plain});
    }
}

void addMessages(const QString& messagesFile, Lines& lines)
{
    MessageReader(messagesFile).readAll([&lines](const RecordedMessage& message) {
        lines.append({QStringLiteral("%1  %2  %3")
                          .arg(RunTexts::clockTime(message.time))
                          .arg(ReasonText::shown(RecordedMessage::word(message.type)), -16)
                          .arg(message.text),
                      kindOf(message.type)});
    });
}

Lines output(const QString& messagesFile)
{
    Lines lines;
    MessageReader(messagesFile).readAll([&lines](const RecordedMessage& message) {
        if (message.type == Type::Output || message.type == Type::LineFeed) {
            lines.append({message.text, Kind::Plain});
        }
    });
    return lines;
}

// The record of a running or interrupted run has no outcome.
QStringList lastLines(const RunRecord& record, const QString& messagesFile)
{
    constexpr int most = 20;
    if (!record.lastLines.isEmpty()) {
        return record.lastLines;
    }
    QStringList lines;
    MessageReader(messagesFile).readAll([&lines](const RecordedMessage& message) {
        if (message.type == Type::Output) {
            lines.append(message.text);
            if (lines.size() > most) {
                lines.removeFirst();
            }
        }
    });
    return lines;
}

} // namespace

QString RunSummary::time(const QDateTime& time)
{
    return time.toLocalTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
}

Kind RunSummary::kind(RunRecord::State state)
{
    return stateKinds[static_cast<int>(state)];
}

Lines RunSummary::of(const RunRecord& record, Messages messages)
{
    const QString messagesFile = RecordFolder(record.folder).messagesFile();
    if (messages == Messages::Output) {
        return output(messagesFile);
    }
    Lines lines;
    addOutcome(record, lines);
    addStart(record, lines);
    addSurroundings(record, lines);
    if (!QFileInfo::exists(messagesFile)) {
        lines.append({Texts::tr("the messages of this run are missing"), Kind::Warning});
    }
    if (messages == Messages::All) {
        addMessages(messagesFile, lines);
    } else {
        addFindings(messagesFile, lines);
        addLastLines(lastLines(record, messagesFile), lines);
    }
    if (record.omittedLines > 0) {
        lines.append({Texts::tr("%1 left out, since the record was full")
                          .arg(RunTexts::counted(record.omittedLines, "line")),
                      Kind::Plain});
    }
    addFiles(record, lines);
    return lines;
}

QByteArray RunSummary::text(const RunRecord& record)
{
    QByteArray text;
    const Lines lines = of(record);
    for (const Line& line : lines) {
        text += suite::visibleText(line.text).toUtf8() + '\n';
    }
    return text;
}
