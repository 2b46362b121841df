// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QPixmap>
#include <QSize>

class QColor;
class QString;

/// A drawing whose parts in "currentColor" take the colour of the text around them.
class SvgPicture
{
public:
    /// Empty when the file is none or is no drawing.
    static SvgPicture read(const QString& fileName);

    bool isEmpty() const { return m_size.isEmpty(); }

    /// As the drawing says, in pixels at 100 per cent.
    QSize size() const { return m_size; }

    /// Of that many device pixels, on a transparent ground.
    QPixmap pixmap(const QSize& size, const QColor& ink) const;

private:
    QByteArray m_content;
    QSize m_size;
};
