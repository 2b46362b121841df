// SPDX-License-Identifier: MIT
#pragma once

#include "common_EndOfTurn.h"
#include "common_MarkupReader.h"

#include <QTextCursor>
#include <QTextEdit>

class common_KestProcessOutputLayout;
struct common_LineStyle;

/// A read-only view of lines that a child process prints, perhaps very many and very fast.
///
/// A line is in the document as soon as it was appended. Scrolling is done once at the end of the
/// event loop's turn. Only what is in view is laid out, so a hidden view costs no more than its
/// text.
///
/// On a dark base colours are drawn in lighter shades that can be read there; the document, and
/// what is copied from it, has the lines' own colours.
class common_KestProcessOutputTextEdit : public QTextEdit
{
    Q_OBJECT

public:
    /// How the view scrolls when lines are appended to it.
    enum class Following {
        Bottom,    ///< stays at the bottom if it is there
        TextCursor ///< also scrolls to the text cursor, which stays at the end if it is there
    };

    common_KestProcessOutputTextEdit(Following following, QWidget* parent);
    ~common_KestProcessOutputTextEdit() override;

    /// Appends a paragraph as QTextEdit::append() does, as rich text where it looks like that.
    /// Unlike there, markup that the line leaves open ends with it, the line does not begin in the
    /// format of the text cursor, and blocks in it become lines of text.
    void appendLine(const QString& line);

    /// Appends a line of rich text in that style.
    void appendLine(const QString& line, const common_LineStyle& style);

    /// Scrolls now for the lines that were appended in this turn. Call it before anything that uses
    /// positions in the view.
    void finishLayout();

    /// Scrolls to the text cursor.
    void showTextCursor();

protected:
    bool viewportEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
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
    bool m_isScrolledAway = false;     ///< by the user, from the position that is followed
    bool m_isScrolledSideways = false; ///< by the user
};
