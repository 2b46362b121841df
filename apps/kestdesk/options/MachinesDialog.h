// SPDX-License-Identifier: MIT
#pragma once

#include "MachinesFileStore.h"

#include <QDialog>

class MachinesTextEdit;
class QLabel;
class QListWidget;
class QPushButton;

namespace suite {
class MachinesFile;
}

/// "Configure": lets users edit their machines file, and shows its errors line by line while they
/// type.
class MachinesDialog : public QDialog
{
    Q_OBJECT

public:
    explicit MachinesDialog(QWidget* parent);

    /// Places the cursor in the line of the host, if one is given. True if the file was saved.
    static bool edit(QWidget* parent, const QString& host = QString());

public Q_SLOTS:
    /// Saves and closes. If the text has errors, or another program has changed the file, asks
    /// the user first; unsaved text stays in the dialog.
    void accept() override;

    /// Asks before unsaved changes are discarded.
    void reject() override;

private:
    void makeWidgets();
    void load();
    void goToHost(const QString& host);
    QByteArray typed() const;
    bool isChanged() const;
    void check();
    void showFindings(const suite::MachinesFile& file);
    bool mayOverwrite();

    MachinesFileStore m_store;
    QString m_loaded; ///< what the editor made of the file
    QLabel* m_origin;
    MachinesTextEdit* m_text;
    QListWidget* m_findings;
    QLabel* m_summary;
    QPushButton* m_save = nullptr;
};
