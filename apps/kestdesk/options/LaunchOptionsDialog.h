// SPDX-License-Identifier: MIT
#pragma once

#include "LaunchOptionsFile.h"

#include <AccessMode.h>
#include <common_ComponentsLaunchOptions.h>

#include <QDialog>
#include <QHash>
#include <QVector>

class LaunchOptionsPage;
class QDialogButtonBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTabWidget;

/// "Component launch options": lets the user change all launch options. The settings file stays
/// locked as long as the dialog lives, unless it is read-only.
class LaunchOptionsDialog : public QDialog
{
    Q_OBJECT

public:
    using Options = common_ComponentsLaunchOptions::Pointer;

    /// The options, created in the given mode.
    LaunchOptionsDialog(Options options, AccessMode mode, QWidget* parent);
    ~LaunchOptionsDialog() override;

    /// Locks the settings file and runs the dialog; when another process has the file, the user may
    /// look at the options without changing them. True if the user accepted the dialog.
    static bool edit(QWidget* parent);

    /// Writes the changed options. If something could not be saved, shows a message and returns
    /// false; the dialog then still has all changes.
    bool save();

    /// After the user has agreed, shows the installation's defaults. They are saved like any
    /// change.
    void restoreDefaults();

public Q_SLOTS:
    void accept() override;

private:
    void makePages();
    void makeFoot();
    void setTabOrder();
    QWidget* makeBanner();
    void loadEditors();
    void takeFromEditors();
    void rememberSaved();
    void reportNotSaved(const LaunchOptionsFile::Saving& saving);
    bool isChanged() const;
    void onEdited(LaunchOptionsPage* page, const QString& key);
    void onMachinesRequested();
    void check();
    void updatePreview();
    QString currentValue(const QString& key) const;

    Options m_options;
    Options m_preview; ///< has what the editors show, and is never written
    AccessMode m_mode;
    QTabWidget* m_tabs;
    QVector<LaunchOptionsPage*> m_pages;
    QHash<QString, LaunchOptionsPage*> m_pageOf; ///< by key
    QHash<QString, QString> m_shown;             ///< what the editors made of the options, by key
    QHash<QString, QString> m_saved;             ///< what the file holds, by key
    QLineEdit* m_previewLine;
    QLabel* m_reason;
    QDialogButtonBox* m_buttons;
    bool m_loading = false; ///< this class changes the editors
    QPushButton* m_ok = nullptr;
    QPushButton* m_apply = nullptr;
};
