// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QTimer>

/// Types a file into the next file dialog and accepts it; rejects it when the file has no name.
class FileChooser
{
public:
    explicit FileChooser(const QString& path)
    {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this, path] {
            auto* const dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            if (dialog != nullptr) {
                m_timer.stop();
                folder = dialog->directory().absolutePath();
                dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(path);
                QMetaObject::invokeMethod(dialog, path.isEmpty() ? "reject" : "accept");
            }
        });
        m_timer.start(5);
    }

    QString folder; ///< that the dialog began in

private:
    QTimer m_timer;
};
