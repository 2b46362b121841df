#pragma once

#include <QTextDocument>

/// A text that a child process has printed, markup included. Nothing that the text names is ever
/// read: no image, no style sheet, no file, no address.
class common_KestProcessOutputDocument : public QTextDocument
{
    Q_OBJECT

public:
    explicit common_KestProcessOutputDocument(QObject* parent);

protected:
    QVariant loadResource(int type, const QUrl& name) override;
};
