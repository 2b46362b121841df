// SPDX-License-Identifier: MIT
#include "WindowTitle.h"

#include <VisibleText.h>

#include <QDir>
#include <QFileInfo>

namespace {

constexpr int longestFolder =
    48; // characters; titles are cut at their end, where the application is

QString folderOf(const QString& path)
{
    QString folder = QFileInfo(path).absolutePath();
    const QString home = QDir::homePath();
    if (folder == home || folder.startsWith(home + QLatin1Char('/'))) {
        folder.replace(0, home.size(), QLatin1Char('~'));
    }
    return suite::visiblePath(folder);
}

QString shortened(const QString& folder)
{
    return folder.size() > longestFolder ? QChar(0x2026) + folder.right(longestFolder - 1) : folder;
}

} // namespace

QString WindowTitle::of(const QString& path, const QString& tail)
{
    QString file = QStringLiteral("%1 (").arg(suite::visibleFileName(path)) +
                   shortened(folderOf(path)) + QLatin1Char(')');
    return file.replace(QLatin1String("[*]"), QLatin1String("[*][*]")) + tail;
}
