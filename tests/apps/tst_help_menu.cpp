// SPDX-License-Identifier: MIT
#include <ApplicationIdentity.h>
#include <BoxAnswerer.h>
#include <HelpMenu.h>
#include <HelpPage.h>
#include <Services.h>
#include <Text.h>

#include <common_HelpClient.h>
#include <common_ServiceOf.h>

#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

class tst_help_menu : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        QVERIFY(QDir(m_installation.path()).mkpath(text("help")));
        QFile page(m_installation.filePath(text("help/viewer.md")));
        QVERIFY(page.open(QIODevice::WriteOnly));
        QVERIFY(page.write("# How to view\n") > 0);
        qputenv("KEST_HOME", m_installation.path().toUtf8());
        QCoreApplication::setApplicationVersion(text("7.8.9"));
        m_services =
            std::make_unique<Services>(ApplicationIdentity{text("viewer"), QString()}, false);
        m_window = std::make_unique<QMainWindow>();
        m_window->menuBar()->addMenu(text("&File"));
        GET_SERVICE(common_HelpClient)->registerPage(m_window.get(), text("viewer"));
        HelpMenu::addTo(*m_window, text("Views what there is to see."));
        m_window->show();
    }

    void cleanup()
    {
        m_window.reset();
        m_services.reset();
    }

    void standsLast()
    {
        const QList<QAction*> menus = m_window->menuBar()->actions();
        QCOMPARE(menus.size(), 2);
        QCOMPARE(menus.last()->text(), text("&Help"));
        QStringList entries;
        const QList<QAction*> actions = menus.last()->menu()->actions();
        for (const QAction* const action : actions) {
            entries += action->text();
        }
        QCOMPARE(entries, (QStringList{text("&Help on viewer\tF1"), text("&About viewer")}));
    }

    void showsTheWindowsPage()
    {
        QCOMPARE(shownHelpPage(), QString());
        m_window->findChild<QAction*>(text("helpAction"))->trigger();
        QCOMPARE(shownHelpPage(), text("How to view"));
    }

    void saysWhatTheApplicationIs()
    {
        const BoxAnswerer boxes;
        m_window->findChild<QAction*>(text("aboutAction"))->trigger();
        QCOMPARE(boxes.texts.size(), 1);
        const QString beginning =
            text("viewer 7.8.9\nViews what there is to see.\nInstallation: ") +
            QDir::toNativeSeparators(m_installation.path()) + text("\n\nEngine: ");
        QVERIFY2(boxes.texts.constFirst().startsWith(beginning),
                 qPrintable(boxes.texts.constFirst()));
        QVERIFY(boxes.texts.constFirst().contains(text("\nQt ") + text(qVersion())));
    }

private:
    QTemporaryDir m_installation;
    std::unique_ptr<Services> m_services;
    std::unique_ptr<QMainWindow> m_window;
};

QTEST_MAIN(tst_help_menu)
#include "tst_help_menu.moc"
