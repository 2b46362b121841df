// SPDX-License-Identifier: MIT
#include "DeckEditor.h"

#include "FindingMargin.h"

#include <common_Contrast.h>
#include <common_IIconUtility.h>
#include <common_ServiceOf.h>

#include <QFontDatabase>
#include <QIcon>
#include <QPainter>
#include <QTextBlock>

#include <algorithm>

namespace {

constexpr int space = 4; // pixels around the margin's parts
constexpr int leastDigits = 3;

bool isError(const suite::Finding& finding)
{
    return finding.severity() == suite::Severity::Error ||
           finding.severity() == suite::Severity::Fatal;
}

bool isShown(const suite::Finding& finding)
{
    return finding.line > 0 && finding.severity() != suite::Severity::Notice;
}

} // namespace

DeckEditor::DeckEditor(QWidget* parent) : QPlainTextEdit(parent), m_margin(new FindingMargin(this))
{
    setObjectName(QStringLiteral("deckEditor"));
    setAccessibleName(tr("Deck"));
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    setLineWrapMode(QPlainTextEdit::NoWrap);
    setTabChangesFocus(false);
    connect(this, &QPlainTextEdit::blockCountChanged, this,
            [this] { setViewportMargins(marginWidth(), 0, 0, 0); });
    connect(this, &QPlainTextEdit::updateRequest, this, [this](const QRect& rect, int dy) {
        if (dy != 0) {
            m_margin->scroll(0, dy);
        } else {
            m_margin->update(0, rect.y(), m_margin->width(), rect.height());
        }
    });
    connect(this, &QPlainTextEdit::cursorPositionChanged, this, &DeckEditor::markCurrentLine);
    setViewportMargins(marginWidth(), 0, 0, 0);
    markCurrentLine();
}

// As plain text, a document would give blanks for what is like them.
QString DeckEditor::deck() const
{
    return document()->toRawText().replace(QChar(QChar::ParagraphSeparator), QLatin1Char('\n'));
}

void DeckEditor::setFindings(const QVector<suite::Finding>& findings)
{
    m_findings.clear();
    for (const suite::Finding& finding : findings) {
        if (isShown(finding)) {
            m_findings[finding.line].append(finding);
        }
    }
    m_margin->update();
}

void DeckEditor::goToLine(int line)
{
    const QTextBlock block = document()->findBlockByNumber(line - 1);
    if (block.isValid()) {
        setTextCursor(QTextCursor(block));
        centerCursor();
    }
    setFocus();
}

int DeckEditor::marginWidth() const
{
    const int digits = std::max<int>(leastDigits, QString::number(blockCount()).size());
    return 3 * space + fontMetrics().height() +
           digits * fontMetrics().horizontalAdvance(QLatin1Char('9'));
}

void DeckEditor::paintMargin(const QRect& rect)
{
    QPainter painter(m_margin);
    painter.fillRect(rect, palette().color(QPalette::AlternateBase));
    const QColor ground = palette().color(QPalette::AlternateBase);
    painter.setPen(
        common_Contrast::readable(palette().color(QPalette::Disabled, QPalette::Text), ground));
    painter.setFont(font());
    const int side = fontMetrics().height();
    for (QTextBlock block = firstVisibleBlock(); block.isValid(); block = block.next()) {
        const QRectF place = blockBoundingGeometry(block).translated(contentOffset());
        if (place.top() > rect.bottom()) {
            break;
        }
        const int top = qRound(place.top());
        const int line = block.blockNumber() + 1;
        painter.drawText(0, top, m_margin->width() - space, side, Qt::AlignRight,
                         QString::number(line));
        const QVector<suite::Finding> found = findingsAt(line);
        if (!found.isEmpty()) {
            const bool isBad = std::any_of(found.begin(), found.end(), isError);
            GET_SERVICE(common_IIconUtility)
                ->getIcon(isBad ? QStringLiteral("fault") : QStringLiteral("warning"))
                .paint(&painter, space, top, side, side);
        }
    }
}

int DeckEditor::lineAt(int y) const
{
    return cursorForPosition(QPoint(0, y)).blockNumber() + 1;
}

void DeckEditor::resizeEvent(QResizeEvent* event)
{
    QPlainTextEdit::resizeEvent(event);
    const QRect inside = contentsRect();
    m_margin->setGeometry(inside.left(), inside.top(), marginWidth(), inside.height());
}

void DeckEditor::changeEvent(QEvent* event)
{
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        markCurrentLine();
        Q_EMIT paletteChanged();
    }
}

void DeckEditor::markCurrentLine()
{
    QTextEdit::ExtraSelection line;
    line.format.setBackground(palette().color(QPalette::AlternateBase));
    line.format.setProperty(QTextFormat::FullWidthSelection, true);
    line.cursor = textCursor();
    line.cursor.clearSelection();
    setExtraSelections({line});
}
