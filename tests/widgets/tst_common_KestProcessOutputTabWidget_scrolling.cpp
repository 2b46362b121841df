// SPDX-License-Identifier: MIT
#include "OutputViews.h"

#include <QScrollBar>
#include <QtTest>

class tst_common_KestProcessOutputTabWidget_scrolling : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void followsWhileTheCursorIsAtTheEnd();
    void followsAfterTheScrollBarWasSet();
    void followsThroughPaintsInTheMiddleOfATurn();
    void followsWhenTheDetailsAreOpened();
    void followsWhenItGetsNarrower();
    void staysWithACursorFurtherUp();
    void staysWhileTheSliderIsHeld();
    void staysWhereTheUserScrolledTo();
    void staysWhereTheUserScrolledToInAnotherSize();
    void scrollsSidewaysToTheCursorToo();
    void staysSidewaysWithACursorFurtherUp();
    void followsAgainFromTheBottom();
    void followsAgainWhenTheCursorComesToTheEnd();
    void movesTheCursorToTheEndWithTheSlider();
    void keepsTheSelection();
    void errorsStayAtTheBottom();
    void errorsStayAtTheBottomWhenItGetsNarrower();
};

void tst_common_KestProcessOutputTabWidget_scrolling::followsWhileTheCursorIsAtTheEnd()
{
    const TabStage stage;
    stage.printLines(300);
    QVERIFY(stage.scrollBar()->maximum() > 0);
    QCOMPARE(stage.scrollBar()->value(), stage.scrollBar()->maximum());
    const int value = stage.scrollBar()->value();
    stage.printLines(300);
    QVERIFY(stage.scrollBar()->value() > value);
    QCOMPARE(stage.scrollBar()->value(), stage.scrollBar()->maximum());
}

// By the program, not by the user: the cursor is still at the end.
void tst_common_KestProcessOutputTabWidget_scrolling::followsAfterTheScrollBarWasSet()
{
    const TabStage stage;
    stage.printLines(300);
    stage.scrollBar()->setValue(0);
    stage.printLines(1);
    QVERIFY(stage.isAtEnd());
}

void tst_common_KestProcessOutputTabWidget_scrolling::followsThroughPaintsInTheMiddleOfATurn()
{
    const TabStage stage;
    for (int number = 0; number < 100; ++number) {
        stage.runner->output(QStringLiteral("line"));
        if (number % 10 == 0) {
            stage.output()->viewport()->repaint();
        }
    }
    QCoreApplication::processEvents();
    QCOMPARE(stage.scrollBar()->value(), stage.scrollBar()->maximum());
}

void tst_common_KestProcessOutputTabWidget_scrolling::followsWhenTheDetailsAreOpened()
{
    const TabStage stage;
    stage.details()->setChecked(false);
    stage.printLines(300);
    stage.details()->setChecked(true);
    QTRY_VERIFY(stage.isAtEnd());
    stage.dialog->resize(stage.dialog->width() - 40, stage.dialog->height() - 60);
    QTRY_VERIFY(stage.isAtEnd());
}

void tst_common_KestProcessOutputTabWidget_scrolling::followsWhenItGetsNarrower()
{
    const TabStage stage;
    const QSize size = stage.dialog->size();
    stage.dialog->resize(size.width() * 2, size.height());
    for (int number = 0; number < 100; ++number) {
        stage.runner->output(QStringLiteral("word ").repeated(24));
    }
    QCoreApplication::processEvents();
    QVERIFY(stage.isAtEnd());
    const int maximum = stage.scrollBar()->maximum();
    stage.dialog->resize(size);
    QTRY_VERIFY(stage.scrollBar()->maximum() > maximum);
    QTRY_VERIFY(stage.isAtEnd());
}

void tst_common_KestProcessOutputTabWidget_scrolling::staysWithACursorFurtherUp()
{
    const TabStage stage;
    stage.printLines(300);
    stage.moveCursorTo(0);
    const int value = stage.scrollBar()->value();
    QVERIFY(value <= 4);
    stage.printLines(300);
    QCOMPARE(stage.scrollBar()->value(), value);
    QCOMPARE(stage.output()->textCursor().position(), 0);
}

void tst_common_KestProcessOutputTabWidget_scrolling::staysWhileTheSliderIsHeld()
{
    for (const bool atBottom : {false, true}) {
        const TabStage stage;
        stage.printLines(300);
        const int value = atBottom ? stage.scrollBar()->maximum() : 7;
        stage.scrollBar()->setValue(value);
        stage.scrollBar()->setSliderDown(true);
        stage.printLines(300);
        QCOMPARE(stage.scrollBar()->value(), value);

        stage.scrollBar()->setSliderDown(false);
        stage.printLines(1);
        QVERIFY(stage.isAtEnd());
    }
}

void tst_common_KestProcessOutputTabWidget_scrolling::staysWhereTheUserScrolledTo()
{
    const TabStage stage;
    stage.printLines(300);
    stage.wheel(90);
    const int wheeled = stage.scrollBar()->value();
    QVERIFY(wheeled < stage.scrollBar()->maximum());
    stage.printLines(300);
    QCOMPARE(stage.scrollBar()->value(), wheeled);

    stage.scrollBar()->setSliderDown(true);
    stage.scrollBar()->setSliderPosition(11);
    stage.scrollBar()->setSliderDown(false);
    stage.printLines(300);
    QCOMPARE(stage.scrollBar()->value(), 11);

    QTest::keyClick(stage.output(), Qt::Key_PageUp);
    const int paged = stage.scrollBar()->value();
    QVERIFY(paged < 11);
    stage.printLines(300);
    QCOMPARE(stage.scrollBar()->value(), paged);
}

void tst_common_KestProcessOutputTabWidget_scrolling::staysWhereTheUserScrolledToInAnotherSize()
{
    const TabStage stage;
    stage.printLines(300);
    stage.wheel(900);
    const int value = stage.scrollBar()->value();
    QVERIFY(value > 0 && value < stage.scrollBar()->maximum());
    for (const QSize& change : {QSize(0, 60), QSize(80, 0), QSize(0, -60)}) {
        stage.dialog->resize(stage.dialog->size() + change);
        QCoreApplication::processEvents();
        stage.printLines(10);
        QCOMPARE(stage.scrollBar()->value(), value);
    }
}

// A word may be longer than the view is wide.
void tst_common_KestProcessOutputTabWidget_scrolling::scrollsSidewaysToTheCursorToo()
{
    const TabStage stage;
    const QScrollBar* const sideways = stage.output()->horizontalScrollBar();
    stage.printLines(50);
    QCOMPARE(sideways->maximum(), 0);
    stage.runner->output(QString(5000, QLatin1Char('x')));
    QCoreApplication::processEvents();
    QVERIFY(sideways->maximum() > 0);
    QVERIFY(sideways->value() > sideways->maximum() / 2);
    stage.printLines(1);
    QCOMPARE(sideways->value(), 0);

    // The user may look at the long word, as long as the cursor is in view too.
    for (const int shown : {10, 0}) {
        stage.output()->horizontalScrollBar()->setSliderDown(true);
        stage.output()->horizontalScrollBar()->setSliderPosition(shown);
        stage.output()->horizontalScrollBar()->setSliderDown(false);
        stage.printLines(1);
        QCOMPARE(sideways->value(), shown);
    }
    stage.runner->output(QString(5000, QLatin1Char('x')));
    QCoreApplication::processEvents();
    QVERIFY(sideways->value() > 0);
    stage.printLines(1);
    QCOMPARE(sideways->value(), 0);

    stage.wheel(90);
    stage.output()->horizontalScrollBar()->setValue(77);
    const int value = stage.scrollBar()->value();
    stage.printLines(50);
    QCOMPARE(sideways->value(), 77);
    QCOMPARE(stage.scrollBar()->value(), value);
}

void tst_common_KestProcessOutputTabWidget_scrolling::staysSidewaysWithACursorFurtherUp()
{
    const TabStage stage;
    QScrollBar* const sideways = stage.output()->horizontalScrollBar();
    stage.runner->output(QString(5000, QLatin1Char('x')));
    QCoreApplication::processEvents();
    stage.moveCursorTo(2500);
    const QPoint middle = stage.output()->viewport()->rect().center();
    sideways->setValue(sideways->value() + stage.output()->cursorRect().x() - middle.x());
    const int value = sideways->value();
    QVERIFY(stage.output()->viewport()->rect().contains(stage.output()->cursorRect().center()));
    stage.printLines(300);
    QCOMPARE(sideways->value(), value);
}

void tst_common_KestProcessOutputTabWidget_scrolling::followsAgainFromTheBottom()
{
    const TabStage stage;
    stage.printLines(300);
    stage.wheel(90);
    stage.printLines(30);
    for (int turns = 0; turns < 100; ++turns) {
        stage.wheel(-90);
    }
    QCOMPARE(stage.scrollBar()->value(), stage.scrollBar()->maximum());
    stage.printLines(300);
    QCOMPARE(stage.scrollBar()->value(), stage.scrollBar()->maximum());
}

void tst_common_KestProcessOutputTabWidget_scrolling::followsAgainWhenTheCursorComesToTheEnd()
{
    const TabStage stage;
    stage.printLines(300);
    stage.moveCursorTo(0);
    for (int turns = 0; turns < 100; ++turns) {
        stage.wheel(-90);
    }
    const int value = stage.scrollBar()->value();
    QCOMPARE(value, stage.scrollBar()->maximum());
    stage.printLines(30);
    QCOMPARE(stage.scrollBar()->value(), value);

    stage.scrollBar()->setValue(stage.scrollBar()->maximum());
    stage.output()->moveCursor(QTextCursor::End);
    stage.printLines(300);
    QCOMPARE(stage.scrollBar()->value(), stage.scrollBar()->maximum());
}

void tst_common_KestProcessOutputTabWidget_scrolling::movesTheCursorToTheEndWithTheSlider()
{
    const TabStage stage;
    stage.printLines(300);
    stage.moveCursorTo(0);
    stage.scrollBar()->setSliderDown(true);
    stage.scrollBar()->setSliderPosition(stage.scrollBar()->maximum() - 1);
    QCOMPARE(stage.output()->textCursor().position(), 0);
    stage.scrollBar()->setSliderPosition(stage.scrollBar()->maximum());
    QVERIFY(stage.output()->textCursor().atEnd());
    stage.scrollBar()->setSliderDown(false);
    stage.printLines(300);
    QCOMPARE(stage.scrollBar()->value(), stage.scrollBar()->maximum());
}

void tst_common_KestProcessOutputTabWidget_scrolling::keepsTheSelection()
{
    const TabStage stage;
    stage.printLines(10);
    QTextCursor cursor = stage.output()->textCursor();
    cursor.setPosition(3);
    cursor.setPosition(9, QTextCursor::KeepAnchor);
    stage.output()->setTextCursor(cursor);
    const QString selected = cursor.selectedText();
    stage.printLines(10);
    QCOMPARE(stage.output()->textCursor().selectedText(), selected);
}

void tst_common_KestProcessOutputTabWidget_scrolling::errorsStayAtTheBottom()
{
    const TabStage stage;
    const QScrollBar* const bar = stage.errors()->verticalScrollBar();
    const auto printErrors = [&stage] {
        for (int number = 0; number < 200; ++number) {
            stage.runner->error(QStringLiteral("error %1").arg(number));
        }
        QCoreApplication::processEvents();
    };
    printErrors();
    QVERIFY(bar->maximum() > 0);
    QCOMPARE(bar->value(), bar->maximum());
    stage.errors()->verticalScrollBar()->setValue(5);
    printErrors();
    QCOMPARE(bar->value(), 5);
}

void tst_common_KestProcessOutputTabWidget_scrolling::errorsStayAtTheBottomWhenItGetsNarrower()
{
    const TabStage stage;
    const QScrollBar* const bar = stage.errors()->verticalScrollBar();
    const QSize size = stage.dialog->size();
    stage.dialog->resize(size.width() * 2, size.height());
    const auto printErrors = [&stage] {
        for (int number = 0; number < 100; ++number) {
            stage.runner->error(QStringLiteral("word ").repeated(24));
        }
    };
    printErrors();
    QCoreApplication::processEvents();
    QCOMPARE(bar->value(), bar->maximum());
    printErrors();
    stage.dialog->resize(size);
    QTRY_VERIFY(stage.errors()->width() < size.width());
    QCoreApplication::processEvents();
    QCOMPARE(bar->value(), bar->maximum());
}

QTEST_MAIN(tst_common_KestProcessOutputTabWidget_scrolling)
#include "tst_common_KestProcessOutputTabWidget_scrolling.moc"
