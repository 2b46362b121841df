// SPDX-License-Identifier: MIT
#include "common_KestProcessOutputTextEdit.h"

#include "common_KestProcessOutputDocument.h"
#include "common_KestProcessOutputLayout.h"
#include "common_LineStyle.h"

#include <QAbstractTextDocumentLayout>
#include <QInputEvent>
#include <QMimeData>
#include <QScrollBar>
#include <QTextDocumentFragment>

#include <algorithm>
#include <array>

namespace {

constexpr int mostStyledCharacters = 200000;

// Converts a document's own characters to plain text, as QTextDocument::toPlainText() does.
QString plainText(QString text)
{
    for (QChar& character : text) {
        if (character == QChar::ParagraphSeparator || character == QChar::LineSeparator) {
            character = QLatin1Char('\n');
        } else if (character == QChar::Nbsp) {
            character = QLatin1Char(' ');
        }
    }
    return text;
}

// QTextDocument keeps blocks and fragments in balanced trees, whose nodes are in arrays in the
// order in which they were made. When lines are only appended, the nodes on the way to the end are
// powers of two apart, and compete for few places in the processor's caches. Blocks that are
// inserted and removed again leave their nodes to the next ones, in reverse order: different
// numbers of them scatter that way, nearby for the cache of the data and over pages for that of
// their addresses.
void scatterNodes(QTextCursor writer, int blockCount)
{
    struct Scattering
    {
        int distance; // in blocks
        int most;     // blocks that are inserted and removed
        int step;     // from one number of them to the next; has no factor in common with the most
    };
    constexpr std::array<Scattering, 2> scatterings = {{{16384, 2048, 389}, {512, 32, 5}}};
    constexpr int before = 4; // the distance, so that the node there is among the next ones
    const auto* const scattering =
        std::find_if(scatterings.begin(), scatterings.end(), [blockCount](const Scattering& each) {
            return blockCount % each.distance == each.distance - before;
        });
    if (scattering == scatterings.end()) {
        return;
    }
    const int end = writer.position();
    const int count = 1 + blockCount / scattering->distance * scattering->step % scattering->most;
    for (int i = 0; i < count; ++i) {
        writer.insertBlock();
    }
    writer.setPosition(end, QTextCursor::KeepAnchor);
    writer.removeSelectedText();
}

bool isAtBottom(const QScrollBar* bar)
{
    return bar->value() >= bar->maximum();
}

} // namespace

common_KestProcessOutputTextEdit::common_KestProcessOutputTextEdit(Following following,
                                                                   QWidget* parent)
    : QTextEdit(parent), m_following(following), m_endOfTurn([this] { follow(); })
{
    setDocument(new common_KestProcessOutputDocument(this));
    document()->documentLayout()->setPaintDevice(viewport());
    setReadOnly(true);
    m_writer = QTextCursor(document());
    connect(verticalScrollBar(), &QScrollBar::actionTriggered, this,
            &common_KestProcessOutputTextEdit::onUserScrolled);
    connect(horizontalScrollBar(), &QScrollBar::actionTriggered, this,
            &common_KestProcessOutputTextEdit::onUserScrolledSideways);
    connect(this, &QTextEdit::cursorPositionChanged, this,
            &common_KestProcessOutputTextEdit::onCursorMoved);
}

common_KestProcessOutputTextEdit::~common_KestProcessOutputTextEdit() = default;

void common_KestProcessOutputTextEdit::appendLine(const QString& line)
{
    beginLine();
    if (Qt::mightBeRichText(line)) {
        insertMarkup(line, common_LineStyle());
    } else {
        m_writer.insertText(line, QTextCharFormat());
    }
}

void common_KestProcessOutputTextEdit::appendLine(const QString& line,
                                                  const common_LineStyle& style)
{
    beginLine();
    insertMarkup(line, style);
}

void common_KestProcessOutputTextEdit::finishLayout()
{
    if (m_isInTurn) {
        follow();
    }
}

// Before painting, the layout must be up to date; before the user's input is handled, the position
// in the text must be up to date, too.
bool common_KestProcessOutputTextEdit::viewportEvent(QEvent* event)
{
    endEditing();
    if (dynamic_cast<const QInputEvent*>(event)) {
        finishLayout();
    }
    return QTextEdit::viewportEvent(event);
}

void common_KestProcessOutputTextEdit::keyPressEvent(QKeyEvent* event)
{
    finishLayout();
    QTextEdit::keyPressEvent(event);
}

// The followed position stays in view, or else the line at the top.
void common_KestProcessOutputTextEdit::resizeEvent(QResizeEvent* event)
{
    beginTurn();
    const QTextCursor first = cursorForPosition(QPoint(0, 0));
    const int place = cursorRect(first).top();
    QTextEdit::resizeEvent(event);
    QScrollBar* const bar = verticalScrollBar();
    if (!bar->isSliderDown()) {
        bar->setValue(bar->value() + cursorRect(first).top() - place);
    }
    layOutView();
}

void common_KestProcessOutputTextEdit::showEvent(QShowEvent* event)
{
    QTextEdit::showEvent(event);
    follow();
}

void common_KestProcessOutputTextEdit::scrollContentsBy(int dx, int dy)
{
    QTextEdit::scrollContentsBy(dx, dy);
    layOutView();
}

// QTextEdit would also offer ODF, for which it would read images from their files. A selection of
// millions of characters is copied without colours: making HTML from it takes as long as reading
// all of it from the child.
QMimeData* common_KestProcessOutputTextEdit::createMimeDataFromSelection() const
{
    const QTextCursor selection = textCursor();
    auto* const data = new QMimeData;
    if (selection.selectionEnd() - selection.selectionStart() <= mostStyledCharacters) {
        const QTextDocumentFragment fragment = selection.selection();
        data->setText(fragment.toPlainText());
        data->setHtml(fragment.toHtml());
    } else {
        data->setText(plainText(selection.selectedText()));
    }
    return data;
}

void common_KestProcessOutputTextEdit::onUserScrolled()
{
    m_isScrolledAway = !isFollowedAt(verticalScrollBar()->sliderPosition());
}

void common_KestProcessOutputTextEdit::onUserScrolledSideways()
{
    m_isScrolledSideways = horizontalScrollBar()->sliderPosition() > 0;
}

void common_KestProcessOutputTextEdit::onCursorMoved()
{
    if (isFollowedAt(verticalScrollBar()->value())) {
        m_isScrolledAway = false;
    }
}

void common_KestProcessOutputTextEdit::beginTurn()
{
    if (!m_isInTurn) {
        m_isInTurn = true;
        m_wasAtBottom = isAtBottom(verticalScrollBar());
        m_endOfTurn.ask();
    }
}

void common_KestProcessOutputTextEdit::endEditing()
{
    if (m_isEditing) {
        m_isEditing = false;
        m_writer.endEditBlock();
    }
}

// The layout may show or hide a scroll bar and thereby resize the view, which is part of the turn.
void common_KestProcessOutputTextEdit::follow()
{
    endEditing();
    if (!m_isScrolledAway && !verticalScrollBar()->isSliderDown()) {
        if (m_isInTurn && m_wasAtBottom) {
            scrollToBottom();
        }
        if (m_following == Following::TextCursor && isVisible()) {
            scrollToTextCursor();
        }
    }
    layOutView();
    m_isInTurn = false;
}

void common_KestProcessOutputTextEdit::scrollToBottom()
{
    verticalScrollBar()->setValue(verticalScrollBar()->maximum());
    layOutView();
}

// After a line that is too wide for the view, the next lines are shown from their beginning again.
void common_KestProcessOutputTextEdit::scrollToTextCursor()
{
    if (textCursor().atEnd() && !m_isScrolledSideways) {
        horizontalScrollBar()->setValue(0);
    }
    showTextCursor();
}

// Laying out what comes into view may move the text cursor out of view again.
void common_KestProcessOutputTextEdit::showTextCursor()
{
    constexpr int mostRounds = 5;
    int value = -1;
    for (int round = 0; round < mostRounds && value != verticalScrollBar()->value(); ++round) {
        value = verticalScrollBar()->value();
        ensureCursorVisible();
        layOutView();
    }
}

// A block that is laid out for the first time may be higher or lower than its estimate. A view at
// its end stays there; otherwise blocks that were laid out before stay where the user sees them.
void common_KestProcessOutputTextEdit::layOutView()
{
    common_KestProcessOutputLayout* const layout = textLayout();
    if (m_isLayingOut || !isVisible() || !layout) {
        return;
    }
    m_isLayingOut = true;
    QScrollBar* const bar = verticalScrollBar();
    const bool wasAtBottom = isAtBottom(bar);
    constexpr int usualRounds = 5;
    constexpr int mostRounds = 100; // a view must not freeze, whatever comes
    bool isMoving = true;
    for (int round = 0; isMoving && round < mostRounds; ++round) {
        if (round == usualRounds) {
            layout->measureFew();
        }
        const int top = bar->value();
        const int bottom = top + viewport()->height();
        const int anchor = layout->firstLaidOut(top, bottom);
        const qreal place = anchor < 0 ? 0 : layout->top(anchor);
        isMoving = layout->layOut(top, bottom);
        if (wasAtBottom) {
            bar->setValue(bar->maximum());
        } else if (isMoving && anchor >= 0 && top > bar->minimum() && !bar->isSliderDown()) {
            bar->setValue(top + qRound(layout->top(anchor) - place));
        }
    }
    m_isLayingOut = false;
}

bool common_KestProcessOutputTextEdit::isFollowedAt(int scrollPosition) const
{
    return scrollPosition >= verticalScrollBar()->maximum() &&
           (m_following == Following::Bottom || textCursor().atEnd());
}

void common_KestProcessOutputTextEdit::beginLine()
{
    beginTurn();
    if (!m_isEditing) {
        m_isEditing = true;
        m_writer.beginEditBlock();
    }
    if (!m_writer.atStart()) { // QTextDocument::isEmpty() would walk a path through a tree
        m_writer.insertBlock(QTextBlockFormat(), QTextCharFormat());
        scatterNodes(m_writer, document()->blockCount());
    }
}

void common_KestProcessOutputTextEdit::insertMarkup(const QString& line,
                                                    const common_LineStyle& style)
{
    const QVector<common_MarkupReader::Line> lines = m_markupReader.read(line, style);
    for (int number = 0; number < lines.size(); ++number) {
        if (number > 0) {
            m_writer.insertBlock(QTextBlockFormat());
        }
        for (const common_FormattedText& text : lines[number]) {
            m_writer.insertText(text.text, text.format);
        }
    }
}

// Null when the view was given another document.
common_KestProcessOutputLayout* common_KestProcessOutputTextEdit::textLayout() const
{
    return qobject_cast<common_KestProcessOutputLayout*>(document()->documentLayout());
}
