#pragma once

#include "common_BlockHeights.h"

#include <QAbstractTextDocumentLayout>

#include <vector>

class QTextLayout;

/// The layout of a very long text in paragraphs without tables, lists, frames and images.
///
/// It costs what is looked at: only blocks in view, or asked for, are laid out. The height of the
/// others is estimated, so the size of the document is an estimate, too, until somebody has been
/// everywhere. When a height turns out to be another one, what is below moves: see layOut().
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

    /// Lays the block out. The height may differ from its estimate, which documentSize() knows at
    /// once, and documentSizeChanged() tells with the next layOut().
    QRectF blockBoundingRect(const QTextBlock& block) const override;

    /// Lays out what is between the two places. Returns whether anything was not laid out before.
    bool layOut(qreal top, qreal bottom);

    /// The number of the first block between the two places whose height is known; -1 when there
    /// is none.
    int firstLaidOut(qreal top, qreal bottom) const;

    /// Where the block of that number begins.
    qreal top(int block) const;

protected:
    void documentChanged(int from, int charsRemoved, int charsAdded) override;

private:
    common_BlockHeights::Line measureLine() const;
    void estimateAll();
    void takeChange(int from);
    void announceSize();
    bool isLaidOut(const QTextBlock& block) const;
    int layOutBlock(const QTextBlock& block) const;
    void ensureLaidOut(const QTextBlock& block) const;
    void forgetLayouts(int firstKept, int lastKept);
    void drawBlock(QPainter* painter, const PaintContext& context, const QTextBlock& block,
                   qreal top) const;
    int blockAt(qreal place) const;

    /// Known of the text, and found out when somebody asks.
    mutable common_BlockHeights m_heights;
    mutable std::vector<int> m_laidOut; ///< numbers of blocks that have their lines
    mutable qreal m_widest = 0;

    int m_length = 0; ///< of the text, as far as it is known here
    QSizeF m_announcedSize;
};
