// SPDX-License-Identifier: MIT
#pragma once

#include <QVector>
#include <QWidget>

class QLabel;
class QListWidget;
class QPushButton;
class RunQueue;

/// Shows the waiting runs; the user can reorder, hold and remove them. Hidden while no run waits.
class QueuePanel : public QWidget
{
    Q_OBJECT

public:
    /// The queue must outlive this.
    QueuePanel(RunQueue& queue, QWidget* parent);

private:
    void makeButtons(QWidget* head);
    QPushButton* addButton(QWidget* head, const char* name, const QString& text,
                           const QString& toolTip, void (QueuePanel::*slot)()) const;
    void update();
    void updateButtons();
    QVector<int> selectedIds() const;
    int selectedRow() const;
    bool areSelectedHeld() const;
    void hold();
    void releaseAll();
    void moveUp();
    void moveDown();
    void moveBy(int rows);
    void remove();

    RunQueue& m_queue;
    QLabel* m_label;
    QListWidget* m_list;
    QPushButton* m_hold = nullptr;
    QPushButton* m_releaseAll = nullptr;
    QPushButton* m_up = nullptr;
    QPushButton* m_down = nullptr;
    QPushButton* m_remove = nullptr;
};
