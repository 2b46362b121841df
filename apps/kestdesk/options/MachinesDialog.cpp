// SPDX-License-Identifier: MIT
#include "MachinesDialog.h"

#include "MachinesTextEdit.h"
#include "RunTexts.h"

#include <MachinesFile.h>

#include <common_HelpClient.h>
#include <common_IIconUtility.h>
#include <common_ServiceOf.h>
#include <common_UserQuery.h>

#include <QDialogButtonBox>
#include <QDir>
#include <QIcon>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>

using suite::MachinesFile;

namespace {

QString dialogTitle()
{
    return MachinesDialog::tr("Machines file");
}

// By MachinesFile::Severity.
constexpr const char* severityIcons[] = {"info", "warning", "fault"};

enum Answer {
    Overwrite = QMessageBox::AcceptRole,
    Reload = QMessageBox::ResetRole,
    GoOn = QMessageBox::RejectRole
};

QIcon icon(MachinesFile::Severity severity)
{
    return common_ServiceOf<common_IIconUtility>::hasService()
               ? GET_SERVICE(common_IIconUtility)
                     ->getIcon(QString::fromLatin1(severityIcons[static_cast<int>(severity)]))
               : QIcon();
}

bool wants(const QString& question, const QString& yes, QWidget* parent)
{
    common_UserQuery query(dialogTitle(), question, common_UserQuery::Warning, parent, QString());
    query.addOption(yes, QMessageBox::AcceptRole);
    query.addOption(MachinesDialog::tr("Go on editing"), QMessageBox::RejectRole,
                    common_UserQuery::EscapeDefault);
    return query.display() == QMessageBox::AcceptRole;
}

} // namespace

MachinesDialog::MachinesDialog(QWidget* parent)
    : QDialog(parent)
    , m_origin(new QLabel(this))
    , m_text(new MachinesTextEdit(this))
    , m_findings(new QListWidget(this))
    , m_summary(new QLabel(this))
{
    setObjectName(QStringLiteral("machinesDialog"));
    setWindowTitle(dialogTitle());
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    makeWidgets();
    if (common_ServiceOf<common_HelpClient>::hasService()) {
        GET_SERVICE(common_HelpClient)->registerPage(this, QStringLiteral("machines-file"));
    }
    load();
    connect(m_text, &QPlainTextEdit::textChanged, this, &MachinesDialog::check);
    const int unit = fontMetrics().averageCharWidth();
    resize(QSize(unit * 90, unit * 75).boundedTo(screen()->availableSize() * 9 / 10));
}

bool MachinesDialog::edit(QWidget* parent, const QString& host)
{
    MachinesDialog dialog(parent);
    dialog.goToHost(host);
    return dialog.exec() == Accepted;
}

void MachinesDialog::goToHost(const QString& host)
{
    const MachinesFile file = MachinesFile::parse(typed());
    for (const MachinesFile::Entry& entry : file.hosts()) {
        if (entry.host.compare(host, Qt::CaseInsensitive) == 0) {
            m_text->goToLine(entry.line);
            m_text->setFocus();
        }
    }
}

void MachinesDialog::makeWidgets()
{
    auto* const layout = new QVBoxLayout(this);
    auto* const label = new QLabel(
        tr("&Machines, one a line: a host, \":\" and how many processes it takes"), this);
    label->setBuddy(m_text);
    auto* const findingsLabel = new QLabel(tr("&Findings"), this);
    findingsLabel->setBuddy(m_findings);
    for (QLabel* const text : {m_origin, label, m_summary}) {
        text->setTextFormat(Qt::PlainText);
        text->setWordWrap(true);
    }
    m_origin->setObjectName(QStringLiteral("machinesOrigin"));
    m_text->setObjectName(QStringLiteral("machinesText"));
    m_text->setAccessibleName(tr("Machines, one a line"));
    m_findings->setObjectName(QStringLiteral("machinesFindings"));
    m_findings->setAccessibleName(tr("What is wrong with the machines file"));
    m_findings->setWordWrap(true);
    m_summary->setObjectName(QStringLiteral("machinesSummary"));
    auto* const buttons = new QDialogButtonBox(this);
    m_save = buttons->addButton(tr("&Save"), QDialogButtonBox::AcceptRole);
    m_save->setObjectName(QStringLiteral("save"));
    buttons->addButton(tr("Cancel"), QDialogButtonBox::RejectRole)
        ->setObjectName(QStringLiteral("cancel"));
    layout->addWidget(m_origin);
    layout->addWidget(label);
    layout->addWidget(m_text, 3);
    layout->addWidget(m_summary);
    layout->addWidget(findingsLabel);
    layout->addWidget(m_findings, 1);
    layout->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &MachinesDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &MachinesDialog::reject);
    connect(m_findings, &QListWidget::itemActivated, this, [this](const QListWidgetItem* item) {
        m_text->goToLine(item->data(Qt::UserRole).toInt());
        m_text->setFocus();
    });
    connect(m_findings, &QListWidget::currentItemChanged, this,
            [this](const QListWidgetItem* item) {
                m_text->goToLine(item != nullptr ? item->data(Qt::UserRole).toInt() : 0);
            });
}

void MachinesDialog::load()
{
    m_store = MachinesFileStore();
    QStringList sentences{tr("The file is %1.").arg(m_store.fileName())};
    if (!m_store.readError().isEmpty()) {
        sentences.append(tr("It cannot be read: %1.").arg(m_store.readError()));
    } else if (m_store.origin() != m_store.fileName()) {
        sentences.append(
            m_store.origin().isEmpty()
                ? tr("You have none yet; this is a beginning.")
                : tr("You have none yet; this is a copy of %1.").arg(m_store.origin()));
    } else if (QString::fromUtf8(m_store.content()).toUtf8() != m_store.content()) {
        sentences.append(tr("It is no plain text: saving it loses what cannot be shown here."));
    }
    m_origin->setText(sentences.join(QLatin1Char(' ')));
    m_text->setPlainText(QString::fromUtf8(m_store.content()));
    m_loaded = m_text->toPlainText();
    check();
}

QByteArray MachinesDialog::typed() const
{
    return m_text->toPlainText().toUtf8();
}

bool MachinesDialog::isChanged() const
{
    return m_text->toPlainText() != m_loaded;
}

void MachinesDialog::check()
{
    const MachinesFile file = MachinesFile::parse(typed());
    m_summary->setText(
        QStringLiteral("%1, %2; %3, %4")
            .arg(RunTexts::counted(file.hosts().size(), "host"),
                 RunTexts::counted(file.total(), "process"),
                 RunTexts::counted(file.count(MachinesFile::Severity::Error), "error"),
                 RunTexts::counted(file.count(MachinesFile::Severity::Warning), "warning")));
    m_text->showFindings(file);
    showFindings(file);
}

void MachinesDialog::showFindings(const MachinesFile& file)
{
    m_findings->clear();
    for (const MachinesFile::Finding& finding : file.findings()) {
        QString text = finding.reason;
        if (finding.line > 0) {
            text = tr("Line %1: %2").arg(finding.line).arg(text);
        }
        if (!finding.text.isEmpty()) {
            text += QStringLiteral(" (%1)").arg(finding.text);
        }
        auto* const item = new QListWidgetItem(icon(finding.severity), text, m_findings);
        item->setData(Qt::UserRole, finding.line);
    }
}

// What somebody else did to the file meanwhile is not lost unless the user says so.
bool MachinesDialog::mayOverwrite()
{
    if (!m_store.hasChanged()) {
        return true;
    }
    common_UserQuery query(dialogTitle(),
                           tr("%1 was changed by somebody else meanwhile.").arg(m_store.fileName()),
                           common_UserQuery::Warning, this, QString());
    query.addOption(tr("&Overwrite it"), QMessageBox::AcceptRole);
    query.addOption(tr("&Load it and lose what I typed"), QMessageBox::ResetRole);
    query.addOption(tr("Go on editing"), QMessageBox::RejectRole, common_UserQuery::EscapeDefault);
    const int answer = query.display();
    if (answer == Reload) {
        load();
    }
    return answer == Overwrite;
}

void MachinesDialog::accept()
{
    const bool isValid = MachinesFile::parse(typed()).isValid();
    if ((!isValid && !wants(tr("The machines file has errors. Parallel runs with it may fail."),
                            tr("&Save it anyway"), this)) ||
        !mayOverwrite()) {
        return;
    }
    const QString error = m_store.save(typed());
    if (error.isEmpty()) {
        QDialog::accept();
        return;
    }
    common_UserQuery(dialogTitle(),
                     tr("%1 could not be saved: %2\n\nWhat you typed is still in the "
                        "dialog.")
                         .arg(QDir::toNativeSeparators(m_store.fileName()), error),
                     common_UserQuery::Error, this, QString())
        .display();
}

void MachinesDialog::reject()
{
    if (!isChanged() ||
        wants(tr("The machines file was changed."), tr("&Throw the changes away"), this)) {
        QDialog::reject();
    }
}
