// SPDX-License-Identifier: MIT
#include "FindingMender.h"

#include "DeckEditor.h"

#include <QAction>
#include <QListWidget>
#include <QPushButton>
#include <QTextBlock>
#include <QTextCursor>

FindingMender::FindingMender(DeckEditor* editor, QListWidget* list)
    : QObject(list), m_editor(editor), m_list(list), m_action(new QAction(this))
{
    m_action->setObjectName(QStringLiteral("mendAction"));
    m_action->setShortcut(QKeySequence(QStringLiteral("Ctrl+.")));
    m_list->addAction(m_action);
    m_list->setContextMenuPolicy(Qt::ActionsContextMenu);
    connect(m_action, &QAction::triggered, this, &FindingMender::mend);
    connect(m_list, &QListWidget::currentRowChanged, this, &FindingMender::update);
    connect(m_editor, &QPlainTextEdit::textChanged, this, [this] { setFindings({}); });
    update();
}

void FindingMender::setFindings(const QVector<suite::Finding>& findings)
{
    m_findings = findings;
    update();
}

QPushButton* FindingMender::makeButton(QWidget* parent)
{
    auto* const button = new QPushButton(parent);
    button->setObjectName(QStringLiteral("mendButton"));
    const auto follow = [this, button] {
        button->setText(m_action->text());
        button->setToolTip(m_action->toolTip());
        button->setAccessibleDescription(m_action->toolTip());
        button->setEnabled(m_action->isEnabled());
    };
    connect(button, &QPushButton::clicked, m_action, &QAction::trigger);
    connect(m_action, &QAction::changed, button, follow);
    follow();
    return button;
}

// None while the text is being checked.
std::optional<FindingMend> FindingMender::current() const
{
    const int row = m_list->currentRow();
    return row < 0 || row >= m_findings.size()
               ? std::nullopt
               : FindingMend::of(m_findings.at(row), m_editor->deck().split(QLatin1Char('\n')));
}

void FindingMender::update()
{
    const std::optional<FindingMend> found = current();
    m_action->setText(found ? found->title : tr("&Mend"));
    m_action->setToolTip(!found ? tr("Select a finding that can be mended in one step")
                         : found->kind == FindingMend::Kind::Insert
                             ? tr("Inserts \"%1\" as line %2").arg(found->text).arg(found->line)
                             : tr("Makes line %1 \"%2\"").arg(found->line).arg(found->text));
    m_action->setEnabled(found.has_value());
}

void FindingMender::mend()
{
    const std::optional<FindingMend> found = current();
    if (!found) {
        return;
    }
    const QTextBlock block = m_editor->document()->findBlockByNumber(found->line - 1);
    QTextCursor cursor(m_editor->document());
    cursor.beginEditBlock();
    if (!block.isValid()) { // behind a last line without an end
        cursor.movePosition(QTextCursor::End);
        cursor.insertText(QLatin1Char('\n') + found->text);
    } else if (found->kind == FindingMend::Kind::Insert) {
        cursor.setPosition(block.position());
        cursor.insertText(found->text + QLatin1Char('\n'));
    } else {
        cursor.setPosition(block.position());
        cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
        cursor.insertText(found->text);
    }
    cursor.endEditBlock();
    m_editor->goToLine(found->line);
}
