// SPDX-License-Identifier: MIT
#include <common_KestProcessDialog.h>

#include "widgets/common_Colourise.h"
#include "widgets/common_CommandLabel.h"
#include "widgets/common_KestProcessOutputTabWidget.h"
#include "widgets/common_ProcessDialogServices.h"
#include "widgets/common_ProcessDialogWidgets.h"

#include <common_ComponentsLaunchOptions.h>
#include <common_IProcessMessage.h>
#include <common_LaunchOptionNames.h>
#include <common_ProcessDialogIcons.h>
#include <common_ServiceCheck.h>
#include <common_UserQuery.h>

#include <QAction>
#include <QClipboard>
#include <QCloseEvent>
#include <QFileInfo>
#include <QGridLayout>
#include <QGroupBox>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QMovie>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>

#include <utility>

namespace widgets = common_ProcessDialogWidgets;

namespace {

constexpr const char* sourceFile = "src/process/common_KestProcessDialog.cpp";

QString promptText()
{
    return QStringLiteral("> ");
}

QString detailsShownKey()
{
    return QLatin1String(common_LaunchOptionNames::runDetailsShown);
}

// A bar that is not visible keeps its value.
void showPercentage(QProgressBar* bar, const QString& text)
{
    const int percentage = text.toInt();
    if (percentage != -1 && bar->isVisible()) {
        bar->setValue(percentage);
    }
}

// Some services are used only in the middle of a run, or when a file is locked.
void reportMissingServices()
{
    const QString problem = common_ServiceCheck::problem(common_ServiceCheck::ProcessDialog);
    if (!problem.isEmpty()) {
        qWarning("common_KestProcessDialog: %s", qUtf8Printable(problem));
    }
}

// The names of the outcomes are those of their icons.
void setOutcome(QPushButton* button, const char* outcome)
{
    button->setIcon(common_ProcessDialogServices::icon(outcome));
    button->setProperty("squishValue", QLatin1String(outcome));
}

} // namespace

common_KestProcessDialog::common_KestProcessDialog(Runner runner, QWidget* parent)
    : QDialog(parent, Qt::WindowMinimizeButtonHint), m_pRunner(std::move(runner))
{
    reportMissingServices();
    setAttribute(Qt::WA_DeleteOnClose);
    startObserving(m_pRunner.get());
    setWindowFlags(windowFlags() & ~Qt::WindowContextHelpButtonHint);
    setObjectName(QStringLiteral("common_KestProcessDialog"));

    auto* const layout = new QVBoxLayout(this);
    layout->addLayout(createProgressLayout());
    m_pNoticesCount = new QLabel(QString::number(0));
    m_pNoticesBox = widgets::createCountBox(common_ProcessDialogIcons::info, m_pNoticesCount,
                                            QStringLiteral("distinct notice(s) occurred"));
    layout->addWidget(m_pNoticesBox);
    m_pWarningsCount = new QLabel(QString::number(0));
    m_pWarningsBox = widgets::createCountBox(common_ProcessDialogIcons::warning, m_pWarningsCount,
                                             QStringLiteral("distinct warning(s) occurred"));
    layout->addWidget(m_pWarningsBox);
    m_pInfoLabel = common_CommandLabel::create();
    layout->addWidget(m_pInfoLabel);
    m_pOutput = new common_KestProcessOutputTabWidget(this);
    m_pOutput->hide();
    layout->addWidget(m_pOutput);
    layout->addLayout(createButtonLayout());
    setOutputFont();
    connectWidgets();
}

common_KestProcessDialog::~common_KestProcessDialog()
{
    stopObserving();
    m_pRunner.reset();
}

void common_KestProcessDialog::setTitle(const QString& title)
{
    setWindowTitle(title);
    m_isTitleSet = !title.isEmpty();
}

void common_KestProcessDialog::setInfoLabel(const QString& text)
{
    common_CommandLabel::setText(*m_pInfoLabel, text);
    m_isInfoSet = !text.isEmpty();
}

void common_KestProcessDialog::setInfoLabelVisible(bool visible)
{
    m_pInfoLabel->setVisible(visible);
}

void common_KestProcessDialog::setProgressBarVisible(bool visible)
{
    m_pDetailsButton->setChecked(!visible);
    QWidget* const parts[] = {m_pDetailsButton, m_pProgressBar, m_pPhaseLabel, m_pTotalProgressBar,
                              m_pTotalLabel};
    for (QWidget* const widget : parts) {
        widget->setVisible(visible);
    }
    m_pTotalProgressBar->setValue(m_pTotalProgressBar->maximum());
    m_pBusyLabel->setVisible(visible);
}

void common_KestProcessDialog::onProcessStarted(const QString& executable,
                                                const QStringList& arguments)
{
    if (!common_ProcessDialogServices::isNonInteractive()) {
        show();
    }
    const QFileInfo file(executable);
    if (!m_isTitleSet) {
        setWindowTitle(QStringLiteral("Executing ") + file.baseName());
    }
    if (!m_isInfoSet) {
        common_CommandLabel::setText(*m_pInfoLabel, promptText() + file.fileName() +
                                                        QLatin1Char(' ') +
                                                        arguments.join(QLatin1Char(' ')));
    }
    m_pStopButton->setEnabled(true);
    m_pOkButton->setEnabled(false);
    setFocus(); // not to Stop: keys may still come that were meant for another window
    m_pBusyLabel->movie()->start();

    const auto options = common_ComponentsLaunchOptions::create(ReadOnlyAccess);
    if (options && m_pDetailsButton->isVisible()) {
        m_pDetailsButton->setChecked((*options)[detailsShownKey()].castToBool());
    }
}

void common_KestProcessDialog::onFailedProcessStarted(const QString& executable,
                                                      const QStringList& arguments,
                                                      const QString& /*errorString*/)
{
    const QString text =
        QStringLiteral("Process\n    %1\ncould not be started with the following arguments:\n"
                       "    %2.\nPlease ensure that Morlan Kest is fully installed, and that\n"
                       "the KEST_HOME environment variable is set correctly.")
            .arg(executable, arguments.join(QLatin1Char(' ')));
    common_UserQuery(QStringLiteral("Information"), text, common_UserQuery::Information,
                     parentWidget(), QString())
        .display();
}

void common_KestProcessDialog::onProcessMessageReceived(const common_IProcessMessage& message)
{
    switch (message.getType()) {
    case common_IProcessMessage::Output:
        m_pOutput->append(message.getText());
        break;
    case common_IProcessMessage::LineFeed:
        m_pOutput->append(QString());
        break;
    case common_IProcessMessage::Percentage:
        showPercentage(m_pProgressBar, message.getText());
        break;
    case common_IProcessMessage::TotalPercentage:
        showPercentage(m_pTotalProgressBar, message.getText());
        break;
    case common_IProcessMessage::Error:
        m_pOutput->addError(message.getText());
        m_pDetailsButton->setChecked(true);
        break;
    case common_IProcessMessage::Warning:
        showCount(m_pWarningsBox, m_pWarningsCount, m_pOutput->addWarning(message.getText()));
        break;
    case common_IProcessMessage::Notice:
        showCount(m_pNoticesBox, m_pNoticesCount, m_pOutput->addNotice(message.getText()));
        break;
    case common_IProcessMessage::File:
        m_pOutput->append(message.getText().trimmed());
        break;
    default:
        COMMON_ASSERT_AT(false, "0", sourceFile, __LINE__);
    }
}

void common_KestProcessDialog::onProcessDone()
{
    m_pStopQuery = nullptr;
    m_pStopButton->setEnabled(false);
    m_pOkButton->setEnabled(true);
    m_pOkButton->setFocus();
    m_pBusyLabel->movie()->stop();
    const bool complete = m_pTotalProgressBar->value() == m_pTotalProgressBar->maximum();
    setOutcome(m_pOkButton,
               complete ? common_ProcessDialogIcons::valid : common_ProcessDialogIcons::fault);
}

void common_KestProcessDialog::onExitCodeChanged(int /*exitCode*/)
{}

// The question runs an event loop, in which the parent may be destroyed, and the dialog with it.
void common_KestProcessDialog::closeEvent(QCloseEvent* event)
{
    if (m_pRunner->isRunning()) {
        event->setAccepted(handleStop());
    }
}

void common_KestProcessDialog::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape) {
        const QPointer<common_KestProcessDialog> self(this);
        QCloseEvent close;
        closeEvent(&close);
        if (!self || !close.isAccepted()) {
            return;
        }
    }
    QDialog::keyPressEvent(event);
}

void common_KestProcessDialog::closeDialog()
{
    if (m_pRunner->isRunning()) {
        m_pRunner->stopProcess();
    }
    done(0);
}

void common_KestProcessDialog::onStopClicked()
{
    handleStop();
}

void common_KestProcessDialog::onDetailsClicked(bool checked)
{
    const auto options = common_ComponentsLaunchOptions::create(ReadWriteAccess);
    if (options) {
        common_PropertyReference detailsShown = (*options)[detailsShownKey()];
        detailsShown.assignFromBool(checked);
        detailsShown.notify();
        options->writeSettings();
    }
}

void common_KestProcessDialog::onDetailsToggled(bool checked)
{
    QWidget* const details[] = {m_pInfoLabel, m_pOutput, m_pProgressBar, m_pPhaseLabel,
                                m_pTotalLabel};
    for (QWidget* const widget : details) {
        widget->setVisible(checked);
    }
    m_pBusyLabel->setVisible(!checked);
    m_pWarningsBox->setVisible(!checked && m_pWarningsCount->text().toInt() > 0);
    m_pNoticesBox->setVisible(!checked && m_pNoticesCount->text().toInt() > 0);
    if (focusWidget() == m_pStopButton) { // it may have been passed on by the output
        setFocus();
    }
    adjustSize();
}

void common_KestProcessDialog::onCommandCopied()
{
    QGuiApplication::clipboard()->setText(m_pInfoLabel->text().mid(promptText().size()));
}

bool common_KestProcessDialog::handleStop()
{
    const QPointer<common_KestProcessDialog> self(this);
    const Runner runner = m_pRunner;
    common_UserQuery query(QStringLiteral("Warning"),
                           QStringLiteral("Are you sure you want to stop the process?"),
                           common_UserQuery::Warning, this, QString());
    m_pStopQuery = &query;
    query.addOption(QStringLiteral("Yes"), QMessageBox::YesRole, common_UserQuery::EnterDefault);
    query.addOption(QStringLiteral("No"), QMessageBox::NoRole, common_UserQuery::EscapeDefault);
    const bool stop = query.display() == QMessageBox::YesRole;
    if (stop) {
        runner->stopProcess();
    }
    if (self) {
        m_pStopQuery = nullptr;
    }
    return stop;
}

QString common_KestProcessDialog::colourise(const QString& text, const QColor& colour)
{
    return common_colourise(text, colour);
}

// The busy label and the total-progress label share a cell, and are never visible together.
QLayout* common_KestProcessDialog::createProgressLayout()
{
    m_pTotalLabel = new QLabel(QStringLiteral("Total progress:"));
    m_pBusyLabel = widgets::createBusyLabel();
    m_pTotalProgressBar = widgets::createProgressBar("totalProgressBar");
    m_pPhaseLabel = new QLabel(QStringLiteral("Current phase:"));
    m_pProgressBar = widgets::createProgressBar("progressBar");

    auto* const layout = new QGridLayout;
    layout->addWidget(m_pTotalLabel, 0, 0);
    layout->addWidget(m_pBusyLabel, 0, 0);
    layout->addWidget(m_pTotalProgressBar, 0, 1);
    layout->addWidget(m_pPhaseLabel, 1, 0);
    layout->addWidget(m_pProgressBar, 1, 1);
    for (QWidget* const widget :
         {static_cast<QWidget*>(m_pTotalLabel), static_cast<QWidget*>(m_pPhaseLabel),
          static_cast<QWidget*>(m_pProgressBar)}) {
        widget->hide();
    }
    return layout;
}

QLayout* common_KestProcessDialog::createButtonLayout()
{
    m_pDetailsButton = widgets::createDetailsButton();
    m_pOkButton = widgets::createOkButton();
    m_pStopButton = widgets::createStopButton();
    auto* const layout = new QHBoxLayout;
    layout->addWidget(m_pDetailsButton, 1, Qt::AlignLeft);
    layout->addWidget(m_pOkButton, 0, Qt::AlignRight);
    layout->addWidget(m_pStopButton, 0, Qt::AlignRight);
    return layout;
}

void common_KestProcessDialog::setOutputFont()
{
    const QFont font = widgets::outputFont();
    const int width = widgets::outputWidth(font);
    m_pOutput->setFont(font);
    m_pOutput->setMinimumWidth(width);
    m_pInfoLabel->setMinimumWidth(width);
}

// By name, because test tools list these names.
void common_KestProcessDialog::connectWidgets()
{
    connect(m_pOkButton, SIGNAL(clicked(bool)), this, SLOT(closeDialog()));
    connect(m_pStopButton, SIGNAL(clicked(bool)), this, SLOT(onStopClicked()));
    connect(m_pDetailsButton, SIGNAL(clicked(bool)), this, SLOT(onDetailsClicked(bool)));
    connect(m_pDetailsButton, SIGNAL(toggled(bool)), this, SLOT(onDetailsToggled(bool)));
    connect(m_pInfoLabel->actions().constFirst(), SIGNAL(triggered(bool)), this,
            SLOT(onCommandCopied()));
}

void common_KestProcessDialog::showCount(QGroupBox* box, QLabel* label, int count)
{
    label->setNum(count);
    box->setVisible(!m_pOutput->isVisible());
}
