// SPDX-License-Identifier: MIT
#include "ModelWatcher.h"

#include <QFileInfo>

namespace {

constexpr int pauseMilliseconds = 150;

} // namespace

ModelWatcher::ModelWatcher(QObject* parent) : QObject(parent)
{
    m_pause.setSingleShot(true);
    m_pause.setInterval(pauseMilliseconds);
    connect(&m_pause, &QTimer::timeout, this, &ModelWatcher::check);
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, [this] {
        m_isWritten = true;
        m_pause.start();
    });
    // Editors replace files, which ends the watch of the file itself.
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, [this] { m_pause.start(); });
}

void ModelWatcher::watch(const QString& path)
{
    m_pause.stop();
    const QStringList watched = m_watcher.files() + m_watcher.directories();
    if (!watched.isEmpty()) {
        m_watcher.removePaths(watched);
    }
    m_path = path;
    m_isWritten = false;
    const QFileInfo info(path);
    m_time = info.lastModified();
    m_size = info.size();
    addPaths();
}

void ModelWatcher::check()
{
    addPaths();
    const QFileInfo info(m_path);
    const bool isOther = info.lastModified() != m_time || info.size() != m_size;
    m_time = info.lastModified();
    m_size = info.size();
    if (isOther || m_isWritten) {
        m_isWritten = false;
        Q_EMIT changed();
    }
}

void ModelWatcher::addPaths()
{
    const QFileInfo info(m_path);
    if (info.exists() && !m_watcher.files().contains(m_path)) {
        m_watcher.addPath(m_path);
    }
    const QString folder = info.absolutePath();
    if (QFileInfo::exists(folder) && !m_watcher.directories().contains(folder)) {
        m_watcher.addPath(folder);
    }
}
