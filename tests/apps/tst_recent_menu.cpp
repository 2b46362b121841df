// SPDX-License-Identifier: MIT
#include <RecentMenu.h>
#include <SettingsFolders.h>

#include <common_recent_file_settings.h>

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

// Which of the recent files can be chosen.
class tst_recent_menu : public QObject
{
    Q_OBJECT

private:
    QAction* entry(const RecentMenu& menu, int place) const { return menu.actions().value(place); }

    static QString text(const char* latin1) { return QLatin1String(latin1); }

    QString write(const char* name) const
    {
        QString path = m_folder.filePath(text(name));
        if (!SettingsFolders::write(path, "GW\n")) {
            qFatal("no file");
        }
        return path;
    }

    QTemporaryDir m_folder;
    SettingsFolders m_folders;

private Q_SLOTS:
    void filesThatAreGoneAreGreyAndSayWhy()
    {
        common_recent_file_settings settings(m_folder.filePath(text("recent.ini")));
        RecentMenu menu(nullptr, &settings);
        const QString gone = write("gone.nec");
        const QString here = write("here.nec");
        menu.addFile(gone);
        menu.addFile(here);
        QVERIFY(QFile::remove(gone));
        Q_EMIT menu.aboutToShow();
        QCOMPARE(menu.actions().size(), 2);
        QVERIFY(menu.toolTipsVisible());
        QTRY_VERIFY_WITH_TIMEOUT(!entry(menu, 1)->isEnabled(), 30000);
        QVERIFY(entry(menu, 1)->text().contains(text("gone.nec")));
        QCOMPARE(entry(menu, 1)->toolTip(),
                 text("There is no such file any more, or it cannot be read"));
        QVERIFY(entry(menu, 0)->isEnabled());
        QCOMPARE(entry(menu, 0)->toolTip(), QDir::toNativeSeparators(here));

        // The next time that is known from the beginning.
        Q_EMIT menu.aboutToShow();
        QVERIFY(!entry(menu, 1)->isEnabled());
        QVERIFY(entry(menu, 0)->isEnabled());
    }

    void fileThatComesBackCanBeChosenAgain()
    {
        common_recent_file_settings settings(m_folder.filePath(text("recent.ini")));
        RecentMenu menu(nullptr, &settings);
        const QString path = write("m.nec");
        menu.addFile(path);
        QVERIFY(QFile::remove(path));
        Q_EMIT menu.aboutToShow();
        QTRY_VERIFY_WITH_TIMEOUT(!entry(menu, 0)->isEnabled(), 30000);
        write("m.nec");
        Q_EMIT menu.aboutToShow();
        QTRY_VERIFY_WITH_TIMEOUT(entry(menu, 0)->isEnabled(), 30000);
        QSignalSpy chosen(&menu, &RecentMenu::fileChosen);
        entry(menu, 0)->trigger();
        QCOMPARE(chosen.size(), 1);
        QCOMPARE(QDir::fromNativeSeparators(chosen.constFirst().constFirst().toString()), path);
    }

    void nothingWaitsWhileFilesAreChecked()
    {
        common_recent_file_settings settings(m_folder.filePath(text("recent.ini")));
        auto menu = std::make_unique<RecentMenu>(nullptr, &settings);
        for (int i = 0; i < 9; ++i) {
            menu->addFile(write(qPrintable(QString::number(i) + text(".nec"))));
        }
        for (int i = 0; i < 50; ++i) {
            Q_EMIT menu->aboutToShow();
        }
        QCOMPARE(menu->actions().size(), settings.recentFiles().size());
        QVERIFY(menu->actions().constFirst()->isEnabled());
        menu.reset(); // while they are
    }

    void withoutFilesThereIsNothingToChoose()
    {
        common_recent_file_settings settings(m_folder.filePath(text("recent.ini")));
        RecentMenu menu(nullptr, &settings);
        Q_EMIT menu.aboutToShow();
        QCOMPARE(menu.actions().size(), 1);
        QVERIFY(!entry(menu, 0)->isEnabled());
    }
};

QTEST_MAIN(tst_recent_menu)

#include "tst_recent_menu.moc"
