// SPDX-License-Identifier: MIT
#include "SummaryPage.h"

#include "EndReasons.h"
#include "ReasonText.h"
#include "RunTexts.h"

#include <VisibleText.h>

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>
#include <QLocale>

#include <utility>

namespace {

using FileState = SummaryPage::FileState;

// Indexed by FileState.
constexpr const char* stateTexts[] = {"", QT_TRANSLATE_NOOP("SummaryPage", "unchanged since"),
                                      QT_TRANSLATE_NOOP("SummaryPage", "changed since"),
                                      QT_TRANSLATE_NOOP("SummaryPage", "no longer there")};

QString html(const QString& text)
{
    return suite::visibleText(text).toHtmlEscaped();
}

QString row(const QString& name, const QString& value)
{
    return value.isEmpty() ? QString()
                           : QStringLiteral("<tr><td><b>%1</b>&nbsp;&nbsp;</td><td>%2</td></tr>")
                                 .arg(name.toHtmlEscaped(), value);
}

QString timeText(const QDateTime& time)
{
    return time.isValid()
               ? QLocale::c().toString(time.toLocalTime(), QStringLiteral("yyyy-MM-dd HH:mm:ss"))
               : QString();
}

// The usual meaning of a signal depends on the platform.
QString exitText(const RunRecord& record)
{
    if (record.state == RunRecord::State::Running || record.state == RunRecord::State::NotStarted ||
        record.state == RunRecord::State::Interrupted) {
        return QString();
    }
    const EndReasons::Reason* const reason = EndReasons::find(record.isCrash, record.exitCode);
    QString text = record.isCrash ? ReasonText::shown(EndReasons::crashNumber(record.exitCode))
                                  : QString::number(record.exitCode);
    if (reason != nullptr) {
        const QString meaning = ReasonText::shown(QLatin1String(reason->meaning));
        text += *reason->name == '\0'
                    ? QStringLiteral(": %1").arg(meaning)
                    : QStringLiteral(", %1: %2")
                          .arg(ReasonText::shown(QLatin1String(reason->name)), meaning);
    }
    return text;
}

QString becauseOf(const RunRecord& record)
{
    QStringList sentences;
    if (!record.reason.isEmpty()) {
        sentences.append(
            QStringLiteral("%1 %2.").arg(record.component, ReasonText::shown(record.reason)));
    }
    if (!record.problem.isEmpty()) {
        QString problem = ReasonText::shown(record.problem);
        problem[0] = problem.at(0).toUpper();
        sentences.append(problem + QLatin1Char('.'));
    }
    return html(sentences.join(QLatin1Char(' ')));
}

QString counts(const RunRecord& record)
{
    return SummaryPage::tr("%1 errors, %2 warnings, %3 notices")
        .arg(record.errors)
        .arg(record.warnings)
        .arg(record.notices);
}

QString outcomeRows(const RunRecord& record)
{
    const bool isRunning = record.state == RunRecord::State::Running;
    return row(SummaryPage::tr("Outcome"),
               html(ReasonText::shown(isRunning || record.outcome.isEmpty()
                                          ? RunRecord::word(record.state)
                                          : record.outcome))) +
           row(SummaryPage::tr("Why"), becauseOf(record)) +
           row(record.isCrash ? SummaryPage::tr("Ended by") : SummaryPage::tr("Exit code"),
               html(exitText(record))) +
           row(SummaryPage::tr("Stopped by"), html(ReasonText::shown(record.stoppedBy))) +
           row(SummaryPage::tr("Done"), QStringLiteral("%1 %").arg(record.totalPercentage)) +
           row(SummaryPage::tr("Messages"), counts(record)) +
           row(SummaryPage::tr("Not complete"), html(ReasonText::shown(record.gap))) +
           row(SummaryPage::tr("Left out"),
               record.omittedLines == 0
                   ? QString()
                   : SummaryPage::tr("%1 lines of output").arg(record.omittedLines));
}

QString timeRows(const RunRecord& record)
{
    return row(SummaryPage::tr("Started"), timeText(record.started)) +
           row(SummaryPage::tr("Ended"), timeText(record.ended)) +
           row(SummaryPage::tr("Took"),
               record.hasEnded() ? RunTexts::shortClockTime(record.duration) : QString()) +
           row(SummaryPage::tr("Repeats"),
               record.repeats == 0 ? QString() : SummaryPage::tr("run %1").arg(record.repeats)) +
           row(SummaryPage::tr("Without hosts"),
               html(record.leftOutHosts.join(QStringLiteral(", "))));
}

QString placeRows(const RunRecord& record)
{
    const QString size = record.segments == 0
                             ? QString()
                             : SummaryPage::tr("%1 segments, %2 frequencies, %3 processes")
                                   .arg(record.segments)
                                   .arg(record.frequencies)
                                   .arg(record.processes);
    return row(SummaryPage::tr("Component"), html(record.component)) +
           row(SummaryPage::tr("Size"), size) +
           row(SummaryPage::tr("Started in"), html(ReasonText::shown(record.face))) +
           row(SummaryPage::tr("Computer"),
               record.host.isEmpty() ? QString()
                                     : html(SummaryPage::tr("%1, %2, %3 with %4 cores")
                                                .arg(record.host, record.system, record.processor)
                                                .arg(record.cores))) +
           row(SummaryPage::tr("User"), html(record.user)) +
           row(SummaryPage::tr("Version"), html(record.suiteVersion)) +
           row(SummaryPage::tr("Installation"), html(record.installation));
}

QString fileRow(const QString& path, const QString& checksum, qint64 size, FileState state)
{
    QString text = html(path);
    if (size >= 0) {
        text += QStringLiteral(", %1").arg(QLocale::c().formattedDataSize(size));
    }
    if (state != FileState::Unknown) {
        text += QStringLiteral(", <b>%1</b>").arg(SummaryPage::tr(stateTexts[int(state)]));
    }
    if (!checksum.isEmpty()) {
        text += QStringLiteral("<br><small>SHA-256 %1</small>").arg(checksum);
    }
    return text;
}

QString fileRows(const RunRecord& record, const QVector<FileState>& states)
{
    QString text = row(SummaryPage::tr("Model"),
                       fileRow(record.model, record.modelChecksum, -1,
                               states.value(record.files.size(), FileState::Unknown)));
    text += row(SummaryPage::tr("Its copy"), html(record.modelCopyPath()));
    for (int i = 0; i < record.files.size(); ++i) {
        const RunRecord::File& file = record.files.at(i);
        text +=
            row(i == 0 ? SummaryPage::tr("Results") : QStringLiteral(" "),
                fileRow(file.path, file.checksum, file.size, states.value(i, FileState::Unknown)));
    }
    return text;
}

QString lastLines(const RunRecord& record)
{
    QString text;
    for (const QString& line : record.lastLines) {
        text += html(line.trimmed().isEmpty() ? QString() : line) + QLatin1Char('\n');
    }
    return text.isEmpty() ? QString()
                          : QStringLiteral("<p><b>%1</b></p><pre>%2</pre>")
                                .arg(SummaryPage::tr("Last lines of the output"), text);
}

FileState stateOf(const QString& path, const QString& checksum)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) {
        return FileState::Gone;
    }
    QCryptographicHash hash(QCryptographicHash::Sha256);
    if (checksum.isEmpty() || !hash.addData(&file)) {
        return FileState::Unknown;
    }
    return QString::fromLatin1(hash.result().toHex()) == checksum ? FileState::Same
                                                                  : FileState::Changed;
}

} // namespace

SummaryPage::SummaryPage(QWidget* parent) : QTextBrowser(parent)
{
    setObjectName(QStringLiteral("summaryPage"));
    setAccessibleName(tr("Summary"));
    setOpenLinks(false);
}

void SummaryPage::show(const RunRecord& record, const QVector<FileState>& states)
{
    const QString text = QStringLiteral("<table>") + outcomeRows(record) + timeRows(record) +
                         placeRows(record) + fileRows(record, states) + QStringLiteral("</table>") +
                         lastLines(record);
    setHtml(text);
}

QVector<FileState> SummaryPage::fileStates(const RunRecord& record)
{
    QVector<FileState> states;
    for (const RunRecord::File& file : record.files) {
        states.append(stateOf(file.path, file.checksum));
    }
    states.append(stateOf(record.model, record.modelChecksum));
    return states;
}
