// SPDX-License-Identifier: MIT
#include "RefinementFolder.h"

#include "AnalysisFiles.h"
#include "ModelFile.h"

#include <QDir>
#include <QFileInfo>

using suite::AnalysisFiles;

namespace {

// What runs leave behind, half written files of killed ones among it.
QRegularExpression filesOf(const QString& model)
{
    return QRegularExpression(QStringLiteral("\\A%1\\.(nec|out|csv|partial)(\\.[A-Za-z]{6})?\\z")
                                  .arg(QRegularExpression::escape(model)));
}

} // namespace

RefinementFolder::RefinementFolder(const suite::ModelFile& model)
    : m_folder(model.resultPath(QStringLiteral("amrkest")), QStringLiteral("amrkest"))
    , m_model(QFileInfo(model.pathWithEnding(QString())).fileName())
{}

bool RefinementFolder::open()
{
    if (!m_folder.open()) {
        return false;
    }
    removeRuns();
    return true;
}

QString RefinementFolder::iteration(int number)
{
    return QStringLiteral("iteration_%1").arg(number, 2, 10, QLatin1Char('0'));
}

QString RefinementFolder::finalRun()
{
    return QStringLiteral("final");
}

QString RefinementFolder::filePath(const QString& run, const QString& suffix) const
{
    return m_folder.path(run + QLatin1Char('/') + modelName(run) + QLatin1Char('.') + suffix);
}

void RefinementFolder::removeRuns() const
{
    const QStringList folders =
        QDir(m_folder.path(QString())).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    static const QRegularExpression pattern(QStringLiteral("\\Aiteration_[0-9]{2,}\\z"));
    for (const QString& folder : folders) {
        if (pattern.match(folder).hasMatch()) {
            m_folder.removeFolder(folder, filesOf(modelName(folder)));
        }
    }
    // A final run that was to sample adaptively leaves its state when it is stopped.
    const QString refined = modelName(finalRun());
    m_folder.removeFolder(finalRun() + QLatin1Char('/') + refined + QStringLiteral(".adaptkest"),
                          QRegularExpression(AnalysisFiles::names().pattern() +
                                             QStringLiteral("|\\Amade_by_adaptkest\\z")));
    m_folder.removeFolder(finalRun(), filesOf(refined));
}

QString RefinementFolder::modelName(const QString& run) const
{
    return run == finalRun() ? m_model + QStringLiteral("_amr") : m_model;
}
