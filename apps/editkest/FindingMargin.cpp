// SPDX-License-Identifier: MIT
#include "FindingMargin.h"

#include "DeckEditor.h"

#include <QHelpEvent>
#include <QPaintEvent>
#include <QToolTip>

FindingMargin::FindingMargin(DeckEditor* editor) : QWidget(editor), m_editor(editor)
{
    setObjectName(QStringLiteral("findingMargin"));
}

QSize FindingMargin::sizeHint() const
{
    return {m_editor->marginWidth(), 0};
}

QString FindingMargin::toolTipOf(int line) const
{
    QStringList texts;
    const QVector<suite::Finding> findings = m_editor->findingsAt(line);
    for (const suite::Finding& finding : findings) {
        texts.append(QStringLiteral("%1: %2").arg(finding.number()).arg(finding.reason));
    }
    return texts.join(QLatin1Char('\n'));
}

void FindingMargin::paintEvent(QPaintEvent* event)
{
    m_editor->paintMargin(event->rect());
}

bool FindingMargin::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip) {
        return QWidget::event(event);
    }
    const auto* help = static_cast<QHelpEvent*>(event);
    const QString text = toolTipOf(m_editor->lineAt(help->pos().y()));
    QToolTip::showText(help->globalPos(),
                       text.toHtmlEscaped().replace(QLatin1Char('\n'), QStringLiteral("<br>")),
                       this);
    return true;
}
