// SPDX-License-Identifier: MIT
#include "common_KestProcessOutputDocument.h"

#include "common_KestProcessOutputLayout.h"

#include <QUrl>
#include <QVariant>

// The text is read-only. Its undo history would take as much memory again.
common_KestProcessOutputDocument::common_KestProcessOutputDocument(QObject* parent)
    : QTextDocument(parent)
{
    setUndoRedoEnabled(false);
    setDocumentLayout(new common_KestProcessOutputLayout(this));
}

QVariant common_KestProcessOutputDocument::loadResource(int /*type*/, const QUrl& /*name*/)
{
    return QVariant();
}
