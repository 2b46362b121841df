#pragma once

#include "KestdeskSettings.h"

#include <QDialog>
#include <QVector>

class QFormLayout;
class QVBoxLayout;

/// Shows what the user can set for kestdesk itself, in groups, as the rows of KestdeskSettings say.
class PreferencesDialog : public QDialog
{
    Q_OBJECT

public:
    /// Shows what the settings hold. They must outlive the dialog.
    PreferencesDialog(KestdeskSettings& settings, QWidget* parent);

    /// Lets the user change what is in the file now.
    static void edit(QWidget* window);

    /// Writes what is shown. Where that is not possible, says why and stays open.
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
