// SPDX-License-Identifier: MIT
#pragma once

#include <QTextDocument>

/// Text that a child process has printed, which may contain markup. No resource that it names is
/// read: no image, no style sheet, no file, no address.
class common_KestProcessOutputDocument : public QTextDocument
{
    Q_OBJECT

public:
    explicit common_KestProcessOutputDocument(QObject* parent);

protected:
    QVariant loadResource(int type, const QUrl& name) override;
};
