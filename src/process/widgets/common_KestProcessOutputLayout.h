// SPDX-License-Identifier: MIT
#pragma once

#include "common_BlockHeights.h"

#include <QAbstractTextDocumentLayout>

#include <vector>

class QTextLayout;

/// The layout of a very long text in paragraphs without tables, lists, frames and images.
///
/// Only blocks that are in view, or asked for, are laid out. The heights of the others are
/// estimated, and so is the size of the document, until every block has been in view. When a height
/// differs from its estimate, the blocks below move: see layOut().
class common_KestProcessOutputLayout : public QAbstractTextDocumentLayout
{
    Q_OBJECT

public:
    explicit common_KestProcessOutputLayout(QTextDocument* document);

    void draw(QPainter* painter, const PaintContext& context) override;
    int hitTest(const QPointF& point, Qt::HitTestAccuracy accuracy) const override;
    int pageCount() const override;
    QSizeF documentSize() const override;
    QRectF frameBoundingRect(QTextFrame* frame) const override;

    /// Lays the block out. When its height differs from the estimate, documentSize() changes at
    /// once, and documentSizeChanged() is emitted by the next layOut().
    QRectF blockBoundingRect(const QTextBlock& block) const override;

    /// Lays out the blocks between the two positions. Returns whether any was not laid out before.
    bool layOut(qreal top, qreal bottom);

    /// From now on every change of the width measures all blocks of a short text at once. A text
    /// that is about as high as its view needs that: if it fits with measured heights but not with
    /// estimated ones, the scroll bar appears and disappears for ever, because each change of the
    /// width replaces measured heights by estimates.
    void measureFew();

    /// The number of the first block between the two positions whose height is known; -1 when there
    /// is none.
    int firstLaidOut(qreal top, qreal bottom) const;

    /// The position of the top of the block of that number.
    qreal top(int block) const;

protected:
    void documentChanged(int from, int charsRemoved, int charsAdded) override;

private:
    common_BlockHeights::Line measureLine() const;
    void estimateAll();
    void measureAllIfFew();
    void takeChange(int from);
    void announceSize();
    bool isLaidOut(const QTextBlock& block) const;
    int layOutBlock(const QTextBlock& block) const;
    void ensureLaidOut(const QTextBlock& block) const;
    void forgetLayouts(int firstKept, int lastKept);
    void drawBlock(QPainter* painter, const PaintContext& context, const QTextBlock& block,
                   qreal top) const;
    int blockAt(qreal place) const;

    /// Depend on the text, and are determined when needed.
    mutable common_BlockHeights m_heights;
    mutable std::vector<int> m_laidOut; ///< numbers of blocks that have their lines
    mutable qreal m_widest = 0;

    int m_length = 0; ///< of the text, at the last change
    bool m_measuresFew = false;
    QSizeF m_announcedSize;
};
