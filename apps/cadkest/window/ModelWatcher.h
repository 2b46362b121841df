// SPDX-License-Identifier: MIT
#pragma once

#include <QDateTime>
#include <QFileSystemWatcher>
#include <QTimer>

/// Signals that a file has been written, replaced, removed or made again.
class ModelWatcher : public QObject
{
    Q_OBJECT

public:
    explicit ModelWatcher(QObject* parent = nullptr);

    /// Watches this file instead of the one before.
    void watch(const QString& path);

Q_SIGNALS:
    /// Once for what is written in one go.
    void changed();

private:
    void check();
    void addPaths();

    QString m_path;
    QFileSystemWatcher m_watcher;
    QTimer m_pause; ///< runs while the file may still be being written
    bool m_isWritten = false;
    QDateTime m_time;
    qint64 m_size = 0;
};
