#include "TemporaryFolder.h"

#include "ProcessMark.h"
#include "RunningProcesses.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

namespace {

QString nameTemplate(const QString& purpose)
{
    return QDir(QDir::tempPath())
        .filePath(QStringLiteral("kest-%1-%2-XXXXXX").arg(purpose, ProcessMark::own().word()));
}

// Nobody but the user can have put anything into it, or anything else in its place.
bool isPrivateFolder(const QFileInfo& entry)
{
    constexpr auto othersMayWrite = QFile::WriteGroup | QFile::WriteOther;
    return entry.isDir() && !entry.isSymLink() && RunningProcesses::isOwnFile(entry) &&
           !(entry.permissions() & othersMayWrite);
}

} // namespace

TemporaryFolder::TemporaryFolder(const QString& purpose) : QTemporaryDir(nameTemplate(purpose))
{}

void TemporaryFolder::removeLeft()
{
    static const QRegularExpression ownNames(
        QRegularExpression::anchoredPattern(QStringLiteral("kest-[a-z]+-(%1)-[A-Za-z0-9]{6}")
                                                .arg(QLatin1String(ProcessMark::pattern))));
    const QDir directory(QDir::tempPath());
    const QStringList names = directory.entryList({QStringLiteral("kest-*")}, QDir::Dirs);
    for (const QString& name : names) {
        const auto mark = ProcessMark::parse(ownNames.match(name).captured(1));
        const QFileInfo entry(directory.filePath(name));
        if (mark && mark->hasEnded() && isPrivateFolder(entry)) {
            QDir(entry.filePath()).removeRecursively();
        }
    }
}
