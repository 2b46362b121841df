// SPDX-License-Identifier: MIT
#pragma once

#include <DialogStage.h>

#include <QScrollBar>
#include <QTextBlock>
#include <QWheelEvent>

inline QString red(const QString& text)
{
    return QStringLiteral("<font color=#ff0000>%1</font>").arg(text);
}

inline QString blue(const QString& text)
{
    return QStringLiteral("<font color=#0000ff>%1</font>").arg(text);
}

inline QString orange(const QString& text)
{
    return QStringLiteral("<font color=#ffa500><b>%1</b></font>").arg(text);
}

// Everything that can be seen of the blocks from the given one on: their texts and their formats.
inline QVariantList appearance(const QTextDocument* document, int firstBlock = 0,
                               int lastBlock = -1)
{
    QVariantList result;
    for (QTextBlock block = document->findBlockByNumber(firstBlock);
         block.isValid() && (lastBlock < 0 || block.blockNumber() <= lastBlock);
         block = block.next()) {
        result << block.text() << QVariant(block.blockFormat()) << QVariant(block.charFormat())
               << (block.textList() != nullptr);
        for (auto fragment = block.begin(); !fragment.atEnd(); ++fragment) {
            result << fragment.fragment().text() << QVariant(fragment.fragment().charFormat());
        }
    }
    return result;
}

// The appearance of one line among others, as QTextEdit itself appends it.
inline QVariantList plainAppearance(const QString& line)
{
    QTextEdit plain;
    plain.setReadOnly(true);
    plain.append(QStringLiteral("before"));
    plain.append(line);
    return appearance(plain.document(), 1);
}

inline bool isColour(QRgb pixel, const QColor& colour)
{
    return QColor(pixel).rgb() == colour.rgb();
}

inline bool shows(QWidget* widget, const QColor& colour)
{
    const QImage image = widget->grab().toImage();
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (isColour(image.pixel(x, y), colour)) {
                return true;
            }
        }
    }
    return false;
}

class TabStage : public DialogStage
{
public:
    TabStage()
    {
        runner->start();
        openDetails();
        QCoreApplication::processEvents();
    }

    QScrollBar* scrollBar() const { return output()->verticalScrollBar(); }

    /// Whether the last line is in view; below it there is a margin.
    bool isAtEnd() const
    {
        return scrollBar()->maximum() > 0 && scrollBar()->maximum() - scrollBar()->value() <= 4;
    }

    void printLines(int count) const
    {
        for (int number = 0; number < count; ++number) {
            runner->output(QStringLiteral("line %1").arg(number));
        }
        QCoreApplication::processEvents();
    }

    // Wider than the view, each in its own way.
    void printWrappingLines(int count) const
    {
        for (int number = 0; number < count; ++number) {
            runner->output(QStringLiteral("line %1 of text ").arg(number).repeated(number % 40));
        }
        QCoreApplication::processEvents();
    }

    void moveCursorTo(int position) const
    {
        QTextCursor cursor = output()->textCursor();
        cursor.setPosition(position);
        output()->setTextCursor(cursor);
    }

    // What 15 degrees of a wheel are in pixels.
    int wheelStep() const { return QApplication::wheelScrollLines() * scrollBar()->singleStep(); }

    void wheel(int degrees) const
    {
        QWidget* const viewport = output()->viewport();
        const QPointF middle = viewport->rect().center();
        QWheelEvent event(middle, viewport->mapToGlobal(middle.toPoint()), QPoint(),
                          QPoint(0, degrees * 8), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                          false);
        QCoreApplication::sendEvent(viewport, &event);
    }
};
