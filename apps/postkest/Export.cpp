#include "Export.h"

#include "ResultView.h"

#include <FileIdentity.h>
#include <VisibleText.h>

#include <QBuffer>
#include <QFileInfo>
#include <QLocale>
#include <QPainter>
#include <QPixmap>
#include <QSaveFile>
#include <QSvgGenerator>

#include <algorithm>
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
    return std::isnan(value) ? QByteArray()
                             : QByteArray::number(value, 'g', QLocale::FloatingPointShortest);
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

// A write that ends early does not tell why; the next one does.
bool writeAll(QIODevice& file, const QByteArray& bytes)
{
    const qint64 written = file.write(bytes);
    const QByteArray rest = bytes.mid(static_cast<int>(std::max<qint64>(written, 0)));
    return rest.isEmpty() || (written >= 0 && file.write(rest) == rest.size());
}

QString save(const QString& path, const QByteArray& bytes)
{
    const QFileInfo old(path);
    if (old.exists() && !old.isFile()) {
        return QStringLiteral("%1 cannot be written: it is not a regular file")
            .arg(suite::visibleText(path));
    }
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) || !writeAll(file, bytes) ||
        !file.commit()) {
        return QStringLiteral("%1 cannot be written: %2")
            .arg(suite::visibleText(path), file.errorString());
    }
    return QString();
}

} // namespace

QString Export::write(const QString& path, ResultView& view, const QVector<Result>& results,
                      const QVector<Result>& others)
{
    if (isOneOf(path, results) || isOneOf(path, others) || Result::isTable(path)) {
        return QStringLiteral("%1 is a result of a run: it is not overwritten")
            .arg(suite::visibleText(path));
    }
    const QString suffix = QFileInfo(path).suffix().toLower();
    for (const auto& format : formats) {
        if (suffix == QLatin1String(format.suffix)) {
            return save(path, format.make(view, results));
        }
    }
    return QStringLiteral("%1 is neither .png nor .svg nor .csv").arg(suite::visibleText(path));
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
