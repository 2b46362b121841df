// SPDX-License-Identifier: MIT
#include <FakeServices.h>
#include <SmallScreen.h>
#include <Text.h>

#include <FileName.h>
#include <MainWindow.h>
#include <RecentMenu.h>

#include <common_recent_file_settings.h>

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QSaveFile>
#include <QSignalSpy>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QtTest>

namespace {

QByteArray deck(int wires)
{
    QByteArray result = "CE\n";
    for (int i = 1; i <= wires; ++i) {
        const QByteArray number = QByteArray::number(i);
        result += "GW " + number + " 5 0 0 " + number + " 1 0 " + number + " 0.0001\n";
    }
    return result + "GE 0\nFR 0 1 0 0 30 0\nEX 0 1 3 0 1 0\nXQ\nEN\n";
}

} // namespace

class tst_model_window : public QObject
{
    Q_OBJECT

private:
    QString write(const QByteArray& bytes, const char* name = "model.nec")
    {
        QFile file(m_folder->filePath(text(name)));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
            qFatal("no model");
        }
        return file.fileName();
    }

    static QString firstLines(const MainWindow& window)
    {
        return window.view()->overlay().lines.join(QLatin1Char('|'));
    }

    static QLabel& label(const MainWindow& window, const char* name)
    {
        return *window.findChild<QLabel*>(text(name));
    }

    static void open(MainWindow& window, const QString& path)
    {
        window.openModel(path);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
    }

    std::unique_ptr<QTemporaryDir> m_folder;

private Q_SLOTS:
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }

    void windowFitsASmallScreen()
    {
        MainWindow window;
        QCOMPARE(SmallScreen::excess(window), QString());
        open(window, write(deck(2)));
        QCOMPARE(SmallScreen::excess(window), QString());
    }

    void namesCannotTurnTheWindowsTexts()
    {
        MainWindow window;
        const QString path = write(deck(2), "left\u202egnp.nec");
        open(window, path);
        const QString seen = text("left<U+202E>gnp.nec");
        QVERIFY2(firstLines(window).startsWith(seen), qPrintable(firstLines(window)));
        QVERIFY(window.windowTitle().startsWith(seen + text(" (")));
        QVERIFY(window.windowTitle().endsWith(text(") - cadkest")));
        QCOMPARE(window.modelPath(), path);
        window.openModel(m_folder->filePath(text("none\u202e.nec")));
        const QString told = label(window, "modelMessage").text();
        QVERIFY2(told.contains(text("none<U+202E>.nec")) && !told.contains(QChar(0x202e)),
                 qPrintable(told));
    }

    void nameThatIsNoTextIsTold()
    {
        MainWindow window;
        for (const QString& name :
             {suite::FileName::fromNative("caf\xe9.nec"), text("caf\ufffd.nec")}) {
            window.openModel(m_folder->filePath(name));
            const QString told = label(window, "modelMessage").text();
            QVERIFY2(told.contains(text("is not UTF-8; rename it")), qPrintable(told));
        }
    }

    void showsAModel()
    {
        MainWindow window;
        const QSignalSpy opened(&window, &MainWindow::modelOpened);
        const QString path = write(deck(2));
        open(window, path);
        QCOMPARE(firstLines(window), text("model.nec|2 wires, 10 segments"));
        QCOMPARE(window.modelPath(), path);
        QCOMPARE(opened.size(), 1);
        QCOMPARE(opened.first().first().toString(), path);
        QVERIFY(window.windowTitle().contains(text("model.nec")));
        QVERIFY(label(window, "modelMessage").isHidden());
        QVERIFY(label(window, "renderingMessage").isHidden());
        QCOMPARE(label(window, "renderingName").text(), text("Software rendering"));
    }

    void showsWhatCouldBeRead()
    {
        MainWindow window;
        open(window, write("CE\nGW 1 5 0 0 0 1 0 0 0.01\nGW 2 5 <b>\nGE 0\nEN\n"));
        QCOMPARE(firstLines(window), text("model.nec|1 wire, 5 segments"));
        const QLabel& message = label(window, "modelMessage");
        QVERIFY(message.isVisible());
        QVERIFY(message.text().startsWith(text("model.nec has mistakes")));
        QVERIFY(message.text().contains(text(" (line 3")));
        QCOMPARE(message.textFormat(), Qt::PlainText);
    }

    void tellsWhatIsNotShown()
    {
        MainWindow window;
        open(window, write("CE\nGW 1 9 0 0 0 1 0 0 0.001\nSP 0 0 0.1 .05 .05 0 0 0.01\n"
                           "GW 2 5000 0 0 1 1 0 1 0.00001\nGW 3 5 0 0 2 1 0 2 0.001\nGE 0\nEN\n"));
        QCOMPARE(firstLines(window), text("model.nec|1 wire, 9 segments|"
                                          "1 card of surface patches is not shown|"
                                          "not complete: there are more segments"));
        QVERIFY(label(window, "modelMessage").isVisible());
        QVERIFY(label(window, "modelMessage").text().contains(text("more than 5000 segments")));
        window.openModel(write(deck(2)));
        QCOMPARE(firstLines(window), text("model.nec|2 wires, 10 segments"));
    }

    void opensRecentModelsAgain()
    {
        FakeApplicationInfo info(m_folder->path());
        MainWindow window;
        common_recent_file_settings recent(m_folder->filePath(text("recent.ini")));
        auto* const menu = new RecentMenu(&window, &recent);
        window.addRecentMenu(menu);
        Q_EMIT menu->aboutToShow();
        QCOMPARE(menu->actions().size(), 1);
        QVERIFY(!menu->actions().constFirst()->isEnabled());
        const QString first = write(deck(2), "a & b.nec");
        const QString second = write(deck(3), "second.nec");
        open(window, first);
        window.openModel(second);
        window.openModel(m_folder->filePath(text("none.nec")));
        Q_EMIT menu->aboutToShow();
        QCOMPARE(menu->actions().size(), 2);
        QVERIFY(menu->actions().at(0)->text().startsWith(text("&1 ")));
        QVERIFY(menu->actions().at(0)->text().endsWith(text("second.nec")));
        QVERIFY(menu->actions().at(1)->text().endsWith(text("a && b.nec")));
        menu->actions().at(1)->trigger();
        QCOMPARE(window.modelPath(), first);
        Q_EMIT menu->aboutToShow();
        QVERIFY(menu->actions().at(0)->text().endsWith(text("a && b.nec")));
        const auto entries = menu->menuAction()->associatedWidgets();
        QCOMPARE(entries.size(), 1);
        const QList<QAction*> fileMenu = entries.first()->actions();
        QCOMPARE(fileMenu.indexOf(menu->menuAction()), 1);
    }

    void showsSomeOfManyMistakes()
    {
        MainWindow window;
        open(window, write("CE\nGW 1 5 0 0 0 1 0 0 0.01\n" + QByteArray("QX\n").repeated(50) +
                           "GE 0\nEN\n"));
        const QString message = label(window, "modelMessage").text();
        QCOMPARE(message.count(QLatin1Char('\n')), 6);
        QVERIFY(message.contains(QRegularExpression(text("and \\d+ more$"))));
    }

    void keepsTheModelWhenAnotherCannotBeRead()
    {
        MainWindow window;
        const QString path = write(deck(2));
        open(window, path);
        window.openModel(m_folder->filePath(text("none.nec")));
        QCOMPARE(window.modelPath(), path);
        QCOMPARE(firstLines(window), text("model.nec|2 wires, 10 segments"));
        QVERIFY(label(window, "modelMessage").text().contains(text("none.nec cannot be shown")));
        window.openModel(m_folder->path());
        QVERIFY(label(window, "modelMessage").text().contains(text("cannot be shown")));
        window.openModel(path);
        QVERIFY(label(window, "modelMessage").isHidden());
    }

    void followsTheFile_data()
    {
        QTest::addColumn<bool>("isReplaced");
        QTest::newRow("written") << false;
        QTest::newRow("replaced") << true;
    }

    void followsTheFile()
    {
        QFETCH(bool, isReplaced);
        MainWindow window;
        const QString path = write(deck(2));
        open(window, path);
        QTest::keyClick(window.view(), Qt::Key_Plus);
        const double height = window.view()->camera().height();
        for (int wires = 3; wires < 6; ++wires) {
            if (isReplaced) {
                QSaveFile file(path);
                QVERIFY(file.open(QIODevice::WriteOnly));
                file.write(deck(wires));
                QVERIFY(file.commit());
            } else {
                write(deck(wires));
            }
            QTRY_VERIFY_WITH_TIMEOUT(firstLines(window).contains(text("%1 wires").arg(wires)),
                                     30000);
        }
        QCOMPARE(window.view()->camera().height(), height);
    }

    void followsAFileThatGoesAndComes()
    {
        MainWindow window;
        const QString path = write(deck(2));
        open(window, path);
        QVERIFY(QFile::remove(path));
        QTRY_VERIFY_WITH_TIMEOUT(label(window, "modelMessage").isVisible(), 30000);
        QCOMPARE(firstLines(window), text("model.nec|2 wires, 10 segments"));
        write(deck(4));
        QTRY_VERIFY_WITH_TIMEOUT(firstLines(window).contains(text("4 wires")), 30000);
        QVERIFY(label(window, "modelMessage").isHidden());
    }

    void waitsForAModelThatIsNotThereYet()
    {
        MainWindow window;
        open(window, m_folder->filePath(text("model.nec")));
        QVERIFY(label(window, "modelMessage").isVisible());
        write(deck(3));
        QTRY_VERIFY_WITH_TIMEOUT(firstLines(window).contains(text("3 wires")), 30000);
    }

    void theOldFileIsNotFollowedAnyMore()
    {
        MainWindow window;
        open(window, write(deck(2), "old.nec"));
        const QString path = write(deck(3), "new.nec");
        window.openModel(path);
        write(deck(7), "old.nec");
        write(deck(5), "new.nec");
        QTRY_VERIFY_WITH_TIMEOUT(firstLines(window).contains(text("5 wires")), 30000);
        QVERIFY(firstLines(window).startsWith(text("new.nec")));
    }

    void actionsDoWhatTheySay()
    {
        MainWindow window;
        const QString path = write(deck(2));
        open(window, path);
        const auto trigger = [&](const char* name) {
            window.findChild<QAction*>(text(name))->trigger();
        };
        const auto seen = [&](const QVector3D& axis) {
            return window.view()->camera().orientation().rotatedVector(axis).z();
        };
        trigger("actionAbove");
        QVERIFY(seen({0, 0, 1}) > 0.99F);
        trigger("actionAlongX");
        QVERIFY(seen({1, 0, 0}) > 0.99F);
        trigger("actionAlongY");
        QVERIFY(seen({0, -1, 0}) > 0.99F);
        trigger("actionCorner");
        QVERIFY(seen({0, 0, 1}) < 0.9F);
        QTest::keyClick(window.view(), Qt::Key_Plus);
        const double height = window.view()->camera().height();
        trigger("actionFit");
        QVERIFY(window.view()->camera().height() > height);
        const QImage readable = window.view()->picture();
        trigger("actionTrueRadii");
        QVERIFY(window.view()->picture() != readable);
        trigger("actionReload");
        QCOMPARE(window.findChild<QAction*>(text("actionReload"))->shortcut(),
                 QKeySequence(Qt::Key_F5));
        QCOMPARE(firstLines(window), text("model.nec|2 wires, 10 segments"));
    }

    void tellsWhereHardwareIsNotToBeHad()
    {
        MainWindow window;
        open(window, write(deck(2)));
        QVERIFY(!window.setRendering(Rendering::Hardware));
        QCOMPARE(window.view()->rendering(), Rendering::Software);
        const QLabel& message = label(window, "renderingMessage");
        QVERIFY(message.isVisible());
        QVERIFY(message.text().startsWith(text("Hardware rendering is not available: ")));
        QVERIFY(message.text().endsWith(text("Software rendering is used.")));
        QCOMPARE(label(window, "renderingName").text(), text("Software rendering"));
        QVERIFY(window.setRendering(Rendering::Software));
        QVERIFY(message.isHidden());
    }
};

QTEST_MAIN(tst_model_window)
#include "tst_model_window.moc"
