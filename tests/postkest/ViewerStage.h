// SPDX-License-Identifier: MIT
#pragma once

#include "QuantityChart.h"
#include "ViewerWindow.h"

#include <ApplicationIdentity.h>
#include <FileChooser.h>
#include <Services.h>

#include <QAction>
#include <QLineSeries>
#include <QListWidget>
#include <QSaveFile>
#include <QTemporaryDir>
#include <QtTest>

inline const QByteArray header =
    QByteArrayLiteral("frequency_MHz,resistance_ohm,reactance_ohm,swr\n");

inline QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The window of results, with results in a home of its own.
class ViewerStage
{
protected:
    void setUp()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        qputenv("KEST_USER_HOME", path("user").toLocal8Bit());
        qputenv("KEST_HOME", POSTKEST_SUITE);
        QVERIFY(QDir().mkpath(path("user")));
        m_services = std::make_unique<Services>(
            ApplicationIdentity{QStringLiteral("postkest"), QString()}, false);
        write("first run.csv", header + "100,10,-50,5\n200,70,0,1.4\n300,90,60,2\n");
        write("second.csv", header + "150,20,-20,8\n250,80,20,1.5\n");
    }

    void tearDown()
    {
        m_window.reset();
        m_services.reset();
    }

    QString path(const char* name) const { return m_folder->filePath(QString::fromUtf8(name)); }

    void write(const char* name, const QByteArray& content)
    {
        QFile file(path(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(content), content.size());
    }

    void replace(const char* name, const QByteArray& content)
    {
        QSaveFile file(path(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(content);
        QVERIFY(file.commit());
    }

    void open(const QStringList& paths)
    {
        m_window = std::make_unique<ViewerWindow>(paths);
        m_window->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
        QApplication::setActiveWindow(m_window.get());
    }

    QListWidget* list() const
    {
        return m_window->findChild<QListWidget*>(QStringLiteral("resultList"));
    }

    QAction* action(const char* name) const
    {
        return m_window->findChild<QAction*>(QLatin1String(name));
    }

    int curveCount() const
    {
        return m_window->findChild<QuantityChart*>()->chart()->series().size();
    }

    // Of the last curve of resistance.
    QPointF lastPoint() const
    {
        const auto curves =
            m_window->findChild<QuantityChart*>(QStringLiteral("chart0"))->chart()->series();
        return curves.isEmpty() ? QPointF()
                                : qobject_cast<QLineSeries*>(curves.last())->points().last();
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<Services> m_services;
    std::unique_ptr<ViewerWindow> m_window;
};
