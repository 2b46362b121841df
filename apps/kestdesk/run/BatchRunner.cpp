#include "BatchRunner.h"

#include <QFile>

void BatchRunner::deleteTemporaryFiles()
{
    const QStringList files = getTemporaryFilenames();
    for (const QString& file : files) {
        QFile::remove(file);
    }
}

// The destruction of a QProcess would wait for half a minute.
void BatchRunner::abandon()
{
    deleteTemporaryFiles();
    reference();
}
