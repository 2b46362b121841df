#include "Export.h"

#include "ResultView.h"

#include <QBuffer>
#include <QFileInfo>
#include <QPainter>
#include <QPixmap>
#include <QSaveFile>
#include <QSvgGenerator>

#include <cmath>

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
    generator.setTitle(QStringLiteral("Results"));
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

QByteArray cell(double value)
{
    return std::isnan(value) ? QByteArray() : QByteArray::number(value, 'g', 10);
}

// clang-format off
const struct { const char* suffix; QByteArray (*make)(ResultView& view, const QVector<Result>& results); } formats[] = {
    {"png", [](ResultView& view, const QVector<Result>& /*results*/) { return png(view); }},
    {"svg", [](ResultView& view, const QVector<Result>& /*results*/) { return svg(view); }},
    {"csv", [](ResultView& /*view*/, const QVector<Result>& results) { return Export::table(results); }},
};
// clang-format on

QString save(const QString& path, const QByteArray& bytes)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit()) {
        return QStringLiteral("%1 cannot be written: %2").arg(path, file.errorString());
    }
    return QString();
}

} // namespace

QString Export::write(const QString& path, ResultView& view, const QVector<Result>& results)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    for (const auto& format : formats) {
        if (suffix == QLatin1String(format.suffix)) {
            return save(path, format.make(view, results));
        }
    }
    return QStringLiteral("%1 is neither .png nor .svg nor .csv").arg(path);
}

QByteArray Export::table(const QVector<Result>& results)
{
    QByteArray text = "result,frequency_MHz,resistance_ohm,reactance_ohm,swr\n";
    for (const Result& result : results) {
        for (const ResultPoint& point : result.points) {
            text += quoted(result.name()) + ',' + cell(point.frequency);
            for (const double value : point.values) {
                text += ',' + cell(value);
            }
            text += '\n';
        }
    }
    return text;
}
