// SPDX-License-Identifier: MIT
#include "common_ImagePlaceholder.h"

#include <QAbstractTextDocumentLayout>
#include <QPainter>
#include <QTextDocument>

namespace {

constexpr double frameSize = 16;

} // namespace

void common_ImagePlaceholder::install(QTextDocument& document)
{
    QAbstractTextDocumentLayout* const layout = document.documentLayout();
    const auto options = Qt::FindDirectChildrenOnly;
    if (!layout->findChild<common_ImagePlaceholder*>(QString(), options)) {
        layout->registerHandler(QTextFormat::ImageObject, new common_ImagePlaceholder(layout));
    }
}

// The size that the text asks for is ignored: it may be of any size.
QSizeF common_ImagePlaceholder::intrinsicSize(QTextDocument* /*document*/, int /*position*/,
                                              const QTextFormat& /*format*/)
{
    return {frameSize, frameSize};
}

void common_ImagePlaceholder::drawObject(QPainter* painter, const QRectF& rectangle,
                                         QTextDocument* /*document*/, int /*position*/,
                                         const QTextFormat& /*format*/)
{
    painter->save();
    painter->setPen(Qt::gray);
    painter->drawRect(rectangle.adjusted(1, 1, -2, -2));
    painter->restore();
}
