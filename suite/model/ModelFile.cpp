// SPDX-License-Identifier: MIT
#include "ModelFile.h"

#include <FileName.h>

#include <QFileInfo>

namespace suite {

namespace {

QString deckSuffix()
{
    return QStringLiteral(".nec");
}

} // namespace

ModelFile::ModelFile(const QString& argument)
{
    const QString completed = argument + deckSuffix();
    const bool useCompleted = !QFileInfo(argument).isFile() && QFileInfo(completed).isFile();
    m_path = FileName::absolute(useCompleted ? completed : argument);
}

QString ModelFile::name() const
{
    return QFileInfo(m_path).fileName();
}

QString ModelFile::resultPath(const QString& suffix) const
{
    return pathWithEnding(QLatin1Char('.') + suffix);
}

QString ModelFile::pathWithEnding(const QString& ending) const
{
    QString stem = m_path;
    if (stem.endsWith(deckSuffix(), Qt::CaseInsensitive)) {
        stem.chop(deckSuffix().size());
    }
    return stem + ending;
}

} // namespace suite
