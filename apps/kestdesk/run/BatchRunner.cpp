#include "BatchRunner.h"

#include <common_ActivePtr.h>

#include <QFile>

#include <vector>

void BatchRunner::deleteTemporaryFiles()
{
    const QStringList files = getTemporaryFilenames();
    for (const QString& file : files) {
        QFile::remove(file);
    }
}

// The destruction of a QProcess would wait for half a minute, so this is never destroyed.
void BatchRunner::abandon()
{
    static auto* const abandoned = new std::vector<common_ActivePtr<BatchRunner>>;
    abandoned->emplace_back(this);
    deleteTemporaryFiles();
}
