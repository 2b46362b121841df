// SPDX-License-Identifier: MIT
#pragma once

#include <SettingsFolders.h>
#include <Text.h>

#include <LaunchOptionTable.h>
#include <LaunchOptionsDialog.h>
#include <LaunchOptionsFile.h>

#include <common_PropertyFactory.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTabWidget>

#include <memory>

using Options = common_ComponentsLaunchOptions;

// In words for the dialog's editors, whatever kind they are of.
inline QString shown(const QWidget* editor)
{
    if (const auto* const box = qobject_cast<const QCheckBox*>(editor)) {
        return box->isChecked() ? text("true") : text("false");
    }
    if (const auto* const box = qobject_cast<const QComboBox*>(editor)) {
        return box->currentData().toString();
    }
    if (const auto* const box = qobject_cast<const QSpinBox*>(editor)) {
        return QString::number(box->value());
    }
    if (const auto* const edit = qobject_cast<const QPlainTextEdit*>(editor)) {
        return edit->toPlainText();
    }
    const auto* const line = qobject_cast<const QLineEdit*>(editor);
    return line != nullptr ? line->text() : text("no editor");
}

inline void type(QWidget* editor, const QString& value)
{
    if (auto* const box = qobject_cast<QCheckBox*>(editor)) {
        box->setChecked(value == text("true"));
    } else if (auto* const combo = qobject_cast<QComboBox*>(editor)) {
        combo->setCurrentIndex(combo->findData(value));
    } else if (auto* const number = qobject_cast<QSpinBox*>(editor)) {
        number->setValue(value.toInt());
    } else if (auto* const edit = qobject_cast<QPlainTextEdit*>(editor)) {
        edit->setPlainText(value);
    } else {
        qobject_cast<QLineEdit*>(editor)->setText(value);
    }
}

// Of all properties of the process those that are launch options.
inline const QStringList& allNames()
{
    static const QStringList names = [] {
        QStringList all = common_PropertyFactory::names();
        all.removeAll(text("3DMouseSensitivity"));
        return all;
    }();
    return names;
}

/// The dialog of launch options in a home of its own, and its parts by name.
class LaunchOptionsStage
{
protected:
    void tearDown()
    {
        m_dialog.reset();
        m_folders.reset();
    }

    void open()
    {
        m_dialog = std::make_unique<LaunchOptionsDialog>(Options::create(ReadWriteAccess),
                                                         ReadWriteAccess, nullptr);
    }

    QWidget* editor(const QString& key) const { return m_dialog->findChild<QWidget*>(key); }
    QPushButton* button(const char* name) const
    {
        return m_dialog->findChild<QPushButton*>(text(name));
    }
    QTabWidget* tabs() const { return m_dialog->findChild<QTabWidget*>(); }

    void switchAllOn() const
    {
        for (const LaunchOptionRow& row : LaunchOptionTable::rows()) {
            if (*row.switchKey != '\0') {
                type(editor(text(row.switchKey)), text("true"));
            }
        }
        type(editor(text("Amrkest.Frequency")), text("1"));
    }

    std::unique_ptr<SettingsFolders> m_folders;
    std::unique_ptr<LaunchOptionsDialog> m_dialog;
};
