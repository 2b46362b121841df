// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class DeckEditor;

/// The strip beside the text with the line numbers and the marks of what was found.
class FindingMargin : public QWidget
{
    Q_OBJECT

public:
    explicit FindingMargin(DeckEditor* editor);

    QSize sizeHint() const override;

    /// What was found in a line as text, a line each; empty when nothing was.
    QString toolTipOf(int line) const;

protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

private:
    DeckEditor* m_editor;
};
