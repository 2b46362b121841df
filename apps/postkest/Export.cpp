// SPDX-License-Identifier: MIT
#include "Export.h"

#include "ResultView.h"

#include <FileIdentity.h>
#include <OutputFile.h>
#include <TableLine.h>
#include <VisibleText.h>

#include <QBuffer>
#include <QCoreApplication>
#include <QFileInfo>
#include <QLocale>
#include <QPainter>
#include <QPixmap>
#include <QSvgGenerator>

#include <algorithm>

namespace {

QByteArray png(ResultView& view)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    view.charts().grab().save(&buffer, "PNG");
    return bytes;
}

QByteArray svg(ResultView& view)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    generator.setSize(view.charts().size());
    generator.setViewBox(view.charts().rect());
    generator.setTitle(QCoreApplication::translate("Export", "Results"));
    view.charts().render(&generator);
    return bytes;
}

// Names hold what files may be called: quotes are doubled, as spreadsheets want it.
QByteArray quoted(const QString& name)
{
    QString text = name;
    text.replace(QLatin1Char('"'), QStringLiteral("\"\""));
    return '"' + text.toUtf8() + '"';
}

// clang-format off
const struct { const char* suffix; QByteArray (*make)(ResultView& view, const QVector<Result>& results); } formats[] = {
    {"png", [](ResultView& view, const QVector<Result>& /*results*/) { return png(view); }},
    {"svg", [](ResultView& view, const QVector<Result>& /*results*/) { return svg(view); }},
    {"csv", [](ResultView& /*view*/, const QVector<Result>& results) { return Export::table(results); }},
};
// clang-format on

bool isOneOf(const QString& path, const QVector<Result>& results)
{
    return std::any_of(results.begin(), results.end(), [&path](const Result& result) {
        return suite::isSameFile(path, result.path);
    });
}

QString save(const QString& path, const QByteArray& bytes)
{
    suite::OutputFile file(path);
    return file.replace(bytes) ? QString()
                               : QCoreApplication::translate("Export", "%1 cannot be written: %2")
                                     .arg(suite::visibleText(path), file.reason());
}

} // namespace

QString Export::write(const QString& path, ResultView& view, const QVector<Result>& results,
                      const QVector<Result>& others)
{
    if (isOneOf(path, results) || isOneOf(path, others) || suite::ResultTable::isTable(path)) {
        return QCoreApplication::translate("Export",
                                           "%1 is a result of a run: it is not overwritten")
            .arg(suite::visibleText(path));
    }
    const QString suffix = QFileInfo(path).suffix().toLower();
    for (const auto& format : formats) {
        if (suffix == QLatin1String(format.suffix)) {
            return save(path, format.make(view, results));
        }
    }
    return QCoreApplication::translate("Export", "%1 is neither .png nor .svg nor .csv")
        .arg(suite::visibleText(path));
}

QByteArray Export::table(const QVector<Result>& results)
{
    constexpr int digits = QLocale::FloatingPointShortest;
    QByteArray text =
        suite::tableLine(QList<QByteArray>({"result"}) + suite::ResultTable::columns());
    for (const Result& result : results) {
        for (const suite::ResultPoint& point : result.points) {
            QList<QByteArray> cells = {quoted(result.name()),
                                       suite::tableNumber(point.frequency, digits)};
            for (const double value : point.values) {
                cells.append(suite::tableNumber(value, digits));
            }
            text += suite::tableLine(cells);
        }
    }
    return text;
}
