#include "SummaryPage.h"

#include "EndReasons.h"
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
constexpr const char* stateTexts[] = {"", "unchanged since", "changed since", "no longer there"};

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
    QString text = record.isCrash ? EndReasons::crashNumber(record.exitCode)
                                  : QString::number(record.exitCode);
    if (reason != nullptr) {
        text += *reason->name == '\0'
                    ? QStringLiteral(": %1").arg(QLatin1String(reason->meaning))
                    : QStringLiteral(", %1: %2")
                          .arg(QLatin1String(reason->name), QLatin1String(reason->meaning));
    }
    return text;
}

QString becauseOf(const RunRecord& record)
{
    QStringList sentences;
    if (!record.reason.isEmpty()) {
        sentences.append(QStringLiteral("%1 %2.").arg(record.component, record.reason));
    }
    if (!record.problem.isEmpty()) {
        QString problem = record.problem;
        problem[0] = problem.at(0).toUpper();
        sentences.append(problem + QLatin1Char('.'));
    }
    return html(sentences.join(QLatin1Char(' ')));
}

QString counts(const RunRecord& record)
{
    return QStringLiteral("%1 errors, %2 warnings, %3 notices")
        .arg(record.errors)
        .arg(record.warnings)
        .arg(record.notices);
}

QString outcomeRows(const RunRecord& record)
{
    const bool isRunning = record.state == RunRecord::State::Running;
    return row(QStringLiteral("Outcome"),
               html(isRunning || record.outcome.isEmpty() ? RunRecord::word(record.state)
                                                          : record.outcome)) +
           row(QStringLiteral("Why"), becauseOf(record)) +
           row(record.isCrash ? QStringLiteral("Ended by") : QStringLiteral("Exit code"),
               html(exitText(record))) +
           row(QStringLiteral("Stopped by"), html(record.stoppedBy)) +
           row(QStringLiteral("Done"), QStringLiteral("%1 %").arg(record.totalPercentage)) +
           row(QStringLiteral("Messages"), counts(record)) +
           row(QStringLiteral("Not complete"), html(record.gap)) +
           row(QStringLiteral("Left out"),
               record.omittedLines == 0
                   ? QString()
                   : QStringLiteral("%1 lines of output").arg(record.omittedLines));
}

QString timeRows(const RunRecord& record)
{
    return row(QStringLiteral("Started"), timeText(record.started)) +
           row(QStringLiteral("Ended"), timeText(record.ended)) +
           row(QStringLiteral("Took"),
               record.hasEnded() ? RunTexts::shortClockTime(record.duration) : QString()) +
           row(QStringLiteral("Repeats"),
               record.repeats == 0 ? QString() : QStringLiteral("run %1").arg(record.repeats)) +
           row(QStringLiteral("Without hosts"),
               html(record.leftOutHosts.join(QStringLiteral(", "))));
}

QString placeRows(const RunRecord& record)
{
    const QString size = record.segments == 0
                             ? QString()
                             : QStringLiteral("%1 segments, %2 frequencies, %3 processes")
                                   .arg(record.segments)
                                   .arg(record.frequencies)
                                   .arg(record.processes);
    return row(QStringLiteral("Component"), html(record.component)) +
           row(QStringLiteral("Size"), size) +
           row(QStringLiteral("Started in"), html(record.face)) +
           row(QStringLiteral("Computer"),
               record.host.isEmpty() ? QString()
                                     : html(QStringLiteral("%1, %2, %3 with %4 cores")
                                                .arg(record.host, record.system, record.processor)
                                                .arg(record.cores))) +
           row(QStringLiteral("User"), html(record.user)) +
           row(QStringLiteral("Version"), html(record.suiteVersion)) +
           row(QStringLiteral("Installation"), html(record.installation));
}

QString fileRow(const QString& path, const QString& checksum, qint64 size, FileState state)
{
    QString text = html(path);
    if (size >= 0) {
        text += QStringLiteral(", %1").arg(QLocale::c().formattedDataSize(size));
    }
    if (state != FileState::Unknown) {
        text += QStringLiteral(", <b>%1</b>").arg(QLatin1String(stateTexts[int(state)]));
    }
    if (!checksum.isEmpty()) {
        text += QStringLiteral("<br><small>SHA-256 %1</small>").arg(checksum);
    }
    return text;
}

QString fileRows(const RunRecord& record, const QVector<FileState>& states)
{
    QString text = row(QStringLiteral("Model"),
                       fileRow(record.model, record.modelChecksum, -1,
                               states.value(record.files.size(), FileState::Unknown)));
    text += row(QStringLiteral("Its copy"), html(record.modelCopyPath()));
    for (int i = 0; i < record.files.size(); ++i) {
        const RunRecord::File& file = record.files.at(i);
        text +=
            row(i == 0 ? QStringLiteral("Results") : QStringLiteral(" "),
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
    return text.isEmpty()
               ? QString()
               : QStringLiteral("<p><b>Last lines of the output</b></p><pre>%1</pre>").arg(text);
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
    setAccessibleName(QStringLiteral("Summary"));
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
