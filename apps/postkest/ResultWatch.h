// SPDX-License-Identifier: MIT
#pragma once

#include <QFileSystemWatcher>
#include <QObject>
#include <QSet>
#include <QTimer>

/// Watches result files, which runs replace by new ones. Missing files are watched for, too.
class ResultWatch : public QObject
{
    Q_OBJECT

public:
    explicit ResultWatch(QObject* parent);

    /// Watches this file from now on.
    void add(const QString& path);

Q_SIGNALS:
    /// The file has changed, and some time has passed without a further change.
    void changed(const QString& path);

private:
    void watchFile(const QString& path);
    void noteFile(const QString& path);
    void noteFolder(const QString& folder);
    void tell();

    QFileSystemWatcher m_watcher;
    QSet<QString> m_paths;
    QSet<QString> m_pending;
    QTimer m_quiet;
};
