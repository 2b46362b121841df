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

/// "Configure": lets the user change the own machines file, and says what is wrong with it line by
/// line while it is typed.
class MachinesDialog : public QDialog
{
    Q_OBJECT

public:
    explicit MachinesDialog(QWidget* parent);

    /// True when the file was saved. Begins at the line of the host, if one is given.
    static bool edit(QWidget* parent, const QString& host = QString());

public Q_SLOTS:
    /// Saves and closes. With mistakes, or after a change by another program, the user is asked
    /// first; what is not saved stays in the dialog.
    void accept() override;

    /// Asks before something that was typed is thrown away.
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
