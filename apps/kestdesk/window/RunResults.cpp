#include "RunResults.h"

#include <InputFile.h>

#include <QDir>

namespace {

const QByteArray firstColumn = QByteArrayLiteral("frequency");

// Components leave other tables as well, such as the steps of an optimisation.
bool isOverFrequency(const QString& path)
{
    return suite::InputFile(path).readStart(firstColumn.size()) == firstColumn;
}

} // namespace

QStringList RunResults::tables(const QStringList& files, const QString& folder)
{
    QStringList result;
    for (const QString& file : files) {
        const QString path =
            QDir::cleanPath(QDir(folder).absoluteFilePath(QDir::fromNativeSeparators(file)));
        const bool isTable =
            path.endsWith(QLatin1String(".csv"), Qt::CaseInsensitive) && isOverFrequency(path);
        if (isTable && !result.contains(path)) {
            result.append(path);
        }
    }
    return result;
}
