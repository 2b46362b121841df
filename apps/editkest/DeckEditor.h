// SPDX-License-Identifier: MIT
#pragma once

#include <Finding.h>

#include <QHash>
#include <QPlainTextEdit>

class FindingMargin;

/// The editor of a deck: line numbers and, beside the lines, what a check found in them.
class DeckEditor : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit DeckEditor(QWidget* parent = nullptr);

    /// The text, with every character as it was given; lines end in a line feed.
    QString deck() const;

    /// Shows these findings in the margin until the next ones come.
    void setFindings(const QVector<suite::Finding>& findings);

    /// The findings of a line, counted from 1.
    QVector<suite::Finding> findingsAt(int line) const { return m_findings.value(line); }

    /// Moves to a line, counted from 1.
    void goToLine(int line);

    /// For the margin: its width, its picture, and the line at a height.
    int marginWidth() const;
    void paintMargin(const QRect& rect);
    int lineAt(int y) const;

Q_SIGNALS:
    void paletteChanged();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void markCurrentLine();

    FindingMargin* m_margin;
    QHash<int, QVector<suite::Finding>> m_findings;
};
