// SPDX-License-Identifier: MIT
#include "FileDrop.h"

#include <FileName.h>

#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

namespace {

QStringList localFiles(const QMimeData& data)
{
    QStringList result;
    const QList<QUrl> urls = data.urls();
    for (const QUrl& url : urls) {
        if (url.isLocalFile()) {
            result.append(suite::FileName::fromUrl(url));
        }
    }
    return result;
}

} // namespace

FileDrop::FileDrop(QWidget* window) : QObject(window)
{
    window->setAcceptDrops(true);
    window->installEventFilter(this);
}

bool FileDrop::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::DragEnter && event->type() != QEvent::Drop) {
        return QObject::eventFilter(watched, event);
    }
    auto* const drop = static_cast<QDropEvent*>(event);
    const QStringList files = localFiles(*drop->mimeData());
    if (files.isEmpty()) {
        drop->ignore();
        return true;
    }
    drop->acceptProposedAction();
    if (event->type() == QEvent::Drop) {
        Q_EMIT dropped(files);
    }
    return true;
}
