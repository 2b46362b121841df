// SPDX-License-Identifier: MIT
#include "MarkedFolders.h"

#include "ProcessMark.h"
#include "RunningProcesses.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

namespace {

// Nobody but the user can have put anything into it, or anything else in its place.
bool isSafe(const QFileInfo& entry)
{
    return entry.isDir() && !entry.isSymLink() && RunningProcesses::isPrivateFolder(entry);
}

} // namespace

QString MarkedFolders::marked(const QString& name)
{
    return QStringLiteral("%1-%2").arg(name, ProcessMark::own().word());
}

void MarkedFolders::removeLeft()
{
    static const QRegularExpression ownNames(
        QRegularExpression::anchoredPattern(QStringLiteral("[a-z]+-[a-z]+-(%1)-[A-Za-z0-9]{6}")
                                                .arg(QLatin1String(ProcessMark::pattern))));
    const QDir directory(QDir::tempPath());
    const QStringList names = directory.entryList({QStringLiteral("*-*-*-*-*-*-*")}, QDir::Dirs);
    for (const QString& name : names) {
        const auto mark = ProcessMark::parse(ownNames.match(name).captured(1));
        const QFileInfo entry(directory.filePath(name));
        if (mark && mark->hasEnded() && isSafe(entry)) {
            QDir(entry.filePath()).removeRecursively();
        }
    }
}
