// SPDX-License-Identifier: MIT
#include "OutputViews.h"

#include <DialogStage.h>

#include <QScrollBar>
#include <QTextBlock>
#include <QtTest>

namespace {

int laidOutBlocks(const QTextEdit* view)
{
    int count = 0;
    for (QTextBlock block = view->document()->begin(); block.isValid(); block = block.next()) {
        count += block.layout()->lineCount() > 0 ? 1 : 0;
    }
    return count;
}

} // namespace

class tst_common_KestProcessOutputTabWidget_layout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void laysOutNothingThatIsFolded();
    void laysOutOnlyWhatIsInView();
    void staysAtTheEndOfLinesThatWrap();
    void scrollsAsFarAsAskedAmongLinesThatWrap();
    void goesToTheBeginningOfLinesThatWrap();
    void neverMovesASliderThatIsHeld();
    void keepsItsPlaceInAnotherWidth();
    void isCompleteBeforeTheTurnEnds();
    void laysOutWhenPaintedInTheMiddleOfATurn();
    void scrollsNotWhilePainting();
    void textAboutAsHighAsTheViewFreezesNothing();
};

// Estimates are much too high for small print. When the last line that fits is appended, the view
// of the errors needs its scroll bar with estimated heights and not with measured ones, and each
// change of the width replaces measured heights by estimates.
void tst_common_KestProcessOutputTabWidget_layout::textAboutAsHighAsTheViewFreezesNothing()
{
    const DialogStage stage;
    stage.runner->start();
    stage.openDetails();
    const QString line = QStringLiteral("<span style='font-size:3pt'>%1</span>")
                             .arg(QStringLiteral("small ").repeated(33));
    constexpr int lines = 80;
    const QScrollBar* const bar = stage.errors()->verticalScrollBar();
    for (int number = 1; number <= lines; ++number) {
        stage.runner->error(line);
        QCoreApplication::processEvents();
        QCOMPARE(bar->value(), bar->maximum());
    }
    QVERIFY(stage.errors()->isVisible());
    QVERIFY(bar->isVisible());
    QCOMPARE(stage.errors()->document()->blockCount(), lines);
}

void tst_common_KestProcessOutputTabWidget_layout::laysOutNothingThatIsFolded()
{
    const DialogStage stage;
    stage.runner->start();
    for (int line = 0; line < 20000; ++line) {
        stage.runner->output(QStringLiteral("this is line number %1 of the output").arg(line));
        stage.runner->notice(QStringLiteral("a notice"));
        if (line % 1000 == 0) {
            QCoreApplication::processEvents();
        }
    }
    QCoreApplication::processEvents();
    QVERIFY(!stage.output()->isVisible());
    QVERIFY(laidOutBlocks(stage.output()) <= 2);

    stage.openDetails();
    stage.tabs()->setCurrentIndex(0);
    QCoreApplication::processEvents();
    const QScrollBar* const bar = stage.output()->verticalScrollBar();
    QVERIFY(bar->maximum() > 100000);
    QCOMPARE(bar->value(), bar->maximum());
    QVERIFY(laidOutBlocks(stage.output()) < 300);
}

void tst_common_KestProcessOutputTabWidget_layout::laysOutOnlyWhatIsInView()
{
    const TabStage stage;
    for (int turn = 0; turn < 20; ++turn) {
        stage.printLines(1000);
    }
    QVERIFY(laidOutBlocks(stage.output()) < 2000);
    stage.dialog->resize(stage.dialog->size() + QSize(150, 0));
    QCoreApplication::processEvents();
    QVERIFY(laidOutBlocks(stage.output()) < 100);
    QCOMPARE(stage.scrollBar()->value(), stage.scrollBar()->maximum());
    stage.scrollBar()->setValue(stage.scrollBar()->maximum() / 2);
    stage.moveCursorTo(0);
    stage.output()->find(QStringLiteral("line 999"));
    QCoreApplication::processEvents();
    QVERIFY(laidOutBlocks(stage.output()) < 300);
}

void tst_common_KestProcessOutputTabWidget_layout::staysAtTheEndOfLinesThatWrap()
{
    const TabStage stage;
    stage.printWrappingLines(3000);
    const auto isLastLineInView = [&stage] {
        QTextCursor cursor = stage.output()->textCursor();
        cursor.movePosition(QTextCursor::End);
        const QRect place = stage.output()->cursorRect(cursor);
        return place.bottom() <= stage.output()->viewport()->height() && place.top() > 0;
    };
    QCOMPARE(stage.scrollBar()->value(), stage.scrollBar()->maximum());
    QVERIFY(isLastLineInView());
    stage.details()->setChecked(false);
    stage.printWrappingLines(3000);
    stage.details()->setChecked(true);
    stage.output()->viewport()->repaint();
    QCOMPARE(stage.scrollBar()->value(), stage.scrollBar()->maximum());
    QVERIFY(isLastLineInView());
    QTest::keyClick(stage.output(), Qt::Key_Home);
    QCOMPARE(stage.scrollBar()->value(), 0);
    QTest::keyClick(stage.output(), Qt::Key_End);
    QCoreApplication::processEvents();
    QCOMPARE(stage.scrollBar()->value(), stage.scrollBar()->maximum());
    QVERIFY(isLastLineInView());
    stage.dialog->resize(stage.dialog->size() + QSize(93, 40));
    QCoreApplication::processEvents();
    QCOMPARE(stage.scrollBar()->value(), stage.scrollBar()->maximum());
    QVERIFY(isLastLineInView());
}

// What comes into view is perhaps higher than was thought: it may not push away what is there.
void tst_common_KestProcessOutputTabWidget_layout::scrollsAsFarAsAskedAmongLinesThatWrap()
{
    const TabStage stage;
    stage.printWrappingLines(3000);
    for (const int start : {stage.scrollBar()->maximum(), stage.scrollBar()->maximum() / 2}) {
        stage.scrollBar()->setValue(start);
        for (int turn = 0; turn < 200; ++turn) {
            const QTextCursor marker = stage.output()->cursorForPosition(QPoint(5, 40));
            const int before = stage.output()->cursorRect(marker).top();
            stage.wheel(turn % 3 == 0 ? -15 : 15);
            stage.output()->viewport()->repaint();
            const int after = stage.output()->cursorRect(marker).top();
            const bool atEdge = stage.scrollBar()->value() == 0 ||
                                stage.scrollBar()->value() == stage.scrollBar()->maximum();
            if (!atEdge) {
                QCOMPARE(after - before, turn % 3 == 0 ? -stage.wheelStep() : stage.wheelStep());
            }
        }
    }
}

void tst_common_KestProcessOutputTabWidget_layout::goesToTheBeginningOfLinesThatWrap()
{
    const TabStage stage;
    stage.printWrappingLines(3000);
    stage.scrollBar()->setValue(stage.scrollBar()->maximum() / 2);
    stage.scrollBar()->setValue(120);
    stage.output()->viewport()->repaint();
    QTest::keyClick(stage.output(), Qt::Key_Home);
    stage.output()->viewport()->repaint();
    QCOMPARE(stage.scrollBar()->value(), 0);
    QCOMPARE(stage.output()->cursorForPosition(QPoint(0, 0)).blockNumber(), 0);
}

void tst_common_KestProcessOutputTabWidget_layout::neverMovesASliderThatIsHeld()
{
    const TabStage stage;
    stage.printWrappingLines(3000);
    stage.scrollBar()->setSliderDown(true);
    for (int place = stage.scrollBar()->maximum() / 2; place > 20000; place -= 170) {
        stage.scrollBar()->setSliderPosition(place);
        stage.output()->viewport()->repaint();
        QCOMPARE(stage.scrollBar()->value(), place);
    }
}

void tst_common_KestProcessOutputTabWidget_layout::keepsItsPlaceInAnotherWidth()
{
    const TabStage stage;
    stage.printWrappingLines(3000);
    stage.wheel(15);
    stage.scrollBar()->setValue(stage.scrollBar()->maximum() / 2);
    for (const int change : {200, -150, 37}) {
        const int first = stage.output()->cursorForPosition(QPoint(0, 0)).blockNumber();
        QVERIFY(first > 500);
        stage.dialog->resize(stage.dialog->size() + QSize(change, 0));
        QCoreApplication::processEvents();
        QCOMPARE(stage.output()->cursorForPosition(QPoint(0, 0)).blockNumber(), first);
    }
}

void tst_common_KestProcessOutputTabWidget_layout::isCompleteBeforeTheTurnEnds()
{
    const TabStage stage;
    QString expected = QStringLiteral("first");
    stage.runner->output(expected);
    for (int number = 0; number < 20; ++number) {
        stage.runner->warning(QStringLiteral("WARNING %1: <i>text</i>").arg(number));
        expected += QStringLiteral("\nWARNING %1: text").arg(number);
        QCOMPARE(stage.text(), expected);
        QCOMPARE(stage.output()->document()->blockCount(), number + 2);
        QCOMPARE(stage.output()->document()->lastBlock().text(),
                 QStringLiteral("WARNING %1: text").arg(number));
        QVERIFY(stage.output()->textCursor().atEnd());
    }
}

void tst_common_KestProcessOutputTabWidget_layout::laysOutWhenPaintedInTheMiddleOfATurn()
{
    const TabStage stage;
    QVERIFY(!shows(stage.output(), Qt::red));
    stage.runner->output(QStringLiteral("<h1><font color=#ff0000>\u2588\u2588\u2588</font></h1>"));
    QVERIFY(shows(stage.output(), Qt::red));
}

void tst_common_KestProcessOutputTabWidget_layout::scrollsNotWhilePainting()
{
    const TabStage stage;
    stage.printLines(300);
    const int value = stage.scrollBar()->value();
    stage.runner->output(QStringLiteral("line"));
    stage.output()->viewport()->repaint();
    QVERIFY(stage.scrollBar()->maximum() > value);
    QCOMPARE(stage.scrollBar()->value(), value);
    QCoreApplication::processEvents();
    QCOMPARE(stage.scrollBar()->value(), stage.scrollBar()->maximum());
}

QTEST_MAIN(tst_common_KestProcessOutputTabWidget_layout)
#include "tst_common_KestProcessOutputTabWidget_layout.moc"
