// SPDX-License-Identifier: MIT
#include "PictureOptions.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <algorithm>

namespace {

const QString outputOption = QStringLiteral("output");
const QString sizeOption = QStringLiteral("size");

// Two whole numbers with an "x" between them; invalid when the text is something else.
QSize parseSize(const QString& text)
{
    const QStringList sides = text.split(QLatin1Char('x'), Qt::KeepEmptyParts, Qt::CaseInsensitive);
    bool hasWidth = false;
    bool hasHeight = false;
    const QSize size(sides.value(0).toInt(&hasWidth), sides.value(1).toInt(&hasHeight));
    return sides.size() == 2 && hasWidth && hasHeight ? size : QSize();
}

} // namespace

QVector<ApplicationOption> PictureOptions::options() const
{
    const QString usual = QStringLiteral("%1x%2").arg(usualSize.width()).arg(usualSize.height());
    return {{{outputOption, outputHelp, QCoreApplication::translate("PictureOptions", "file")},
             true,
             QString()},
            {{sizeOption,
              QCoreApplication::translate("PictureOptions",
                                          "The picture's size in pixels (default: %1).")
                  .arg(usual),
              QStringLiteral("WxH"), usual},
             true,
             QString()}};
}

bool PictureOptions::hasOutput(const QCommandLineParser& parser)
{
    return parser.isSet(outputOption);
}

QString PictureOptions::output(const QCommandLineParser& parser)
{
    return parser.value(outputOption);
}

QString PictureOptions::sizeProblem(const QCommandLineParser& parser) const
{
    const QSize chosen = size(parser);
    const bool isValid = std::min(chosen.width(), chosen.height()) >= leastSide &&
                         std::max(chosen.width(), chosen.height()) <= greatestSide;
    return isValid
               ? QString()
               : QCoreApplication::translate(
                     "PictureOptions", "\"%1\" is no size: width x height, from %2 to %3 pixels")
                     .arg(parser.value(sizeOption), QString::number(leastSide),
                          QString::number(greatestSide));
}

QSize PictureOptions::size(const QCommandLineParser& parser)
{
    return parseSize(parser.value(sizeOption));
}
