// SPDX-License-Identifier: MIT
#include "QuantityChart.h"
#include "ResultView.h"
#include "ViewerStage.h"
#include "ViewerWindow.h"
#include "missingFileReason.h"

#include <BoxAnswerer.h>
#include <HelpPage.h>
#include <SmallScreen.h>
#include <SystemSkips.h>

#include <QAction>
#include <QDropEvent>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QStatusBar>
#include <QtTest>

namespace {

void dropOn(QWidget& window, const QList<QUrl>& urls)
{
    QMimeData data;
    data.setUrls(urls);
    QDragEnterEvent enter({9, 9}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window, &enter);
    if (enter.isAccepted()) {
        QDropEvent drop({9, 9}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&window, &drop);
    }
}

} // namespace

// The window as a person uses it.
class tst_viewer_window : public QObject, protected ViewerStage
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }

    void cleanup() { tearDown(); }

    void givenResultsAreListedAndDrawn()
    {
        open({path("first run.csv"), path("second.csv")});
        QCOMPARE(list()->count(), 2);
        QCOMPARE(list()->item(0)->text(), QStringLiteral("first run"));
        QCOMPARE(curveCount(), 2);
        QVERIFY(m_window->windowTitle().startsWith(QStringLiteral("second.csv (")));
        QCOMPARE(list()->item(1)->icon().pixmap(12).toImage().pixelColor(6, 6),
                 m_window->findChild<ResultView*>()->colour(1));
    }

    void windowAndItsBoxFitASmallScreen()
    {
        open({path("first run.csv"), path("second.csv")});
        ViewerWindow& window = *m_window;
        QCOMPARE(SmallScreen::excess(window), QString());
        QStringList found;
        BoxAnswerer reader([&found](QMessageBox& box) {
            found.append(SmallScreen::excess(box));
            box.reject();
        });
        window.findChild<QAction*>(QStringLiteral("aboutAction"))->trigger();
        QCOMPARE(found, QStringList(QString()));
    }

    void recentFileThatIsGoneIsGrey()
    {
        open({path("first run.csv"), path("second.csv")});
        auto* const menu = m_window->findChild<QMenu*>(QStringLiteral("recentMenu"));
        QVERIFY(menu != nullptr);
        QVERIFY(QFile::remove(path("first run.csv")));
        Q_EMIT menu->aboutToShow();
        QCOMPARE(menu->actions().size(), 2);
        QTRY_VERIFY(!menu->actions().at(1)->isEnabled());
        QVERIFY(menu->actions().at(1)->text().contains(QStringLiteral("first run.csv")));
        QVERIFY(menu->actions().at(0)->isEnabled());
        list()->setCurrentRow(1);
        QTest::keyClick(list(), Qt::Key_Delete);
        QCOMPARE(list()->count(), 1);
        menu->actions().at(0)->trigger();
        QCOMPARE(list()->count(), 2);
        QVERIFY(m_window->windowTitle().startsWith(QStringLiteral("second.csv")));
    }

    void withoutResultsItSaysHowToOpenSome()
    {
        open({});
        QCOMPARE(curveCount(), 0);
        QCOMPARE(m_window->windowTitle(), QStringLiteral("postkest"));
        QVERIFY2(readout().contains(QStringLiteral("Ctrl+O")), qPrintable(readout()));
    }

    void uncheckedResultsAreNotDrawn()
    {
        open({path("first run.csv"), path("second.csv")});
        list()->item(1)->setCheckState(Qt::Unchecked);
        QCOMPARE(curveCount(), 1);
        QVERIFY(m_window->windowTitle().startsWith(QStringLiteral("first run.csv (")));
        list()->item(1)->setCheckState(Qt::Checked);
        QCOMPARE(curveCount(), 2);
    }

    void removedResultIsGone()
    {
        open({path("first run.csv"), path("second.csv")});
        list()->setCurrentRow(0);
        QTest::keyClick(list(), Qt::Key_Delete);
        QCOMPARE(list()->count(), 1);
        QCOMPARE(curveCount(), 1);
        QCOMPARE(lastPoint(), QPointF(250, 80));
        QVERIFY(m_window->windowTitle().startsWith(QStringLiteral("second.csv (")));
        QCOMPARE(contentOf(path("first run.csv")).isEmpty(), false);
        list()->setCurrentRow(-1);
        action("removeAction")->trigger();
        QCOMPARE(list()->count(), 1);
    }

    void sameResultIsNotListedTwice()
    {
        open({path("second.csv")});
        m_window->openResults({path("second.csv"), path("./second.csv")});
        QCOMPARE(list()->count(), 1);
    }

    void unreadableResultIsListedWithTheReason_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("reason");
        QTest::newRow("header only") << header << QStringLiteral("it holds no results");
        QTest::newRow("empty") << QByteArray("") << QStringLiteral("no table of results");
        QTest::newRow("missing") << QByteArray() << missingFileReason();
    }

    void unreadableResultIsListedWithTheReason()
    {
        QFETCH(QByteArray, content);
        QFETCH(QString, reason);
        if (!content.isNull()) {
            write("bad.csv", content);
        }
        open({path("bad.csv"), path("second.csv")});
        QCOMPARE(list()->count(), 2);
        QVERIFY2(list()->item(0)->toolTip().contains(reason),
                 qPrintable(list()->item(0)->toolTip()));
        QVERIFY2(m_window->statusBar()->currentMessage().contains(reason),
                 qPrintable(m_window->statusBar()->currentMessage()));
        QCOMPARE(curveCount(), 1);
        replace("bad.csv", header + "1,1,1,1\n2,2,2,2\n");
        QTRY_COMPARE(curveCount(), 2);
        QVERIFY(!list()->item(0)->toolTip().contains(reason));
    }

    void pointerAndKeysReadValues()
    {
        open({path("first run.csv"), path("second.csv")});
        auto* const view = m_window->findChild<ResultView*>();
        view->setFocus();
        QTest::keyClick(view, Qt::Key_Right);
        QTest::keyClick(view, Qt::Key_Right);
        QVERIFY2(readout().contains(QStringLiteral("200.000 MHz")), qPrintable(readout()));
        QVERIFY(readout().contains(QStringLiteral("70.00 + j 0.00")));
        QVERIFY(readout().contains(QStringLiteral("50.00 + j 0.00")));
        auto* const chart = m_window->findChild<QuantityChart*>();
        const QPointF place = chart->chart()->mapToPosition(QPointF(300, 50)) - QPointF(1, 0);
        QMouseEvent move(QEvent::MouseMove, chart->mapFromScene(chart->chart()->mapToScene(place)),
                         Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(chart->viewport(), &move);
        QVERIFY2(readout().contains(QStringLiteral("299.")), qPrintable(readout()));
    }

    void openDialogAddsResults()
    {
        open({path("first run.csv")});
        FileChooser chooser(path("second.csv"));
        action("openAction")->trigger();
        QCOMPARE(chooser.folder, QDir(m_folder->path()).absolutePath());
        QCOMPARE(curveCount(), 2);
        FileChooser nobody{QString()};
        action("openAction")->trigger();
        QCOMPARE(list()->count(), 2);
    }

    void namesCannotTurnTheWindowsTexts()
    {
        const char* const name = "left\u202egnp.csv";
        write(name, header + "1,1,1,1\n2,2,2,2\n");
        write("bad\u202e.csv", "");
        open({path(name), path("bad\u202e.csv")});
        const QString seen = QStringLiteral("left<U+202E>gnp");
        QCOMPARE(list()->item(0)->text(), seen);
        QVERIFY(m_window->windowTitle().startsWith(seen + QStringLiteral(".csv (")));
        QVERIFY(m_window->windowTitle().endsWith(QStringLiteral(") - postkest")));
        const QString legend = m_window->findChild<QLabel*>(QStringLiteral("legend"))->text();
        m_window->findChild<ResultView*>()->setFocus();
        QTest::keyClick(m_window->findChild<ResultView*>(), Qt::Key_Right);
        m_window->findChild<QAction*>(QStringLiteral("reloadAction"))->trigger();
        Q_EMIT recentMenu()->aboutToShow();
        const QStringList texts = {
            list()->item(1)->text(),
            list()->item(0)->toolTip(),
            list()->item(1)->toolTip(),
            legend,
            readout(),
            m_window->statusBar()->currentMessage(),
            recentMenu()->actions().constFirst()->text(),
            m_window->findChild<QuantityChart*>()->chart()->series().first()->name()};
        for (const QString& text : texts) {
            QVERIFY2(!text.contains(QChar(0x202e)) && text.contains(QStringLiteral("U+202E")),
                     qPrintable(text));
        }
        QVERIFY2(legend.contains(QStringLiteral("left&lt;U+202E&gt;gnp")), qPrintable(legend));
        // What is exported is for programs.
        const FileChooser chooser(path("table.csv"));
        action("exportAction")->trigger();
        QVERIFY(contentOf(path("table.csv")).contains("\"left\u202egnp\","));
    }

    void markupInNamesIsText()
    {
        SKIP_WITHOUT_ALL_CHARACTERS_IN_NAMES();
        write("<h1>x.csv", header + "1,1,1,1\n");
        open({path("<h1>x.csv")});
        QVERIFY2(!list()->item(0)->toolTip().contains(QStringLiteral("<h1>")),
                 qPrintable(list()->item(0)->toolTip()));
    }

    void nameThatIsNoTextIsTold()
    {
        SKIP_WITHOUT_BYTES_IN_NAMES();
        open({});
        dropOn(*m_window, {QUrl::fromEncoded(QUrl::fromLocalFile(m_folder->path()).toEncoded() +
                                             "/caf%E9.csv")});
        QCOMPARE(list()->item(0)->text(), QStringLiteral("caf\\xE9"));
        QVERIFY2(m_window->statusBar()->currentMessage().contains(
                     QStringLiteral("is not UTF-8; rename it")),
                 qPrintable(m_window->statusBar()->currentMessage()));
        m_window->openResults({path("caf\ufffd.csv")});
        QVERIFY2(list()->item(1)->toolTip().contains(QStringLiteral("is not UTF-8")),
                 qPrintable(list()->item(1)->toolTip()));
    }

    void recentResultsAreOfferedAtTheNextStart()
    {
        write("bad.csv", header);
        open({path("first run.csv"), path("bad.csv")});
        m_window->close();
        open({});
        auto* const recent = recentMenu();
        Q_EMIT recent->aboutToShow();
        QCOMPARE(recent->actions().size(), 1);
        QCOMPARE(QFileInfo(recent->actions().constFirst()->text()).fileName(),
                 QStringLiteral("first run.csv"));
        recent->actions().constFirst()->trigger();
        QCOMPARE(curveCount(), 1);
    }

    void windowIsAsItWasAtTheNextStart()
    {
        open({});
        m_window->resize(655, 533);
        m_window->move(31, 47);
        m_window->close();
        open({});
        QCOMPARE(m_window->size(), QSize(655, 533));
        QCOMPARE(m_window->pos(), QPoint(31, 47));
    }

    void droppedFilesAreOpened()
    {
        open({});
        dropOn(*m_window, {QUrl::fromLocalFile(path("first run.csv")),
                           QUrl::fromLocalFile(path("second.csv"))});
        QCOMPARE(curveCount(), 2);
        QMimeData data;
        data.setText(QStringLiteral("no file"));
        QDragEnterEvent enter({9, 9}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        enter.ignore();
        QCoreApplication::sendEvent(m_window.get(), &enter);
        QVERIFY(!enter.isAccepted());
    }

    void f1ShowsItsPage_data()
    {
        QTest::addColumn<bool>("fromTheMenu");
        QTest::newRow("key") << false;
        QTest::newRow("menu") << true;
    }

    void f1ShowsItsPage()
    {
        QFETCH(bool, fromTheMenu);
        open({});
        if (fromTheMenu) {
            m_window->findChild<QAction*>(QStringLiteral("helpAction"))->trigger();
        } else {
            QTest::keyClick(m_window.get(), Qt::Key_F1);
        }
        const QString shown = shownHelpPage();
        QVERIFY2(shown.startsWith(QStringLiteral("Results in charts")), qPrintable(shown.left(80)));
        for (const char* word : {"--non-interactive", "SWR", "F5", "Ctrl+E"}) {
            QVERIFY2(shown.contains(QLatin1String(word)), word);
        }
    }

    void everythingIsReachedByTheKeyboard()
    {
        open({path("first run.csv")});
        QCOMPARE(action("openAction")->shortcut(), QKeySequence(QKeySequence::Open));
        QCOMPARE(action("exportAction")->shortcut(), QKeySequence(QStringLiteral("Ctrl+E")));
        QCOMPARE(action("reloadAction")->shortcut(), QKeySequence(QStringLiteral("F5")));
        QVERIFY(m_window->findChild<ResultView*>()->focusPolicy() & Qt::TabFocus);
        list()->setFocus();
        list()->setCurrentRow(0);
        QTest::keyClick(list(), Qt::Key_Space);
        QCOMPARE(curveCount(), 0);
        QTest::keyClick(m_window.get(), Qt::Key_Q, Qt::ControlModifier);
        QTRY_VERIFY(!m_window->isVisible());
    }

private:
    QMenu* recentMenu() const
    {
        const QList<QMenu*> menus = m_window->menuBar()->findChildren<QMenu*>();
        const auto found = std::find_if(menus.begin(), menus.end(), [](const QMenu* menu) {
            return menu->title().contains(QStringLiteral("recent"));
        });
        return found == menus.end() ? nullptr : *found;
    }

    QString readout() const
    {
        return m_window->findChild<QLabel*>(QStringLiteral("readout"))->text();
    }
};

QTEST_MAIN(tst_viewer_window)
#include "tst_viewer_window.moc"
