#ifndef COMMON_KESTPROCESSOUTPUTTEXTEDIT_H
#define COMMON_KESTPROCESSOUTPUTTEXTEDIT_H

#include "common_EndOfTurn.h"

#include <QTextCursor>
#include <QTextEdit>

/// A read-only view of lines that a child process prints, perhaps very many and very fast.
///
/// A line is in the document as soon as it was appended. The layout and the scrolling wait for the
/// end of the event loop's turn and are done for all its lines together: to lay out after every
/// line takes most of the time that plain QTextEdit::append() needs.
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
    /// markup the line leaves open ends with it, and it begins plain, wherever the text cursor is.
    void appendLine(const QString& line);

    /// Lays out what was appended in this turn now, and scrolls: to be called before anything that
    /// asks where something stands in the view, or goes there.
    void finishLayout();

protected:
    bool viewportEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
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
    bool isFollowedAt(int scrollPosition) const;
    void insertLine(const QString& line);

    Following m_following;
    QTextCursor m_writer;
    common_EndOfTurn m_endOfTurn;
    bool m_isInTurn = false;
    bool m_isEditing = false; // an edit block is open
    bool m_wasAtBottom = false;
    bool m_isScrolledAway = false;     // by the user, from what would be followed
    bool m_isScrolledSideways = false; // by the user
};

#endif
