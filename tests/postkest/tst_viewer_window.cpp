#include "QuantityChart.h"
#include "ResultView.h"
#include "ViewerWindow.h"

#include <ApplicationIdentity.h>
#include <BoxAnswerer.h>
#include <HelpPage.h>
#include <Services.h>

#include <QAction>
#include <QDropEvent>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QLineSeries>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QSaveFile>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QtTest>

#include <unistd.h>

namespace {

const QByteArray header = QByteArrayLiteral("frequency_MHz,resistance_ohm,reactance_ohm,swr\n");

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Types a file into the next file dialog.
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
class tst_viewer_window : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
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

    void cleanup()
    {
        m_window.reset();
        m_services.reset();
    }

    void givenResultsAreListedAndDrawn()
    {
        open({path("first run.csv"), path("second.csv")});
        QCOMPARE(list()->count(), 2);
        QCOMPARE(list()->item(0)->text(), QStringLiteral("first run"));
        QCOMPARE(curveCount(), 2);
        QCOMPARE(m_window->windowTitle(), QStringLiteral("second - postkest"));
        QCOMPARE(list()->item(1)->icon().pixmap(12).toImage().pixelColor(6, 6),
                 m_window->findChild<ResultView*>()->colour(1));
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
        QCOMPARE(m_window->windowTitle(), QStringLiteral("first run - postkest"));
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
        QCOMPARE(m_window->windowTitle(), QStringLiteral("second - postkest"));
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
        QTest::newRow("missing") << QByteArray() << QStringLiteral("No such file");
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

    void newResultsOfARunAreShown_data()
    {
        QTest::addColumn<bool>("isReplaced");
        QTest::newRow("replaced by a new file") << true;
        QTest::newRow("written over") << false;
    }

    void newResultsOfARunAreShown()
    {
        QFETCH(bool, isReplaced);
        open({path("second.csv")});
        for (int end = 400; end < 403; ++end) {
            const QByteArray table = header + "100,1,2,3\n" + QByteArray::number(end) + ",2,3,4\n";
            if (isReplaced) {
                replace("second.csv", table);
            } else {
                write("second.csv", table);
            }
            QTRY_COMPARE(lastPoint(), QPointF(end, 2));
        }
        QVERIFY(m_window->statusBar()->currentMessage().contains(QStringLiteral("second")));
    }

    // The curves are those of the last whole table, or none with the reason: never half of one.
    void fileThatIsBeingWrittenIsShownOnceItIsWhole()
    {
        open({path("second.csv")});
        QFile file(path("second.csv"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(header + "100,1,2,3\n200,5");
        QVERIFY(file.flush());
        QTRY_VERIFY(list()->item(0)->toolTip().contains(QStringLiteral("line 3 is no result")));
        QCOMPARE(curveCount(), 0);
        file.write("5,6,7\n");
        file.close();
        QTRY_COMPARE(lastPoint(), QPointF(200, 55));
        QVERIFY(!list()->item(0)->toolTip().contains(QStringLiteral("line 3")));
    }

    void deletedResultComesBackWithTheNextRun()
    {
        open({path("first run.csv"), path("second.csv")});
        QVERIFY(QFile::remove(path("second.csv")));
        QTRY_VERIFY(list()->item(1)->toolTip().contains(QStringLiteral("No such file")));
        QCOMPARE(curveCount(), 1);
        write("second.csv", header + "100,1,2,3\n500,5,6,7\n");
        QTRY_COMPARE(curveCount(), 2);
    }

    void reloadReadsAllAnew()
    {
        open({path("first run.csv"), path("second.csv")});
        replace("second.csv", header + "100,1,2,3\n777,2,3,4\n");
        QTest::keyClick(m_window.get(), Qt::Key_F5);
        QCOMPARE(lastPoint(), QPointF(777, 2));
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

    void exportWritesWhatIsDrawn()
    {
        open({path("first run.csv"), path("second.csv")});
        list()->item(0)->setCheckState(Qt::Unchecked);
        const FileChooser chooser(path("table.csv"));
        action("exportAction")->trigger();
        QCOMPARE(chooser.folder, QDir(m_folder->path()).absolutePath());
        const QByteArray table = contentOf(path("table.csv"));
        QVERIFY(table.contains("\"second\",250"));
        QVERIFY(!table.contains("first"));
        QVERIFY(m_window->statusBar()->currentMessage().contains(QStringLiteral("table.csv")));
        const FileChooser picture(path("charts.png"));
        action("exportAction")->trigger();
        QVERIFY(QImage(path("charts.png")).width() > 300);
    }

    void exportThatFailsIsTold()
    {
        open({path("second.csv")});
        const QByteArray before = contentOf(path("second.csv"));
        BoxAnswerer box(BoxAnswerer::clicking(QStringLiteral("OK")));
        const FileChooser format(path("table.pdf"));
        action("exportAction")->trigger();
        QVERIFY2(box.texts.join(QLatin1Char('|')).contains(QStringLiteral("neither .png")),
                 qPrintable(box.texts.join(QLatin1Char('|'))));
        QCOMPARE(contentOf(path("second.csv")), before);
        QVERIFY(!QFile::exists(path("table.pdf")));
    }

    void exportNeverReplacesAResult_data()
    {
        QTest::addColumn<QString>("target");
        QTest::newRow("ticked") << QStringLiteral("second.csv");
        QTest::newRow("not ticked") << QStringLiteral("first run.csv");
        QTest::newRow("other spelling") << QStringLiteral("./inner/../first run.csv");
        QTest::newRow("link") << QStringLiteral("link.csv");
        QTest::newRow("hard link") << QStringLiteral("hard.csv");
        QTest::newRow("folder's link") << QStringLiteral("inner/up/first run.csv");
        QTest::newRow("not readable as a result") << QStringLiteral("bad.csv");
        QTest::newRow("not there now") << QStringLiteral("gone.csv");
        QTest::newRow("not opened") << QStringLiteral("third.csv");
    }

    void exportNeverReplacesAResult()
    {
        QFETCH(QString, target);
        write("bad.csv", "frequency_MHz\nnothing");
        write("third.csv", header + "1,1,1,1\n");
        write("gone.csv", header + "1,1,1,1\n");
        QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("inner")));
        QVERIFY(QFile::link(path("first run.csv"), path("link.csv")));
        QVERIFY(QFile::link(m_folder->path(), path("inner/up")));
        QCOMPARE(::link(path("first run.csv").toLocal8Bit().constData(),
                        path("hard.csv").toLocal8Bit().constData()),
                 0);
        open({path("first run.csv"), path("second.csv"), path("bad.csv"), path("gone.csv")});
        list()->item(0)->setCheckState(Qt::Unchecked);
        QVERIFY(QFile::remove(path("gone.csv")));
        const QString file = m_folder->filePath(target);
        const QByteArray before = contentOf(file);
        BoxAnswerer box([](QMessageBox& question) {
            // The dialog's own question, whether to replace the file, comes first.
            QAbstractButton* const yes = question.button(QMessageBox::Yes);
            (yes != nullptr ? yes : question.button(QMessageBox::Ok))->click();
        });
        const FileChooser chooser(file);
        action("exportAction")->trigger();
        QCOMPARE(contentOf(file), before);
        QVERIFY2(box.texts.join(QLatin1Char('|')).contains(QStringLiteral("is not overwritten")),
                 qPrintable(box.texts.join(QLatin1Char('|'))));
        QCOMPARE(QFileInfo(path("link.csv")).isSymLink(), true);
    }

    void namesCannotTurnTheWindowsTexts()
    {
        const char* const name = "left\u202egnp.csv";
        write(name, header + "1,1,1,1\n2,2,2,2\n");
        write("bad\u202e.csv", "");
        open({path(name), path("bad\u202e.csv")});
        const QString seen = QStringLiteral("left<U+202E>gnp");
        QCOMPARE(list()->item(0)->text(), seen);
        QCOMPARE(m_window->windowTitle(), seen + QStringLiteral(" - postkest"));
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
        write("<h1>x.csv", header + "1,1,1,1\n");
        open({path("<h1>x.csv")});
        QVERIFY2(!list()->item(0)->toolTip().contains(QStringLiteral("<h1>")),
                 qPrintable(list()->item(0)->toolTip()));
    }

    void nameThatIsNoTextIsTold()
    {
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

    QMenu* recentMenu() const
    {
        const QList<QMenu*> menus = m_window->menuBar()->findChildren<QMenu*>();
        const auto found = std::find_if(menus.begin(), menus.end(), [](const QMenu* menu) {
            return menu->title().contains(QStringLiteral("recent"));
        });
        return found == menus.end() ? nullptr : *found;
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
        return curves.isEmpty()
                   ? QPointF()
                   : qobject_cast<QtCharts::QLineSeries*>(curves.last())->pointsVector().last();
    }

    QString readout() const
    {
        return m_window->findChild<QLabel*>(QStringLiteral("readout"))->text();
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<Services> m_services;
    std::unique_ptr<ViewerWindow> m_window;
};

QTEST_MAIN(tst_viewer_window)
#include "tst_viewer_window.moc"
