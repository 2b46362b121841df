// SPDX-License-Identifier: MIT
#include "PreferencesDialog.h"

#include <common_HelpClient.h>
#include <common_ServiceOf.h>
#include <common_UserQuery.h>

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

PreferencesDialog::PreferencesDialog(KestdeskSettings& settings, QWidget* parent)
    : QDialog(parent, Qt::WindowSystemMenuHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint)
    , m_settings(settings)
{
    setObjectName(QStringLiteral("preferencesDialog"));
    setWindowTitle(tr("Preferences"));
    auto* const layout = new QVBoxLayout(this);
    for (const KestdeskSettings::Row& row : KestdeskSettings::rows()) {
        QFormLayout* const form = formOf(KestdeskSettings::shown(row.group), *layout);
        QWidget* const editor = makeEditor(row);
        m_editors.append(editor);
        if (row.isSwitch) {
            form->addRow(editor);
        } else {
            form->addRow(KestdeskSettings::shown(row.label), editor);
        }
    }
    layout->addStretch(1);
    makeButtons(*layout);
    show(m_settings);
    GET_SERVICE(common_HelpClient)->registerPage(this, QStringLiteral("preferences"));
}

void PreferencesDialog::edit(QWidget* window)
{
    KestdeskSettings settings = KestdeskSettings::read();
    PreferencesDialog(settings, window).exec();
}

// Rows of one group follow each other.
QFormLayout* PreferencesDialog::formOf(const QString& group, QVBoxLayout& layout)
{
    const QList<QGroupBox*> boxes = findChildren<QGroupBox*>();
    if (!boxes.isEmpty() && boxes.last()->title() == group) {
        return static_cast<QFormLayout*>(boxes.last()->layout());
    }
    auto* const box = new QGroupBox(group, this);
    layout.addWidget(box);
    return new QFormLayout(box);
}

QWidget* PreferencesDialog::makeEditor(const KestdeskSettings::Row& row)
{
    QWidget* editor = nullptr;
    if (row.isSwitch) {
        auto* const box = new QCheckBox(KestdeskSettings::shown(row.label), this);
        connect(box, &QCheckBox::toggled, this, &PreferencesDialog::updateEditors);
        editor = box;
    } else {
        auto* const box = new QSpinBox(this);
        box->setRange(row.least, row.most);
        if (*row.unit != '\0') {
            box->setSuffix(QLatin1Char(' ') + KestdeskSettings::shown(row.unit));
        }
        editor = box;
    }
    editor->setObjectName(QLatin1String(row.key));
    editor->setToolTip(KestdeskSettings::shown(row.hint));
    editor->setAccessibleDescription(KestdeskSettings::shown(row.hint));
    return editor;
}

void PreferencesDialog::makeButtons(QVBoxLayout& layout)
{
    auto* const buttons = new QDialogButtonBox(
        QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::RestoreDefaults, this);
    layout.addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &PreferencesDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &PreferencesDialog::reject);
    QPushButton* const defaults = buttons->button(QDialogButtonBox::RestoreDefaults);
    defaults->setObjectName(QStringLiteral("defaultsButton"));
    connect(defaults, &QPushButton::clicked, this,
            [this] { show(KestdeskSettings(m_settings.getFileName())); });
}

void PreferencesDialog::show(const KestdeskSettings& settings)
{
    for (const KestdeskSettings::Row& row : KestdeskSettings::rows()) {
        const int number = settings.value(row.setting);
        QWidget* const editor = m_editors.at(row.setting);
        if (row.isSwitch) {
            static_cast<QCheckBox*>(editor)->setChecked(number != 0);
        } else {
            static_cast<QSpinBox*>(editor)->setValue(number);
        }
    }
    updateEditors();
}

void PreferencesDialog::updateEditors()
{
    if (m_editors.size() < KestdeskSettings::rows().size()) {
        return; // the widgets are still being created
    }
    for (const KestdeskSettings::Row& row : KestdeskSettings::rows()) {
        if (row.needs != row.setting) {
            m_editors.at(row.setting)
                ->setEnabled(shownNumber(KestdeskSettings::rows().at(row.needs)) != 0);
        }
    }
}

int PreferencesDialog::shownNumber(const KestdeskSettings::Row& row) const
{
    const QWidget* const editor = m_editors.at(row.setting);
    return row.isSwitch ? int(static_cast<const QCheckBox*>(editor)->isChecked())
                        : static_cast<const QSpinBox*>(editor)->value();
}

void PreferencesDialog::accept()
{
    for (const KestdeskSettings::Row& row : KestdeskSettings::rows()) {
        m_settings.setValue(row.setting, shownNumber(row));
    }
    const QString problem = m_settings.tryWriteSettings();
    if (problem.isEmpty()) {
        QDialog::accept();
        return;
    }
    common_UserQuery(tr("Preferences not saved"),
                     tr("The preferences cannot be saved: %1.").arg(problem),
                     common_UserQuery::Error, this, QString())
        .display();
}
