// SPDX-License-Identifier: MIT
#pragma once

#include "Result.h"
#include "ResultWatch.h"

#include <common_CommonSettingsSet.h>

#include <QMainWindow>

class QListWidget;
class QListWidgetItem;
class ResultView;

/// postkest's window: some results, listed and drawn.
class ViewerWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit ViewerWindow(const QStringList& paths);
    ~ViewerWindow() override;

    /// Adds results to those that are shown, or reads them anew. What cannot be read is listed with
    /// the reason, and shown once it can.
    void openResults(const QStringList& paths);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void makeContent();
    void makeFileMenu();
    void makeViewMenu();
    void chooseResults();
    void exportView();
    void reloadAll();
    void reload(const QString& path);
    void removeSelected();
    void noteVisibility(QListWidgetItem* item);
    void showResults();
    void updateItem(int place);
    [[nodiscard]] QString folder() const;
    [[nodiscard]] QVector<Result> visibleResults() const;

    common_CommonSettingsSet m_settings;
    ResultWatch* m_watch;
    QVector<Result> m_results; ///< in the order of the list
    QListWidget* m_list = nullptr;
    ResultView* m_view = nullptr;
};
