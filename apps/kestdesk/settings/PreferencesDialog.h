// SPDX-License-Identifier: MIT
#pragma once

#include "KestdeskSettings.h"

#include <QDialog>
#include <QVector>

class QFormLayout;
class QVBoxLayout;

/// The dialog for the preferences of kestdesk itself, built from the rows of KestdeskSettings.
class PreferencesDialog : public QDialog
{
    Q_OBJECT

public:
    /// The settings must outlive the dialog.
    PreferencesDialog(KestdeskSettings& settings, QWidget* parent);

    /// Reads the settings file and runs the dialog.
    static void edit(QWidget* window);

    /// Writes the settings. On failure shows the reason and stays open.
    void accept() override;

private:
    QFormLayout* formOf(const QString& group, QVBoxLayout& layout);
    QWidget* makeEditor(const KestdeskSettings::Row& row);
    void makeButtons(QVBoxLayout& layout);
    void show(const KestdeskSettings& settings);
    void updateEditors();
    int shownNumber(const KestdeskSettings::Row& row) const;

    KestdeskSettings& m_settings;
    QVector<QWidget*> m_editors; ///< by KestdeskSettings::Setting
};
