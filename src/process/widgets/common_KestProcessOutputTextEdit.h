#pragma once

#include "common_EndOfTurn.h"
#include "common_MarkupReader.h"

#include <QTextCursor>
#include <QTextEdit>

class common_KestProcessOutputLayout;
struct common_LineStyle;

/// A read-only view of lines that a child process prints, perhaps very many and very fast.
///
/// A line is in the document as soon as it was appended. The scrolling waits for the end of the
/// event loop's turn and is done for all its lines together. Only what is in view is ever laid out,
/// so a view that nobody sees costs no more than its text.
///
/// Where the palette's base is dark the view has a light one with dark text, now and later: the
/// colours of the lines are made for that.
class common_KestProcessOutputTextEdit : public QTextEdit
{
    Q_OBJECT

public:
    /// How the view scrolls when lines are appended to it.
    enum class Following {
        Bottom,    ///< stays at the bottom where it is there
        TextCursor ///< also scrolls to the text cursor, which stays at the end if it is there
    };

    common_KestProcessOutputTextEdit(Following following, QWidget* parent);
    ~common_KestProcessOutputTextEdit() override;

    /// Appends a paragraph as QTextEdit::append() does: rich text where it looks so. But what
    /// markup the line leaves open ends with it, it begins plain, wherever the text cursor is, and
    /// blocks in it are lines of text.
    void appendLine(const QString& line);

    /// Appends a line of rich text in that style.
    void appendLine(const QString& line, const common_LineStyle& style);

    /// Scrolls for what was appended in this turn now: to be called before anything that asks where
    /// something stands in the view, or goes there.
    void finishLayout();

    /// Scrolls to the text cursor.
    void showTextCursor();

protected:
    bool viewportEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    QMimeData* createMimeDataFromSelection() const override;

private:
    void onUserScrolled();
    void onUserScrolledSideways();
    void onCursorMoved();
    void beginTurn();
    void endEditing();
    void follow();
    void scrollToBottom();
    void scrollToTextCursor();
    void layOutView();
    bool isFollowedAt(int scrollPosition) const;
    void beginLine();
    void insertMarkup(const QString& line, const common_LineStyle& style);
    common_KestProcessOutputLayout* textLayout() const;

    Following m_following;
    common_MarkupReader m_markupReader;
    QTextCursor m_writer;
    common_EndOfTurn m_endOfTurn;
    bool m_isInTurn = false;
    bool m_isEditing = false; ///< an edit block is open
    bool m_isLayingOut = false;
    bool m_wasAtBottom = false;
    bool m_isScrolledAway = false;     // by the user, from what would be followed
    bool m_isScrolledSideways = false; ///< by the user
};
