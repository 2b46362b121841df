// SPDX-License-Identifier: MIT
#include "RunResults.h"

#include <ResultTable.h>

#include <QDir>

QStringList RunResults::tables(const QStringList& files, const QString& folder)
{
    QStringList result;
    for (const QString& file : files) {
        const QString path =
            QDir::cleanPath(QDir(folder).absoluteFilePath(QDir::fromNativeSeparators(file)));
        const bool isTable = path.endsWith(QLatin1String(".csv"), Qt::CaseInsensitive) &&
                             suite::ResultTable::isTable(path);
        if (isTable && !result.contains(path)) {
            result.append(path);
        }
    }
    return result;
}
