// SPDX-License-Identifier: MIT
#include "common_KestProcessOutputLayout.h"

#include <common_Contrast.h>

#include <QPainter>
#include <QStyle>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextLayout>
#include <QtMath>

#include <algorithm>
#include <limits>

namespace {

// More laid out blocks than fit into any window, and few enough to take little memory.
constexpr std::size_t mostLayouts = 1000;
constexpr int mostMeasuredAtOnce = 500; // blocks: more than a view has lines

// What a child prints may ask for fonts of any size.
constexpr qreal greatestLineHeight = 1000;

constexpr int middleLightness = 128;

// From the top of a line to that of the next one, as in QTextEdit. The last line of a block takes
// QTextLine::height(), which may be a pixel more.
int lineDistance(const QTextLine& line)
{
    return qCeil(std::min(line.ascent() + line.descent() + line.leading(), greatestLineHeight));
}

int lineHeight(const QTextLine& line)
{
    return std::max(lineDistance(line), qCeil(std::min(line.height(), greatestLineHeight)));
}

QVector<QTextLayout::FormatRange>
selectionsIn(const QTextBlock& block, const QAbstractTextDocumentLayout::PaintContext& context)
{
    QVector<QTextLayout::FormatRange> result;
    for (const auto& selection : context.selections) {
        const int start = selection.cursor.selectionStart() - block.position();
        const int end = selection.cursor.selectionEnd() - block.position();
        if (start < block.length() && end > 0 && end > start) {
            QTextLayout::FormatRange range;
            range.start = start;
            range.length = end - start;
            range.format = selection.format;
            result.append(range);
        }
    }
    return result;
}

// The colours of lines are chosen for a light base.
QVector<QTextLayout::FormatRange> shadesIn(const QTextBlock& block, const QColor& base)
{
    QVector<QTextLayout::FormatRange> result;
    if (base.lightness() >= middleLightness) {
        return result;
    }
    for (auto place = block.begin(); !place.atEnd(); ++place) {
        const QTextFragment fragment = place.fragment();
        const QBrush ink = fragment.charFormat().foreground();
        const QColor shade = common_Contrast::readable(ink.color(), base);
        if (ink.style() == Qt::SolidPattern && shade != ink.color()) {
            QTextLayout::FormatRange range;
            range.start = fragment.position() - block.position();
            range.length = fragment.length();
            range.format.setForeground(shade);
            result.append(range);
        }
    }
    return result;
}

int offsetIn(const QTextLayout& layout, const QPointF& point, Qt::HitTestAccuracy accuracy)
{
    int offset = 0;
    for (int number = 0; number < layout.lineCount(); ++number) {
        const QTextLine line = layout.lineAt(number);
        const QRectF text = line.naturalTextRect();
        if (text.bottom() <= point.y()) {
            offset = line.textStart() + line.textLength();
        } else if (text.top() > point.y()) {
            return line.textStart();
        } else if (accuracy == Qt::ExactHit) {
            return text.contains(point) ? line.xToCursor(point.x(), QTextLine::CursorOnCharacter)
                                        : -1;
        } else {
            return line.xToCursor(point.x());
        }
    }
    return offset;
}

} // namespace

common_KestProcessOutputLayout::common_KestProcessOutputLayout(QTextDocument* document)
    : QAbstractTextDocumentLayout(document)
{}

// Positions are given to the painter and not to the text layout, which is limited to 33 million
// pixels.
void common_KestProcessOutputLayout::draw(QPainter* painter, const PaintContext& context)
{
    const QRectF clip =
        context.clip.isValid() ? context.clip : QRectF(QPointF(0, 0), documentSize());
    layOut(clip.top(), clip.bottom());
    painter->save();
    painter->setPen(context.palette.color(QPalette::Text));
    int number = blockAt(clip.top());
    QTextBlock block = document()->findBlockByNumber(number);
    qreal place = block.isValid() ? top(number) : 0;
    for (; block.isValid() && number < m_heights.count() && place <= clip.bottom();
         block = block.next()) {
        drawBlock(painter, context, block, place);
        place += m_heights.height(number++);
    }
    painter->restore();
}

int common_KestProcessOutputLayout::hitTest(const QPointF& point,
                                            Qt::HitTestAccuracy accuracy) const
{
    const QTextBlock block = document()->findBlockByNumber(blockAt(point.y()));
    if (!block.isValid()) {
        return -1;
    }
    const QRectF place = blockBoundingRect(block);
    if (accuracy == Qt::ExactHit && !place.contains(point)) {
        return -1;
    }
    const int offset = offsetIn(*block.layout(), point - place.topLeft(), accuracy);
    return offset < 0 ? -1 : block.position() + offset;
}

int common_KestProcessOutputLayout::pageCount() const
{
    return 1;
}

QSizeF common_KestProcessOutputLayout::documentSize() const
{
    const qreal margins = 2 * document()->documentMargin();
    return {std::max(document()->pageSize().width(), m_widest + margins),
            static_cast<qreal>(m_heights.total()) + margins};
}

QRectF common_KestProcessOutputLayout::frameBoundingRect(QTextFrame* /*frame*/) const
{
    return {QPointF(0, 0), documentSize()};
}

QRectF common_KestProcessOutputLayout::blockBoundingRect(const QTextBlock& block) const
{
    if (!block.isValid()) {
        return {};
    }
    const qreal margin = document()->documentMargin();
    const qreal width = std::max(documentSize().width() - 2 * margin, 0.0);
    const int number = block.blockNumber();
    if (number >= m_heights.count()) { // during a change that was not reported yet
        const QPointF below(margin, margin + static_cast<qreal>(m_heights.total()));
        return {below, QSizeF(width, layOutBlock(block))};
    }
    ensureLaidOut(block);
    return {QPointF(margin, top(number)), QSizeF(width, m_heights.height(number))};
}

bool common_KestProcessOutputLayout::layOut(qreal top, qreal bottom)
{
    const int first = blockAt(top);
    int number = first;
    QTextBlock block = document()->findBlockByNumber(number);
    qreal place = block.isValid() ? this->top(number) : 0;
    bool wasMissing = false;
    for (; block.isValid() && number < m_heights.count() && place <= bottom; block = block.next()) {
        wasMissing = wasMissing || !isLaidOut(block);
        ensureLaidOut(block);
        place += m_heights.height(number++);
    }
    forgetLayouts(first, number);
    announceSize();
    return wasMissing;
}

int common_KestProcessOutputLayout::firstLaidOut(qreal top, qreal bottom) const
{
    const int last = blockAt(bottom);
    for (int number = blockAt(top); number >= 0 && number <= last; ++number) {
        if (m_heights.isMeasured(number)) {
            return number;
        }
    }
    return -1;
}

qreal common_KestProcessOutputLayout::top(int block) const
{
    return document()->documentMargin() + static_cast<qreal>(m_heights.top(block));
}

// A new width, font or option of the same text is reported as a change of the whole text in which
// nothing was removed and nothing was added.
void common_KestProcessOutputLayout::documentChanged(int from, int charsRemoved, int charsAdded)
{
    const int length = document()->characterCount();
    if (m_length == 0) {
        m_heights.estimate(measureLine());
    }
    if (charsRemoved == 0 && charsAdded == length && length == m_length) {
        estimateAll();
        from = 0;
    } else {
        takeChange(from);
    }
    m_length = length;
    announceSize();
    const qreal changedFrom = top(document()->findBlock(from).blockNumber());
    constexpr qreal everywhere = std::numeric_limits<int>::max();
    Q_EMIT update(QRectF(0, changedFrom, everywhere, everywhere));
}

common_BlockHeights::Line common_KestProcessOutputLayout::measureLine() const
{
    QTextLayout text(QStringLiteral("X"), document()->defaultFont(), paintDevice());
    text.beginLayout();
    QTextLine line = text.createLine();
    line.setLeadingIncluded(true);
    line.setLineWidth(std::numeric_limits<int>::max());
    text.endLayout();
    common_BlockHeights::Line result;
    result.height = lineHeight(line);
    const qreal width = document()->pageSize().width() - 2 * document()->documentMargin();
    const qreal characterWidth = std::max(line.naturalTextWidth(), 1.0);
    result.characters =
        width > 0 ? static_cast<int>(width / characterWidth) : std::numeric_limits<int>::max();
    return result;
}

void common_KestProcessOutputLayout::estimateAll()
{
    for (const int number : m_laidOut) {
        document()->findBlockByNumber(number).clearLayout();
    }
    m_laidOut.clear();
    m_widest = 0;
    m_heights.estimate(measureLine());
    measureAllIfFew();
}

void common_KestProcessOutputLayout::measureFew()
{
    m_measuresFew = true;
}

void common_KestProcessOutputLayout::measureAllIfFew()
{
    if (!m_measuresFew || m_heights.count() > mostMeasuredAtOnce) {
        return;
    }
    for (int number = 0; number < m_heights.count(); ++number) {
        ensureLaidOut(document()->findBlockByNumber(number));
    }
}

// Text is nearly always appended, to the last block or behind it. After any other change all
// heights are unknown.
void common_KestProcessOutputLayout::takeChange(int from)
{
    const QTextBlock touched = document()->findBlock(from);
    const bool isBehind = from >= touched.position() + touched.length() - 1;
    const int firstChanged = touched.blockNumber() + (isBehind ? 1 : 0);
    if (firstChanged + 1 < m_heights.count()) {
        m_heights.truncate(0);
        estimateAll();
    } else if (firstChanged < m_heights.count()) {
        m_heights.truncate(firstChanged);
        m_laidOut.erase(std::remove(m_laidOut.begin(), m_laidOut.end(), firstChanged),
                        m_laidOut.end());
    }
    for (QTextBlock block = document()->findBlockByNumber(m_heights.count()); block.isValid();
         block = block.next()) {
        block.clearLayout();
        m_heights.append(block.length());
    }
}

void common_KestProcessOutputLayout::announceSize()
{
    const QSizeF size = documentSize();
    if (size != m_announcedSize) {
        m_announcedSize = size;
        Q_EMIT documentSizeChanged(size);
    }
}

bool common_KestProcessOutputLayout::isLaidOut(const QTextBlock& block) const
{
    return m_heights.isMeasured(block.blockNumber()) && block.layout()->lineCount() > 0;
}

// As QTextEdit lays out a paragraph. Returns the height.
int common_KestProcessOutputLayout::layOutBlock(const QTextBlock& block) const
{
    const qreal pageWidth = document()->pageSize().width();
    const qreal width = pageWidth > 0 ? pageWidth - 2 * document()->documentMargin()
                                      : std::numeric_limits<int>::max();
    QTextOption option = document()->defaultTextOption();
    option.setTextDirection(block.textDirection());
    option.setAlignment(QStyle::visualAlignment(option.textDirection(), option.alignment()));
    QTextLayout* const layout = block.layout();
    layout->setTextOption(option);
    int place = 0;
    int height = 0;
    layout->beginLayout();
    for (QTextLine line = layout->createLine(); line.isValid(); line = layout->createLine()) {
        line.setLeadingIncluded(true);
        line.setLineWidth(std::max(width, 1.0));
        if (line.naturalTextWidth() > width) {
            line.setLineWidth(line.naturalTextWidth());
        }
        line.setPosition(QPointF(0, place));
        height = place + lineHeight(line);
        place += lineDistance(line);
        m_widest = std::max(m_widest, line.naturalTextWidth());
    }
    layout->endLayout();
    return height;
}

void common_KestProcessOutputLayout::ensureLaidOut(const QTextBlock& block) const
{
    if (!isLaidOut(block)) {
        m_heights.setMeasured(block.blockNumber(), layOutBlock(block));
        m_laidOut.push_back(block.blockNumber());
    }
}

// The heights stay known.
void common_KestProcessOutputLayout::forgetLayouts(int firstKept, int lastKept)
{
    if (m_laidOut.size() <= mostLayouts) {
        return;
    }
    const auto isKept = [=](int number) { return number >= firstKept && number <= lastKept; };
    const auto forgotten = std::partition(m_laidOut.begin(), m_laidOut.end(), isKept);
    std::for_each(forgotten, m_laidOut.end(),
                  [this](int number) { document()->findBlockByNumber(number).clearLayout(); });
    m_laidOut.erase(forgotten, m_laidOut.end());
}

void common_KestProcessOutputLayout::drawBlock(QPainter* painter, const PaintContext& context,
                                               const QTextBlock& block, qreal top) const
{
    const QPointF place(document()->documentMargin(), top);
    painter->translate(place);
    const QTextLayout* const layout = block.layout();
    layout->draw(painter, QPointF(0, 0),
                 shadesIn(block, context.palette.color(QPalette::Base)) +
                     selectionsIn(block, context),
                 context.clip.isValid() ? context.clip.translated(-place) : QRectF());
    if (block.contains(context.cursorPosition)) {
        bool isSet = false;
        const int width = property("cursorWidth").toInt(&isSet);
        layout->drawCursor(painter, QPointF(0, 0), context.cursorPosition - block.position(),
                           isSet ? width : 1);
    }
    painter->translate(-place);
}

int common_KestProcessOutputLayout::blockAt(qreal place) const
{
    return m_heights.blockAt(static_cast<qint64>(place - document()->documentMargin()));
}
