// SPDX-License-Identifier: MIT
#include "RecordWindow.h"

#include "CommandPage.h"
#include "CureBar.h"
#include "DifferencesPage.h"
#include "MessageView.h"
#include "RecordFolder.h"
#include "ResumedRun.h"
#include "ToolTip.h"

#include <VisibleText.h>

#include <common_HelpClient.h>
#include <common_IIconUtility.h>
#include <common_ServiceOf.h>

#include <QHBoxLayout>
#include <QIcon>
#include <QPushButton>
#include <QShortcut>
#include <QTabWidget>
#include <QVBoxLayout>

#include <utility>

namespace {

constexpr int interval = 1000; // milliseconds between two reads of a running run's record
constexpr int usualWidth = 760;
constexpr int usualHeight = 520;

const QVector<MessageView::Kind>& kinds()
{
    // clang-format off
    static const QVector<MessageView::Kind> table = {
        {common_IProcessMessage::Error,   QT_TRANSLATE_NOOP("MessageView", "Errors"),   true},
        {common_IProcessMessage::Warning, QT_TRANSLATE_NOOP("MessageView", "Warnings"), true},
        {common_IProcessMessage::Notice,  QT_TRANSLATE_NOOP("MessageView", "Notices"),  true},
        {common_IProcessMessage::File,    QT_TRANSLATE_NOOP("MessageView", "Files"),    true},
    };
    // clang-format on
    return table;
}

} // namespace

RecordWindow::RecordWindow(RunArchive archive, int number, QWidget* parent)
    : QDialog(parent, Qt::Window)
    , m_archive(std::move(archive))
    , m_number(number)
    , m_tabs(new QTabWidget(this))
    , m_summary(new SummaryPage(m_tabs))
    , m_command(new CommandPage(m_tabs))
    , m_differences(new DifferencesPage(m_archive, m_tabs))
    , m_cure(new CureBar("recordProblemLabel", "cureButton", this))
    , m_againButton(new QPushButton(tr("Run &again exactly"), this))
    , m_resumeButton(new QPushButton(tr("R&esume"), this))
{
    setObjectName(QStringLiteral("recordWindow"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowIcon(GET_SERVICE(common_IIconUtility)->getIcon(QStringLiteral("kestdesk")));
    resize(usualWidth, usualHeight);
    makePages();
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_tabs, 1);
    layout->addWidget(makeButtons());
    updateTitle();
    GET_SERVICE(common_HelpClient)->registerPage(this, QStringLiteral("kestdesk"));
    m_timer.setInterval(interval);
    connect(&m_timer, &QTimer::timeout, this, &RecordWindow::read);
    read();
}

void RecordWindow::makePages()
{
    m_tabs->setObjectName(QStringLiteral("recordTabs"));
    m_tabs->addTab(m_summary, tr("&Summary"));
    m_tabs->addTab(m_command, tr("&Command"));
    m_tabs->addTab(m_differences, tr("&Differences"));
}

QWidget* RecordWindow::makeButtons()
{
    auto* row = new QWidget(this);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_cure, 1);
    addButton(row, m_resumeButton, "resumeRecordButton");
    m_resumeButton->setEnabled(false);
    addButton(row, m_againButton, "runAgainButton");
    m_againButton->setEnabled(false);
    auto* closeButton = new QPushButton(tr("Close"), row);
    addButton(row, closeButton, "closeRecordButton");
    connect(m_cure, &CureBar::cureRequested, this, &RecordWindow::cureRequested);
    connect(m_againButton, &QPushButton::clicked, this,
            [this] { Q_EMIT againRequested(m_number); });
    connect(m_resumeButton, &QPushButton::clicked, this,
            [this] { Q_EMIT resumeRequested(m_number); });
    connect(closeButton, &QPushButton::clicked, this, &QWidget::close);
    return row;
}

// None of them is pressed by the Enter key in a text field.
void RecordWindow::addButton(QWidget* row, QPushButton* button, const char* name)
{
    button->setObjectName(QLatin1String(name));
    button->setAutoDefault(false);
    row->layout()->addWidget(button);
}

void RecordWindow::read()
{
    m_disk.post([this, archive = m_archive, number = m_number](const DiskThread::Answer& answer) {
        const auto record = archive.record(number);
        answer([this, record] { show(record); });
    });
}

void RecordWindow::show(const std::optional<RunRecord>& record)
{
    if (!record) {
        m_timer.stop();
        m_cure->setText(tr("The record has been deleted."));
        return;
    }
    const bool wasRunning = m_store == nullptr || m_record.state == RunRecord::State::Running;
    m_record = *record;
    const bool isRunning = m_record.state == RunRecord::State::Running;
    if (m_store == nullptr) {
        makeMessages();
        m_command->show(m_record);
    }
    if (wasRunning) {
        m_summary->show(m_record, m_fileStates);
        m_differences->setRecord(m_record);
    }
    if (isRunning) {
        m_timer.start();
    } else if (wasRunning) {
        m_timer.stop();
        m_store->setGrowing(false);
        readFileStates();
    }
    m_againButton->setEnabled(!isRunning);
    updateTitle();
    updateCure();
}

void RecordWindow::makeMessages()
{
    const bool isRunning = m_record.state == RunRecord::State::Running;
    m_store = new MessageStore(RecordFolder(m_record.folder).messagesFile(), isRunning, this);
    m_messages = new MessageView(m_store, kinds(), m_tabs);
    auto* const output = new MessageView(m_store, {}, m_tabs);
    m_tabs->insertTab(1, m_messages, tr("&Messages"));
    m_tabs->insertTab(2, output, tr("&Output"));
    connect(m_messages, &MessageView::currentChanged, this, &RecordWindow::updateCure);
    connect(m_messages, &MessageView::activated, m_cure, &CureBar::use);
    connect(m_tabs, &QTabWidget::currentChanged, this, &RecordWindow::updateCure);
}

void RecordWindow::readFileStates()
{
    m_disk.post([this, record = m_record](const DiskThread::Answer& answer) {
        const QString obstacle = ResumedRun::obstacle(record);
        answer([this, obstacle] { showResumable(obstacle); });
        const QVector<SummaryPage::FileState> states = SummaryPage::fileStates(record);
        answer([this, states] {
            m_fileStates = states;
            m_summary->show(m_record, m_fileStates);
        });
    });
}

void RecordWindow::showResumable(const QString& obstacle)
{
    const QString hint = obstacle.isEmpty()
                             ? tr("Runs it again and computes only what this run has not kept")
                             : obstacle;
    m_resumeButton->setEnabled(obstacle.isEmpty());
    m_resumeButton->setToolTip(ToolTip::of(hint));
    m_resumeButton->setAccessibleDescription(hint);
}

void RecordWindow::updateTitle()
{
    const QString run = tr("Run %1").arg(m_number);
    setWindowTitle(m_record.model.isEmpty()
                       ? run
                       : QStringLiteral("%1: %2").arg(run, suite::visibleFileName(m_record.model)));
}

// The problem of the selected message, or else of the run.
QString RecordWindow::problem() const
{
    if (m_messages != nullptr && m_tabs->currentWidget() == m_messages &&
        !m_messages->currentText().isEmpty()) {
        return m_messages->currentText();
    }
    return m_record.problem.isEmpty() ? m_record.reason : m_record.problem;
}

void RecordWindow::updateCure()
{
    m_cure->setProblem(problem(), m_record);
}
