// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QTextObjectInterface>

class QTextDocument;

/// Draws an empty frame for every image of a rich text. Qt's own handler would read the file that
/// the text names.
class common_ImagePlaceholder : public QObject, public QTextObjectInterface
{
    Q_OBJECT
    Q_INTERFACES(QTextObjectInterface)

public:
    /// Makes the document show frames for its images. The document must have Qt's own layout.
    static void install(QTextDocument& document);

    QSizeF intrinsicSize(QTextDocument* document, int position, const QTextFormat& format) override;
    void drawObject(QPainter* painter, const QRectF& rectangle, QTextDocument* document,
                    int position, const QTextFormat& format) override;

private:
    using QObject::QObject;
};
