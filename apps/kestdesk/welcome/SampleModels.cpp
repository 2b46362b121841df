// SPDX-License-Identifier: MIT
#include "SampleModels.h"

#include "Installation.h"

#include <Clause.h>
#include <VisibleText.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

namespace {

/// Translates the texts of this file.
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(SampleModels)
};

QString userFolder()
{
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return (documents.isEmpty() ? QDir::homePath() : documents) + QStringLiteral("/Kest samples");
}

} // namespace

QStringList SampleModels::all()
{
    const QDir folder(Installation::directory() + QStringLiteral("/models"));
    QStringList result;
    const QStringList names = folder.entryList({QStringLiteral("*.nec")}, QDir::Files, QDir::Name);
    for (const QString& name : names) {
        result.append(folder.filePath(name));
    }
    return result;
}

QString SampleModels::copyOf(const QString& sample, QString& problem)
{
    const QString folder = userFolder();
    QString copy = folder + QLatin1Char('/') + QFileInfo(sample).fileName();
    if (QFileInfo(copy).isFile()) {
        return copy;
    }
    if (!QDir().mkpath(folder)) {
        problem = Texts::tr("the folder %1 cannot be made").arg(suite::visiblePath(folder));
        return QString();
    }
    QFile source(sample);
    if (!source.copy(copy)) {
        problem = Texts::tr("%1 cannot be written: %2")
                      .arg(suite::visiblePath(copy), suite::clause(source.errorString()));
        return QString();
    }
    QFile::setPermissions(copy, QFile::permissions(copy) | QFile::WriteOwner);
    return copy;
}
