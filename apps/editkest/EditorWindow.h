// SPDX-License-Identifier: MIT
#pragma once

#include "DeckFile.h"

#include <common_CommonSettingsSet.h>

#include <Finding.h>

#include <QMainWindow>

class DeckCheck;
class DeckEditor;
class FindingMender;
class QAction;
class QLabel;
class QListWidget;
class QListWidgetItem;

/// editkest's window: one deck, and what a check finds in it.
class EditorWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit EditorWindow(const QString& model);
    ~EditorWindow() override;

    /// Opens a deck in place of the one that is there; unsaved changes are asked about. False when
    /// the deck that was there stays.
    bool openDeck(const QString& path);

    /// Puts the cursor into that line, from 1 on; nothing when there is no such line.
    void goToLine(int line);

    /// Writes the deck into its file. False when it could not be, or the user does not want that
    /// after all.
    bool save();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void makeContent();
    void makeFileMenu();
    void makeEditMenu();
    QWidget* makeFindings();
    void chooseDeck();
    void openDropped(const QStringList& paths);
    void saveAs();
    bool saveTo(const QString& path);
    void showFindings(const QVector<suite::Finding>& findings);
    void goToFinding(QListWidgetItem* item);
    void goToNextFinding();
    bool mayDiscard();
    bool mayOverwrite();
    void updateTitle();

    common_CommonSettingsSet m_settings;
    DeckFile m_file;
    DeckEditor* m_editor = nullptr;
    DeckCheck* m_check;
    QListWidget* m_findings = nullptr;
    FindingMender* m_mender = nullptr;
    QLabel* m_summary = nullptr;
};
