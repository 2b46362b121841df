// SPDX-License-Identifier: MIT
#include "OutputViews.h"

#include <QAction>
#include <QMenu>
#include <QScreen>
#include <QScrollBar>
#include <QTimer>
#include <QtTest>

#include <functional>
#include <utility>

namespace {

/// Does something with the next menu that opens.
class MenuUser
{
public:
    explicit MenuUser(std::function<void(QMenu&)> deed) : m_deed(std::move(deed))
    {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] {
            auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            if (menu) {
                m_timer.stop();
                m_deed(*menu);
            }
        });
        m_timer.start(1);
    }

private:
    std::function<void(QMenu&)> m_deed;
    QTimer m_timer;
};

// Opens the context menu of the output and triggers the entry.
QStringList useContextMenu(const QTextEdit* view, const QString& entry)
{
    QStringList texts;
    const MenuUser user([&](QMenu& menu) {
        const QList<QAction*> actions = menu.actions();
        for (QAction* const action : actions) {
            texts.append(action->isSeparator() ? QStringLiteral("-") : action->text());
            if (action->text() == entry) {
                action->trigger();
            }
        }
        menu.close();
    });
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5),
                            view->viewport()->mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(view->viewport(), &event);
    return texts;
}

} // namespace

class tst_common_KestProcessOutputTabWidget_find : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void showsEachMatchAmongLinesThatWrap();
    void findsAmongLinesThatWrap();
    void goesToTheLastErrorByKey();
    void goesToTheFirstErrorByKey();
    void findsTheSelectedMessage_data();
    void findsTheSelectedMessage();
    void findsInTheMiddleOfATurn();
    void findsWholeWordsOnly();
    void findsNextFromTheMenu();
    void showsWhatIsFoundAmongLinesThatWrap();
    void findsNothingWithNothingSelected();
    void opensTheMenuWhereItWasAskedFor();
    void isDestroyedWhileTheMenuIsOpen();
};

void tst_common_KestProcessOutputTabWidget_find::showsEachMatchAmongLinesThatWrap()
{
    const TabStage stage;
    for (int number = 0; number < 40; ++number) {
        stage.printWrappingLines(number % 23);
        stage.runner->output(QStringLiteral("needle"));
    }
    QCoreApplication::processEvents();
    QTextCursor cursor = stage.output()->document()->find(QStringLiteral("needle"));
    stage.output()->setTextCursor(cursor);
    int matches = 1;
    while (QMetaObject::invokeMethod(stage.tabs(), "findNext") &&
           stage.output()->textCursor().hasSelection()) {
        QVERIFY(stage.output()->viewport()->rect().contains(stage.output()->cursorRect()));
        stage.output()->viewport()->repaint();
        QVERIFY(stage.output()->viewport()->rect().contains(stage.output()->cursorRect()));
        ++matches;
    }
    QCOMPARE(matches, 40);
}

void tst_common_KestProcessOutputTabWidget_find::findsAmongLinesThatWrap()
{
    const TabStage stage;
    stage.printWrappingLines(1500);
    stage.runner->notice(QStringLiteral("NOTE 1: needle"));
    stage.printWrappingLines(1500);
    Q_EMIT stage.notices()->cellDoubleClicked(0, 2);
    QCOMPARE(stage.output()->textCursor().selectedText(), QStringLiteral("needle"));
    const auto isInView = [&stage] {
        return stage.output()->viewport()->rect().contains(stage.output()->cursorRect());
    };
    QVERIFY(isInView());
    QCoreApplication::processEvents();
    QVERIFY(isInView());
    stage.printWrappingLines(10);
    QVERIFY(isInView());
}

void tst_common_KestProcessOutputTabWidget_find::goesToTheLastErrorByKey()
{
    const TabStage stage;
    const QScrollBar* const bar = stage.errors()->verticalScrollBar();
    const auto printErrors = [&stage] {
        for (int number = 0; number < 200; ++number) {
            stage.runner->error(QStringLiteral("error %1").arg(number));
        }
    };
    printErrors();
    QCoreApplication::processEvents();
    QTest::keyClick(stage.errors(), Qt::Key_Home);
    QCOMPARE(bar->value(), 0);
    printErrors();
    QTest::keyClick(stage.errors(), Qt::Key_End);
    QCoreApplication::processEvents();
    QVERIFY(bar->maximum() > 0);
    QCOMPARE(bar->value(), bar->maximum());
}

void tst_common_KestProcessOutputTabWidget_find::goesToTheFirstErrorByKey()
{
    const TabStage stage;
    const QScrollBar* const bar = stage.errors()->verticalScrollBar();
    for (int number = 0; number < 200; ++number) {
        stage.runner->error(QStringLiteral("error %1").arg(number));
    }
    QCoreApplication::processEvents();
    QCOMPARE(bar->value(), bar->maximum());
    stage.runner->error(QStringLiteral("the last one"));
    QTest::keyClick(stage.errors(), Qt::Key_Home);
    QCoreApplication::processEvents();
    QCOMPARE(bar->value(), 0);
}

void tst_common_KestProcessOutputTabWidget_find::findsTheSelectedMessage_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("block");

    QTest::newRow("notice") << 1 << QStringLiteral("the searched notice") << 300;
    QTest::newRow("warning") << 2 << QStringLiteral("the searched warning") << 301;
}

void tst_common_KestProcessOutputTabWidget_find::findsTheSelectedMessage()
{
    QFETCH(int, tab);
    QFETCH(int, block);
    const TabStage stage;
    stage.printLines(300);
    stage.runner->notice(QStringLiteral("NOTE 1: the  searched notice"));
    stage.runner->warning(QStringLiteral("WARNING 1: the  searched warning"));
    stage.printLines(300);
    stage.runner->output(QStringLiteral("the searched notice, the searched warning"));
    auto* const table = qobject_cast<QTableWidget*>(stage.tabs()->widget(tab));
    stage.tabs()->setCurrentIndex(tab);
    Q_EMIT table->cellDoubleClicked(0, 1);
    QCOMPARE(stage.tabs()->currentIndex(), 0);
    const QTextCursor cursor = stage.output()->textCursor();
    QTEST(cursor.selectedText(), "text");
    QCOMPARE(cursor.blockNumber(), block);
    QVERIFY(stage.output()->viewport()->rect().contains(stage.output()->cursorRect().center()));
    const int value = stage.scrollBar()->value();
    stage.printLines(300);
    QCOMPARE(stage.scrollBar()->value(), value);
}

void tst_common_KestProcessOutputTabWidget_find::findsInTheMiddleOfATurn()
{
    const TabStage stage;
    for (int number = 0; number < 500; ++number) {
        stage.runner->warning(QStringLiteral("WARNING 1: text %1 end").arg(number));
    }
    Q_EMIT stage.warnings()->cellDoubleClicked(400, 2);
    QCOMPARE(stage.output()->textCursor().selectedText(), QStringLiteral("text 400 end"));
    QVERIFY(stage.output()->viewport()->rect().contains(stage.output()->cursorRect().center()));
    const int value = stage.scrollBar()->value();
    QVERIFY(value > 0);

    for (int number = 0; number < 100; ++number) {
        stage.runner->output(QStringLiteral("line"));
    }
    stage.runner->output(QStringLiteral("text 400 end"));
    QVERIFY(QMetaObject::invokeMethod(stage.tabs(), "findNext"));
    QCOMPARE(stage.output()->textCursor().blockNumber(), 600);
    QVERIFY(stage.scrollBar()->value() > value);
}

void tst_common_KestProcessOutputTabWidget_find::findsWholeWordsOnly()
{
    const TabStage stage;
    stage.runner->output(QStringLiteral("begin"));
    stage.runner->warning(QStringLiteral("WARNING 1:bc")); // "1:bc", and nothing in between
    stage.runner->warning(QStringLiteral("WARNING 2x: a"));
    stage.output()->clear();
    stage.runner->output(QStringLiteral("abcd abc bcd"));
    stage.moveCursorTo(4);
    Q_EMIT stage.warnings()->cellDoubleClicked(0, 0);
    QVERIFY(!stage.output()->textCursor().hasSelection());
    QCOMPARE(stage.output()->textCursor().position(), 0);
    stage.runner->output(QStringLiteral("here: BC"));
    Q_EMIT stage.warnings()->cellDoubleClicked(0, 0);
    QCOMPARE(stage.output()->textCursor().selectedText(), QStringLiteral("BC"));
}

void tst_common_KestProcessOutputTabWidget_find::findsNextFromTheMenu()
{
    const TabStage stage;
    stage.runner->output(QStringLiteral("abc x abc\nxABCx"));
    QTextCursor cursor = stage.output()->textCursor();
    cursor.setPosition(0);
    cursor.setPosition(3, QTextCursor::KeepAnchor);
    stage.output()->setTextCursor(cursor);
    const QString entry = QStringLiteral("Find next");
    const QStringList texts = useContextMenu(stage.output(), entry);
    QVERIFY2(texts.size() > 3, qPrintable(texts.join(QLatin1Char('|'))));
    QCOMPARE(texts.mid(texts.size() - 2), QStringList() << QStringLiteral("-") << entry);
    QCOMPARE(stage.output()->textCursor().selectionStart(), 6);
    useContextMenu(stage.output(), entry);
    QCOMPARE(stage.output()->textCursor().selectionStart(), 11);
    QCOMPARE(stage.output()->textCursor().selectedText(), QStringLiteral("ABC"));
    useContextMenu(stage.output(), entry);
    QCOMPARE(stage.output()->textCursor().position(), 0);
    QVERIFY(!stage.output()->textCursor().hasSelection());
}

// How high lines are that nobody has seen is guessed, and known only when they come into view.
void tst_common_KestProcessOutputTabWidget_find::showsWhatIsFoundAmongLinesThatWrap()
{
    const TabStage stage;
    const auto isInView = [&stage] {
        return stage.output()->viewport()->rect().contains(stage.output()->cursorRect());
    };
    for (int part = 0; part < 20; ++part) {
        stage.printWrappingLines(100);
        stage.runner->warning(QStringLiteral("WARNING 1: needle %1").arg(part));
    }
    QCoreApplication::processEvents();
    for (const int row : {10, 1, 19, 0, 7}) {
        Q_EMIT stage.warnings()->cellDoubleClicked(row, 1);
        QCOMPARE(stage.output()->textCursor().block().text(),
                 QStringLiteral("WARNING 1: needle %1").arg(row));
        QVERIFY(isInView());
    }
    QTextCursor cursor = stage.output()->document()->find(QStringLiteral("needle"));
    stage.output()->setTextCursor(cursor);
    for (int part = 1; part < 20; ++part) {
        useContextMenu(stage.output(), QStringLiteral("Find next"));
        QCOMPARE(stage.output()->textCursor().block().text(),
                 QStringLiteral("WARNING 1: needle %1").arg(part));
        QVERIFY(isInView());
    }
}

void tst_common_KestProcessOutputTabWidget_find::findsNothingWithNothingSelected()
{
    const TabStage stage;
    stage.printLines(10);
    QVERIFY(stage.output()->textCursor().atEnd());
    useContextMenu(stage.output(), QStringLiteral("Find next"));
    QCOMPARE(stage.output()->textCursor().position(), 0);
}

// A menu that does not fit there is moved into the screen.
void tst_common_KestProcessOutputTabWidget_find::opensTheMenuWhereItWasAskedFor()
{
    const TabStage stage;
    stage.dialog->move(60, 40);
    const QPoint inView(7, 9);
    QRect place;
    const MenuUser user([&place](QMenu& menu) {
        place = menu.geometry();
        menu.close();
    });
    Q_EMIT stage.output()->customContextMenuRequested(inView);
    const QPoint asked = stage.output()->viewport()->mapToGlobal(inView);
    QVERIFY(!place.isEmpty());
    if (QGuiApplication::primaryScreen()->availableGeometry().contains(
            QRect(asked, place.size()))) {
        // At a scale below 1 not every point is one of the screen's.
        QVERIFY((place.topLeft() - asked).manhattanLength() <= 2);
    }
}

void tst_common_KestProcessOutputTabWidget_find::isDestroyedWhileTheMenuIsOpen()
{
    const TabStage stage;
    int opened = 0;
    const MenuUser user([&](QMenu&) {
        ++opened;
        delete stage.dialog;
    });
    QVERIFY(QMetaObject::invokeMethod(stage.tabs(), "onContextMenuRequested",
                                      Q_ARG(QPoint, QPoint(5, 5))));
    QCOMPARE(opened, 1);
    QVERIFY(stage.dialog.isNull());
}

QTEST_MAIN(tst_common_KestProcessOutputTabWidget_find)
#include "tst_common_KestProcessOutputTabWidget_find.moc"
