// SPDX-License-Identifier: MIT
#pragma once

#include "DeckEditor.h"
#include "EditorWindow.h"
#include "GoodDeck.h"

#include <ApplicationIdentity.h>
#include <Services.h>

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

inline QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

inline void write(const QString& path, const QByteArray& content)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
}

/// A deck in a home of its own, and the services of the editor.
class EditorStage
{
protected:
    void setUp()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        m_path = m_folder->filePath(QStringLiteral("model.nec"));
        qputenv("KEST_USER_HOME", m_folder->filePath(QStringLiteral("user")).toLocal8Bit());
        qputenv("KEST_HOME", EDITKEST_SUITE);
        QVERIFY(QDir().mkpath(m_folder->filePath(QStringLiteral("user"))));
        m_services = std::make_unique<Services>(
            ApplicationIdentity{QStringLiteral("editkest"), QString()}, false);
        write(m_path, goodDeck);
    }

    static void discardChanges(EditorWindow& window)
    {
        window.findChild<DeckEditor*>()->document()->setModified(false);
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<Services> m_services;
    QString m_path;
};
