// SPDX-License-Identifier: MIT
#include "MachinesTextEdit.h"

#include <MachinesFile.h>

#include <common_Contrast.h>

#include <QFontDatabase>
#include <QPaintEvent>
#include <QPainter>
#include <QTextBlock>

using suite::MachinesFile;

namespace {

constexpr int margin = 4;

const QColor& lineColour(MachinesFile::Severity severity)
{
    static const QColor colours[] = {QColor(0x2f, 0x7f, 0xd0), QColor(0xd0, 0x85, 0x00),
                                     QColor(0xd9, 0x36, 0x3e)};
    return colours[static_cast<int>(severity)];
}

} // namespace

MachinesTextEdit::MachinesTextEdit(QWidget* parent)
    : QPlainTextEdit(parent), m_numbers(new QWidget(this))
{
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    setLineWrapMode(NoWrap);
    setTabChangesFocus(true);
    m_numbers->installEventFilter(this);
    connect(this, &QPlainTextEdit::blockCountChanged, this, &MachinesTextEdit::placeNumbers);
    connect(this, &QPlainTextEdit::updateRequest, m_numbers, qOverload<>(&QWidget::update));
    placeNumbers();
}

void MachinesTextEdit::showFindings(const MachinesFile& file)
{
    QList<QTextEdit::ExtraSelection> selections;
    for (const MachinesFile::Finding& finding : file.findings()) {
        const QTextBlock block = document()->findBlockByNumber(finding.line - 1);
        if (finding.line > 0 && block.isValid()) {
            QTextEdit::ExtraSelection selection;
            selection.cursor = QTextCursor(block);
            selection.cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
            selection.format.setUnderlineStyle(QTextCharFormat::WaveUnderline);
            selection.format.setUnderlineColor(common_Contrast::readable(
                lineColour(finding.severity), palette().color(QPalette::Base)));
            selections.append(selection);
        }
    }
    setExtraSelections(selections);
}

void MachinesTextEdit::goToLine(int line)
{
    const QTextBlock block = document()->findBlockByNumber(line - 1);
    if (block.isValid()) {
        setTextCursor(QTextCursor(block));
        ensureCursorVisible();
    }
}

void MachinesTextEdit::resizeEvent(QResizeEvent* event)
{
    QPlainTextEdit::resizeEvent(event);
    placeNumbers();
}

bool MachinesTextEdit::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_numbers && event->type() == QEvent::Paint) {
        paintNumbers(static_cast<QPaintEvent*>(event)->rect());
        return true;
    }
    return QPlainTextEdit::eventFilter(watched, event);
}

int MachinesTextEdit::numbersWidth() const
{
    const int digits = QString::number(blockCount()).size();
    return fontMetrics().horizontalAdvance(QLatin1Char('9')) * digits + 2 * margin;
}

void MachinesTextEdit::placeNumbers()
{
    setViewportMargins(numbersWidth(), 0, 0, 0);
    const QRect content = contentsRect();
    m_numbers->setGeometry(content.left(), content.top(), numbersWidth(), content.height());
}

void MachinesTextEdit::paintNumbers(const QRect& rect)
{
    QPainter painter(m_numbers);
    painter.fillRect(rect, palette().color(QPalette::AlternateBase));
    painter.setPen(palette().color(QPalette::Text));
    painter.setFont(font());
    for (QTextBlock block = firstVisibleBlock(); block.isValid(); block = block.next()) {
        const QRectF place = blockBoundingGeometry(block).translated(contentOffset());
        if (place.top() > rect.bottom()) {
            return;
        }
        painter.drawText(QRectF(0, place.top(), m_numbers->width() - margin, place.height()),
                         Qt::AlignRight | Qt::AlignVCenter,
                         QString::number(block.blockNumber() + 1));
    }
}
