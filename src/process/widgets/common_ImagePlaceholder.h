#pragma once

#include <QObject>
#include <QTextObjectInterface>

class QTextDocument;

/// Draws an empty frame for every image of a rich text, whose own handler would read the file that
/// the text names.
class common_ImagePlaceholder : public QObject, public QTextObjectInterface
{
    Q_OBJECT
    Q_INTERFACES(QTextObjectInterface)

public:
    /// Makes the document show frames for its images from now on. Its own layout must be in use.
    static void install(QTextDocument& document);

    QSizeF intrinsicSize(QTextDocument* document, int position, const QTextFormat& format) override;
    void drawObject(QPainter* painter, const QRectF& rectangle, QTextDocument* document,
                    int position, const QTextFormat& format) override;

private:
    using QObject::QObject;
};
