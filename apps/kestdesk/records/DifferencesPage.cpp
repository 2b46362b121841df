// SPDX-License-Identifier: MIT
#include "DifferencesPage.h"

#include "ReasonText.h"
#include "RunTexts.h"

#include <VisibleText.h>

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QTextBrowser>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace {

using File = RunComparison::File;

QString html(const QString& text)
{
    return suite::visibleLines(text).toHtmlEscaped();
}

QString bold(const QString& text)
{
    return QStringLiteral("<b>%1</b>").arg(text);
}

QString section(const QString& title, const QString& rows)
{
    return rows.isEmpty()
               ? QString()
               : QStringLiteral("<h4>%1</h4><table cellspacing=4>%2</table>").arg(title, rows);
}

QString row(const QString& name, const QString& left, const QString& right)
{
    return QStringLiteral("<tr><td>%1&nbsp;&nbsp;</td><td>%2&nbsp;&nbsp;</td><td>%3</td></tr>")
        .arg(name, left, right);
}

QString fieldRows(const QVector<RunComparison::Field>& fields)
{
    QString rows;
    for (const RunComparison::Field& field : fields) {
        rows += row(html(field.label), html(field.left), html(field.right));
    }
    return rows;
}

QString messageRows(const QVector<RunComparison::Message>& messages)
{
    QString rows;
    for (const RunComparison::Message& message : messages) {
        rows += row(ReasonText::shown(RecordedMessage::word(message.type)) + QStringLiteral(": ") +
                        html(message.text.trimmed()),
                    DifferencesPage::tr("%1 times").arg(message.left),
                    DifferencesPage::tr("%1 times").arg(message.right));
    }
    return rows;
}

// The lines as they are, with signs before those that only one side has.
QString lineText(const RunComparison::Text& text)
{
    if (text.isSame) {
        return QString();
    }
    if (!text.problem.isEmpty()) {
        return QStringLiteral("<p>%1</p>")
            .arg(
                DifferencesPage::tr("Not compared: %1").arg(html(ReasonText::shown(text.problem))));
    }
    if (text.changes.isEmpty()) {
        return QStringLiteral("<p>%1</p>")
            .arg(DifferencesPage::tr("Only the ends of lines differ."));
    }
    QString lines;
    for (const suite::LineChange& change : text.changes) {
        lines +=
            QStringLiteral("<b>%1</b>\n").arg(DifferencesPage::tr("line %1").arg(change.rightLine));
        for (const QString& line : change.left) {
            lines += QStringLiteral("- ") + html(line) + QLatin1Char('\n');
        }
        for (const QString& line : change.right) {
            lines += QStringLiteral("+ ") + html(line) + QLatin1Char('\n');
        }
    }
    return QStringLiteral("<pre>%1</pre>").arg(lines);
}

QString textSection(const QString& title, const RunComparison::Text& text)
{
    const QString lines = lineText(text);
    return lines.isEmpty() ? QString() : QStringLiteral("<h4>%1</h4>%2").arg(title, lines);
}

QString fileRows(const QVector<File>& files)
{
    QString rows;
    for (const File& file : files) {
        rows += row(html(file.name), ReasonText::shown(File::word(file.state)),
                    html(ReasonText::shown(file.problem)));
    }
    return rows;
}

QString nameOf(const RunRecord& record)
{
    return DifferencesPage::tr("Run %1: %2, %3")
        .arg(record.number)
        .arg(ReasonText::shown(RunRecord::word(record.state)),
             record.started.toLocalTime().toString(QStringLiteral("yyyy-MM-dd HH:mm")));
}

} // namespace

DifferencesPage::DifferencesPage(RunArchive archive, QWidget* parent)
    : QWidget(parent)
    , m_archive(std::move(archive))
    , m_other(new QComboBox(this))
    , m_text(new QTextBrowser(this))
{
    m_other->setObjectName(QStringLiteral("otherRunBox"));
    m_other->setAccessibleName(tr("Run to compare with"));
    m_text->setObjectName(QStringLiteral("differencesText"));
    m_text->setAccessibleName(tr("Differences"));
    m_text->setOpenLinks(false);
    auto* head = new QHBoxLayout;
    auto* label = new QLabel(tr("Differences &from:"), this);
    label->setBuddy(m_other);
    head->addWidget(label);
    head->addWidget(m_other, 1);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(head);
    layout->addWidget(m_text, 1);
    connect(m_other, qOverload<int>(&QComboBox::activated), this, &DifferencesPage::compare);
}

void DifferencesPage::setRecord(const RunRecord& record)
{
    m_record = record;
    if (isVisible()) {
        readRuns();
    }
}

void DifferencesPage::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    readRuns();
}

void DifferencesPage::readRuns()
{
    if (m_record.number == 0 || std::exchange(m_isRead, true)) {
        return;
    }
    m_text->setPlainText(tr("Reading..."));
    m_disk.post([this, archive = m_archive, model = m_record.model,
                 number = m_record.number](const DiskThread::Answer& answer) {
        QVector<RunRecord> runs = archive.records();
        runs.erase(std::remove_if(runs.begin(), runs.end(),
                                  [&](const RunRecord& run) {
                                      return run.model != model || run.number == number;
                                  }),
                   runs.end());
        answer([this, runs] { offer(runs); });
    });
}

// The previous run is the first choice.
void DifferencesPage::offer(const QVector<RunRecord>& runs)
{
    m_others = runs;
    for (const RunRecord& run : runs) {
        m_other->addItem(nameOf(run));
    }
    m_other->setEnabled(!runs.isEmpty());
    const auto previous = std::find_if(runs.begin(), runs.end(), [this](const RunRecord& run) {
        return run.number < m_record.number;
    });
    if (runs.isEmpty()) {
        m_text->setPlainText(tr("There is no other run of this model."));
    } else {
        m_other->setCurrentIndex(previous == runs.end() ? 0 : int(previous - runs.begin()));
        compare();
    }
}

void DifferencesPage::compare()
{
    const RunRecord other = m_others.value(m_other->currentIndex());
    m_text->setPlainText(tr("Comparing..."));
    m_disk.post([this, other, record = m_record](const DiskThread::Answer& answer) {
        const RunComparison comparison = RunComparison::of(other, record);
        answer([this, comparison] {
            if (m_others.value(m_other->currentIndex()).number == comparison.leftNumber) {
                show(comparison);
            }
        });
    });
}

void DifferencesPage::show(const RunComparison& comparison)
{
    QString problems;
    for (const QString& problem : comparison.problems) {
        problems += QStringLiteral("<p>%1</p>")
                        .arg(tr("Not compared: %1").arg(html(ReasonText::shown(problem))));
    }
    const QString title =
        QStringLiteral("<table cellspacing=4>%1%2</table>")
            .arg(row(QString(), bold(tr("run %1").arg(comparison.leftNumber)),
                     bold(tr("run %1").arg(comparison.rightNumber))),
                 row(tr("Took"), RunTexts::shortClockTime(comparison.leftDuration),
                     RunTexts::shortClockTime(comparison.rightDuration)));
    const QString same =
        comparison.isSame()
            ? QStringLiteral("<p>%1</p>").arg(tr("There is no difference but the times."))
            : QString();
    m_text->setHtml(title + same + section(tr("Run"), fieldRows(comparison.run)) +
                    section(tr("Outcome"), fieldRows(comparison.shownOutcome())) +
                    section(tr("Launch options"), fieldRows(comparison.launchOptions)) +
                    section(tr("Environment"), fieldRows(comparison.environment)) +
                    section(tr("Computer and versions"), fieldRows(comparison.computer)) +
                    textSection(tr("Model"), comparison.model) +
                    textSection(tr("Machines file"), comparison.machinesFile) +
                    section(tr("Messages"), messageRows(comparison.messages)) +
                    section(tr("Files"), fileRows(comparison.files)) + problems);
}
