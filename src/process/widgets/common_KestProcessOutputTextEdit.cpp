#include "common_KestProcessOutputTextEdit.h"

#include "common_KestProcessOutputDocument.h"

#include <QInputEvent>
#include <QMimeData>
#include <QPalette>
#include <QScrollBar>
#include <QTextDocumentFragment>

#include <algorithm>
#include <optional>

namespace {

struct ColouredLine
{
    QString text;
    QTextCharFormat format;
};

// Whether HTML shows the character as it is, wherever it stands. Blanks are seen to separately.
bool isOrdinary(QChar character)
{
    return character > QLatin1Char(' ') && character.unicode() < 0xd800 &&
           character != QLatin1Char('<') && character != QLatin1Char('&') && !character.isSpace();
}

// As HTML has it: no blanks at the beginning, and one for several.
QString withSingleBlanks(QStringView text)
{
    QString result;
    result.reserve(static_cast<int>(text.size()));
    for (const QChar character : text) {
        const bool blank = character == QLatin1Char(' ');
        if (!blank || !(result.isEmpty() || result.back() == QLatin1Char(' '))) {
            result.append(character);
        }
    }
    return result;
}

bool takeTags(QStringView& text, QLatin1String opening, QLatin1String closing)
{
    if (!text.startsWith(opening) || !text.endsWith(closing) ||
        text.size() < opening.size() + closing.size()) {
        return false;
    }
    text = text.mid(opening.size(), text.size() - opening.size() - closing.size());
    return true;
}

// What common_colourise() makes of a text without markup, perhaps in bold, needs no HTML parser.
// Everything else does.
std::optional<ColouredLine> colouredLine(QStringView html)
{
    constexpr int nameLength = 7; // #rrggbb
    if (!takeTags(html, QLatin1String("<font color="), QLatin1String("</font>"))) {
        return std::nullopt;
    }
    const QString name = html.left(nameLength).toString();
    const bool named = name.startsWith(QLatin1Char('#')) && QColor::isValidColor(name);
    if (!named || html.mid(nameLength, 1) != QLatin1String(">")) {
        return std::nullopt;
    }
    QStringView text = html.mid(nameLength + 1);
    QTextCharFormat format;
    format.setForeground(QColor(name));
    if (takeTags(text, QLatin1String("<b>"), QLatin1String("</b>"))) {
        format.setFontWeight(QFont::Bold);
    }
    const bool plain = std::all_of(text.cbegin(), text.cend(), [](QChar character) {
        return character == QLatin1Char(' ') || isOrdinary(character);
    });
    if (!plain) {
        return std::nullopt;
    }
    return ColouredLine{withSingleBlanks(text), format};
}

// On a dark base the colours of messages, blue above all, could not be read. All else of the view,
// its scroll bars for instance, keeps the colours around it.
void ensureLightBase(QWidget* view)
{
    constexpr int middle = 128;
    if (view->palette().color(QPalette::Base).lightness() >= middle) {
        return;
    }
    QPalette readable;
    readable.setColor(QPalette::Base, Qt::white);
    readable.setColor(QPalette::Text, Qt::black);
    view->setPalette(readable);
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
    setReadOnly(true);
    ensureLightBase(this);
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
    beginTurn();
    if (!m_isEditing) {
        m_isEditing = true;
        m_writer.beginEditBlock();
    }
    m_writer.movePosition(QTextCursor::End);
    if (!document()->isEmpty()) {
        m_writer.insertBlock(QTextBlockFormat(), QTextCharFormat());
    }
    insertLine(line);
}

void common_KestProcessOutputTextEdit::finishLayout()
{
    if (m_isInTurn) {
        follow();
    }
}

// Before painting the layout must be that of the text; before the user's input is looked at, the
// place in the text must be right too.
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

// What is followed shall still be in view.
void common_KestProcessOutputTextEdit::resizeEvent(QResizeEvent* event)
{
    beginTurn();
    QTextEdit::resizeEvent(event);
}

void common_KestProcessOutputTextEdit::changeEvent(QEvent* event)
{
    QTextEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        ensureLightBase(this);
    }
}

// The ODF that QTextEdit would offer as well contains the images, read from their files.
QMimeData* common_KestProcessOutputTextEdit::createMimeDataFromSelection() const
{
    const QTextDocumentFragment selection = textCursor().selection();
    auto* const data = new QMimeData;
    data->setText(selection.toPlainText());
    data->setHtml(selection.toHtml());
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

// The layout may show or hide a scroll bar, and so resize the view: that is part of the turn.
void common_KestProcessOutputTextEdit::follow()
{
    endEditing();
    if (!m_isScrolledAway && !verticalScrollBar()->isSliderDown()) {
        if (m_isInTurn && m_wasAtBottom) {
            scrollToBottom();
        }
        if (m_following == Following::TextCursor) {
            scrollToTextCursor();
        }
    }
    m_isInTurn = false;
}

// A long text in a new width is laid out little by little, unless somebody asks for its size.
void common_KestProcessOutputTextEdit::scrollToBottom()
{
    document()->size();
    verticalScrollBar()->setValue(verticalScrollBar()->maximum());
}

// After a line that is too wide for the view the next ones shall be seen from their beginning
// again.
void common_KestProcessOutputTextEdit::scrollToTextCursor()
{
    if (textCursor().atEnd() && !m_isScrolledSideways) {
        horizontalScrollBar()->setValue(0);
    }
    ensureCursorVisible();
}

bool common_KestProcessOutputTextEdit::isFollowedAt(int scrollPosition) const
{
    return scrollPosition >= verticalScrollBar()->maximum() &&
           (m_following == Following::Bottom || textCursor().atEnd());
}

void common_KestProcessOutputTextEdit::insertLine(const QString& line)
{
    if (!Qt::mightBeRichText(line)) {
        m_writer.insertText(line, QTextCharFormat());
    } else if (const auto coloured = colouredLine(line)) {
        m_writer.insertText(coloured->text, coloured->format);
    } else {
        m_writer.setCharFormat(QTextCharFormat());
        m_writer.insertHtml(line);
    }
}
