// SPDX-License-Identifier: MIT
#pragma once

#include "FindingMend.h"

#include <QObject>
#include <QVector>

class DeckEditor;
class QAction;
class QListWidget;
class QPushButton;

/// Offers to mend the current finding of a list, where one step does that, and mends it so that it
/// can be undone.
class FindingMender : public QObject
{
    Q_OBJECT

public:
    /// Each row of the list is the finding of that index. Both must outlive this.
    FindingMender(DeckEditor* editor, QListWidget* list);

    /// The list has these findings now.
    void setFindings(const QVector<suite::Finding>& findings);

    /// A button for beside the list.
    QPushButton* makeButton(QWidget* parent);

    /// For a menu.
    QAction* action() const { return m_action; }

private:
    void update();
    void mend();
    std::optional<FindingMend> current() const;

    DeckEditor* m_editor;
    QListWidget* m_list;
    QVector<suite::Finding> m_findings;
    QAction* m_action;
};
