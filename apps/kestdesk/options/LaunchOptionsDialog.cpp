// SPDX-License-Identifier: MIT
#include "LaunchOptionsDialog.h"

#include "LaunchOptionTable.h"
#include "LaunchOptionsFile.h"
#include "LaunchOptionsPage.h"
#include "LaunchPreview.h"
#include "MachinesDialog.h"
#include "ReasonText.h"

#include <common_HelpClient.h>
#include <common_IIconUtility.h>
#include <common_ServiceOf.h>
#include <common_UserQuery.h>

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace {

QString dialogTitle()
{
    return LaunchOptionsDialog::tr("Component launch options");
}

QIcon icon(const char* name)
{
    return common_ServiceOf<common_IIconUtility>::hasService()
               ? GET_SERVICE(common_IIconUtility)->getIcon(QString::fromLatin1(name))
               : QIcon();
}

bool wantsToLook(QWidget* parent)
{
    common_UserQuery query(
        dialogTitle(),
        LaunchOptionsDialog::tr("The launch options are being changed by %1.\n\n"
                                "Do you want to look at them without changing them?")
            .arg(ReasonText::shown(LaunchOptionsFile::owner())),
        common_UserQuery::Information, parent, QString());
    query.addOption(LaunchOptionsDialog::tr("&Look at them"), QMessageBox::AcceptRole,
                    common_UserQuery::EnterDefault);
    query.addOption(LaunchOptionsDialog::tr("Cancel"), QMessageBox::RejectRole,
                    common_UserQuery::EscapeDefault);
    return query.display() == QMessageBox::AcceptRole;
}

void showProblem(const QString& problem, QWidget* parent)
{
    common_UserQuery(dialogTitle(),
                     LaunchOptionsDialog::tr("The launch options cannot be read.\n\n%1.")
                         .arg(ReasonText::shown(problem)),
                     common_UserQuery::Error, parent, QString())
        .display();
}

bool wantsDefaults(QWidget* parent)
{
    common_UserQuery query(
        dialogTitle(),
        LaunchOptionsDialog::tr(
            "Do you want to replace all launch options by the installation's defaults?\n\n"
            "Nothing is saved before OK or Apply."),
        common_UserQuery::Warning, parent, QString());
    query.addOption(LaunchOptionsDialog::tr("Restore &defaults"), QMessageBox::AcceptRole);
    query.addOption(LaunchOptionsDialog::tr("Cancel"), QMessageBox::RejectRole,
                    common_UserQuery::EscapeDefault);
    return query.display() == QMessageBox::AcceptRole;
}

} // namespace

LaunchOptionsDialog::LaunchOptionsDialog(Options options, AccessMode mode, QWidget* parent)
    : QDialog(parent)
    , m_options(std::move(options))
    , m_preview(common_ComponentsLaunchOptions::create(ReadOnlyAccess))
    , m_mode(mode)
    , m_tabs(new QTabWidget(this))
    , m_previewLine(new QLineEdit(this))
    , m_reason(new QLabel(this))
    , m_buttons(new QDialogButtonBox(this))
{
    setObjectName(QStringLiteral("launchOptionsDialog"));
    setWindowTitle(dialogTitle());
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    makePages();
    makeFoot();
    auto* const layout = new QVBoxLayout(this);
    if (m_mode == ReadOnlyAccess) {
        layout->addWidget(makeBanner());
    }
    layout->addWidget(m_tabs, 1);
    auto* const preview = new QFormLayout;
    preview->addRow(tr("Comes to"), m_previewLine);
    layout->addLayout(preview);
    layout->addWidget(m_reason);
    layout->addWidget(m_buttons);
    if (common_ServiceOf<common_HelpClient>::hasService()) {
        GET_SERVICE(common_HelpClient)->registerPage(this, QStringLiteral("launch-options"));
    }
    setTabOrder();
    rememberSaved();
    loadEditors();
    const QSize room = screen()->availableSize() * 9 / 10;
    const int unit = fontMetrics().averageCharWidth();
    resize(QSize(unit * 150, unit * 100).boundedTo(room));
}

LaunchOptionsDialog::~LaunchOptionsDialog() = default;

bool LaunchOptionsDialog::edit(QWidget* parent)
{
    const QString problem = LaunchOptionsFile::problem();
    if (!problem.isEmpty()) {
        showProblem(problem, parent);
        return false;
    }
    AccessMode mode = ReadWriteAccess;
    Options options = common_ComponentsLaunchOptions::create(mode);
    if (!options) {
        if (!wantsToLook(parent)) {
            return false;
        }
        mode = ReadOnlyAccess;
        options = common_ComponentsLaunchOptions::create(mode);
    }
    return LaunchOptionsDialog(options, mode, parent).exec() == Accepted;
}

void LaunchOptionsDialog::makePages()
{
    m_tabs->setObjectName(QStringLiteral("launchOptionsTabs"));
    m_tabs->setAccessibleName(tr("Groups of launch options"));
    for (const QString& name : LaunchOptionTable::tabs()) {
        auto* const page = new LaunchOptionsPage(name, m_tabs);
        m_tabs->addTab(page, LaunchOptionTable::title(name));
        m_pages.append(page);
        const QStringList keys = page->keys();
        for (const QString& key : keys) {
            m_pageOf.insert(key, page);
        }
        connect(page, &LaunchOptionsPage::edited, this,
                [this, page](const QString& key) { onEdited(page, key); });
        connect(page, &LaunchOptionsPage::machinesRequested, this,
                &LaunchOptionsDialog::onMachinesRequested);
        if (m_mode == ReadOnlyAccess) {
            page->setReadOnly();
        }
    }
    connect(m_tabs, &QTabWidget::currentChanged, this, &LaunchOptionsDialog::updatePreview);
}

// Tab order: the titles of the tabs, the pages, the buttons.
void LaunchOptionsDialog::setTabOrder()
{
    QWidget* last = m_tabs->tabBar();
    for (const LaunchOptionsPage* const page : qAsConst(m_pages)) {
        last = page->continueTabOrder(last);
    }
    QWidget::setTabOrder(last, m_previewLine);
    last = m_previewLine;
    const QList<QAbstractButton*> buttons = m_buttons->buttons();
    for (QAbstractButton* const button : buttons) {
        QWidget::setTabOrder(last, button);
        last = button;
    }
}

void LaunchOptionsDialog::makeFoot()
{
    m_previewLine->setObjectName(QStringLiteral("preview"));
    m_previewLine->setAccessibleName(tr("What the options of this tab come to"));
    m_previewLine->setReadOnly(true);
    m_reason->setObjectName(QStringLiteral("reason"));
    m_reason->setTextFormat(Qt::PlainText);
    m_reason->setWordWrap(true);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    if (m_mode == ReadOnlyAccess) {
        m_buttons->addButton(tr("Close"), QDialogButtonBox::RejectRole)
            ->setObjectName(QStringLiteral("close"));
        return;
    }
    m_ok = m_buttons->addButton(tr("OK"), QDialogButtonBox::AcceptRole);
    m_ok->setObjectName(QStringLiteral("ok"));
    m_ok->setDefault(true);
    m_buttons->addButton(tr("Cancel"), QDialogButtonBox::RejectRole)
        ->setObjectName(QStringLiteral("cancel"));
    m_apply = m_buttons->addButton(tr("&Apply"), QDialogButtonBox::ApplyRole);
    m_apply->setObjectName(QStringLiteral("apply"));
    QPushButton* const restore =
        m_buttons->addButton(tr("Restore &defaults"), QDialogButtonBox::ResetRole);
    restore->setObjectName(QStringLiteral("restoreDefaults"));
    connect(m_buttons, &QDialogButtonBox::accepted, this, &LaunchOptionsDialog::accept);
    connect(m_apply, &QPushButton::clicked, this, &LaunchOptionsDialog::save);
    connect(restore, &QPushButton::clicked, this, &LaunchOptionsDialog::restoreDefaults);
}

QWidget* LaunchOptionsDialog::makeBanner()
{
    auto* const banner =
        new QLabel(tr("Read-only: the options are being changed by %1. They are shown as they were "
                      "last saved.")
                       .arg(ReasonText::shown(LaunchOptionsFile::owner())),
                   this);
    banner->setObjectName(QStringLiteral("banner"));
    banner->setTextFormat(Qt::PlainText);
    banner->setWordWrap(true);
    return banner;
}

void LaunchOptionsDialog::loadEditors()
{
    m_loading = true;
    for (auto entry = m_pageOf.cbegin(); entry != m_pageOf.cend(); ++entry) {
        LaunchOptionsPage* const page = entry.value();
        page->setText(entry.key(), LaunchOptionsFile::value(*m_options, entry.key()));
        m_shown.insert(entry.key(), page->text(entry.key()));
        (*m_preview)[entry.key()].assignFromQString(
            LaunchOptionsFile::value(*m_options, entry.key()));
    }
    m_loading = false;
    check();
}

// A file can hold values that an editor cannot show: values that the user has not edited are not
// written.
QString LaunchOptionsDialog::currentValue(const QString& key) const
{
    const QString text = m_pageOf[key]->text(key);
    return text == m_shown[key] ? LaunchOptionsFile::value(*m_options, key) : text;
}

void LaunchOptionsDialog::takeFromEditors()
{
    for (auto entry = m_pageOf.cbegin(); entry != m_pageOf.cend(); ++entry) {
        const QString& key = entry.key();
        const QString value = currentValue(key);
        if (value != LaunchOptionsFile::value(*m_options, key)) {
            common_PropertyReference property = (*m_options)[key];
            property.assignFromQString(value);
            property.notify();
        }
        m_shown.insert(key, entry.value()->text(key));
    }
}

void LaunchOptionsDialog::rememberSaved()
{
    const QStringList names = LaunchOptionsFile::keptNames(*m_options);
    for (const QString& name : names) {
        m_saved.insert(name, LaunchOptionsFile::value(*m_options, name));
    }
}

bool LaunchOptionsDialog::isChanged() const
{
    const QStringList names = m_saved.keys();
    return std::any_of(names.cbegin(), names.cend(),
                       [this](const QString& name) { return currentValue(name) != m_saved[name]; });
}

bool LaunchOptionsDialog::save()
{
    takeFromEditors();
    const LaunchOptionsFile::Saving saving = LaunchOptionsFile::save(*m_options);
    if (saving.lost.isEmpty()) {
        rememberSaved();
    } else {
        reportNotSaved(saving);
    }
    check();
    return saving.lost.isEmpty();
}

void LaunchOptionsDialog::reportNotSaved(const LaunchOptionsFile::Saving& saving)
{
    const QString file = m_options->getFileName();
    const QString what =
        saving.reason.isEmpty()
            ? tr("The options could not be saved in %1.").arg(file)
            : tr("The options could not be saved in %1: %2.").arg(file, saving.reason);
    common_UserQuery(
        dialogTitle(),
        what + tr("\n\nThey are still in the dialog. Please see that there is room on the disk "
                  "and that you may write there, and try again."),
        common_UserQuery::Error, this,
        tr("Not saved:\n%1").arg(saving.lost.join(QLatin1Char('\n'))))
        .display();
}

void LaunchOptionsDialog::restoreDefaults()
{
    const QString problem = LaunchOptionsFile::defaultsProblem();
    if (!problem.isEmpty()) {
        showProblem(problem, this);
    } else if (wantsDefaults(this)) {
        m_options->restoreDefaults();
        loadEditors();
    }
}

void LaunchOptionsDialog::accept()
{
    check();
    if (m_ok != nullptr && m_ok->isEnabled() && (!isChanged() || save())) {
        QDialog::accept();
    }
}

void LaunchOptionsDialog::onEdited(LaunchOptionsPage* page, const QString& key)
{
    if (!m_loading) {
        (*m_preview)[key].assignFromQString(page->text(key));
        check();
    }
}

void LaunchOptionsDialog::onMachinesRequested()
{
    MachinesDialog::edit(this);
}

void LaunchOptionsDialog::check()
{
    QString first;
    for (LaunchOptionsPage* const page : qAsConst(m_pages)) {
        const int index = m_tabs->indexOf(page);
        const QString problem = page->check();
        m_tabs->setTabIcon(index, problem.isEmpty() ? QIcon() : icon("fault"));
        if (first.isEmpty() && !problem.isEmpty()) {
            first = m_tabs->tabText(index) + QStringLiteral(": ") + problem;
        }
    }
    m_reason->setText(first);
    m_reason->setVisible(!first.isEmpty());
    if (m_ok != nullptr) {
        m_ok->setEnabled(first.isEmpty());
        m_apply->setEnabled(first.isEmpty() && isChanged());
    }
    updatePreview();
}

void LaunchOptionsDialog::updatePreview()
{
    m_previewLine->setText(
        LaunchPreview::line(LaunchOptionTable::tabs().at(m_tabs->currentIndex()), *m_preview));
    m_previewLine->setCursorPosition(0);
}
