// SPDX-License-Identifier: MIT
#include "RunFolder.h"

#include <OutputFile.h>

#include <QDir>
#include <QFile>
#include <QRegularExpression>

namespace {

constexpr int numberWidth = 4;

// The names of files that a run makes, including temporary ones of killed runs.
const QRegularExpression& ownFiles()
{
    static const QRegularExpression pattern(
        QStringLiteral("\\Amodel\\.(nec|out|csv|partial|pre)(\\.[A-Za-z]{6})?\\z"));
    return pattern;
}

QString folderName(int run)
{
    return run == RunFolder::finalRun
               ? QStringLiteral("final")
               : QStringLiteral("run_%1").arg(run, numberWidth, 10, QLatin1Char('0'));
}

} // namespace

RunFolder::RunFolder(const QString& path) : m_folder(path, QStringLiteral("optkest"))
{}

QString RunFolder::open()
{
    return m_folder.open() ? QString() : m_folder.error();
}

QString RunFolder::statePath() const
{
    return m_folder.path(QStringLiteral("optkest.json"));
}

QString RunFolder::filePath(int run, const QString& suffix) const
{
    return m_folder.path(folderName(run) + QStringLiteral("/model.") + suffix);
}

QString RunFolder::prepareRun(int run, const QByteArray& deck)
{
    removeRun(run);
    if (!m_folder.makeFolder(folderName(run))) {
        return m_folder.error();
    }
    suite::OutputFile file(filePath(run, QStringLiteral("nec")));
    return file.replace(deck)
               ? QString()
               : QStringLiteral("the model of a run cannot be written, ") + file.reason();
}

void RunFolder::removeRun(int run)
{
    m_folder.removeFolder(folderName(run), ownFiles(), suite::WorkFolder::Links::Remove);
}

void RunFolder::removeRunsBehind(int run)
{
    static const QRegularExpression pattern(QStringLiteral("\\Arun_([0-9]{4,9})\\z"));
    const QStringList names =
        QDir(m_folder.path(QString())).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString& name : names) {
        const QRegularExpressionMatch match = pattern.match(name);
        if (match.hasMatch() && match.captured(1).toInt() > run) {
            removeRun(match.captured(1).toInt());
        }
    }
    removeRun(finalRun);
    if (run == 0) {
        QFile::remove(statePath());
    }
}
