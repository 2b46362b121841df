// SPDX-License-Identifier: MIT
#include "ResultWatch.h"

#include <QFileInfo>

#include <utility>

namespace {

constexpr int quietTime = 200; // ms

} // namespace

ResultWatch::ResultWatch(QObject* parent) : QObject(parent)
{
    m_quiet.setSingleShot(true);
    m_quiet.setInterval(quietTime);
    connect(&m_quiet, &QTimer::timeout, this, &ResultWatch::tell);
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, &ResultWatch::noteFile);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, &ResultWatch::noteFolder);
}

void ResultWatch::add(const QString& path)
{
    m_paths.insert(path);
    m_watcher.addPath(path);
    m_watcher.addPath(QFileInfo(path).absolutePath());
}

// A file that was replaced is not watched any more, whoever tells of that first: its folder, while
// the old file still counts as watched, or the old file itself.
void ResultWatch::watchFile(const QString& path)
{
    if (!m_watcher.files().contains(path) && QFileInfo::exists(path)) {
        m_watcher.addPath(path);
    }
}

void ResultWatch::noteFile(const QString& path)
{
    watchFile(path);
    m_pending.insert(path);
    m_quiet.start();
}

void ResultWatch::noteFolder(const QString& folder)
{
    const QStringList watched = m_watcher.files();
    for (const QString& path : qAsConst(m_paths)) {
        const QFileInfo file(path);
        if (file.absolutePath() == folder && file.exists() && !watched.contains(path)) {
            noteFile(path);
        }
    }
}

void ResultWatch::tell()
{
    const QSet<QString> pending = std::exchange(m_pending, QSet<QString>());
    for (const QString& path : pending) {
        watchFile(path); // before it is read: what comes then is told anew
        Q_EMIT changed(path);
    }
}
