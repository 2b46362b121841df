// SPDX-License-Identifier: MIT
#include "TwoViews.h"

#include <TestRandom.h>

#include <QPainter>
#include <QRandomGenerator>
#include <QScrollBar>
#include <QTextEdit>
#include <QtTest>

class tst_common_KestProcessOutputLayout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void hasTheSizeOfQtsLayout();
    void placesCharactersAsQtsLayoutDoes();
    void findsCharactersAsQtsLayoutDoes();
    void drawsAsQtsLayoutDoes();
    void drawsSelectionsAsQtsLayoutDoes();
    void drawsInThePalettesColour();
    void drawsNoCursorWhereThereIsNone();
    void followsChangesAnywhere();
};

void tst_common_KestProcessOutputLayout::hasTheSizeOfQtsLayout()
{
    TwoViews views;
    QCOMPARE(views.layout->pageCount(), 1);
    for (const int width : {300, 150, 800}) {
        views.plain().resize(width, 200);
        views.tested().resize(width, 200);
        views.appendLinesOfAllKinds();
        views.layOutAll();
        QCOMPARE(views.tested().document()->size(), views.plain().document()->size());
        QCOMPARE(views.layout->frameBoundingRect(nullptr).size(), views.layout->documentSize());
        QCOMPARE(views.tested().verticalScrollBar()->maximum(),
                 views.plain().verticalScrollBar()->maximum());
        QCOMPARE(views.tested().horizontalScrollBar()->maximum(),
                 views.plain().horizontalScrollBar()->maximum());
    }
}

void tst_common_KestProcessOutputLayout::placesCharactersAsQtsLayoutDoes()
{
    TwoViews views;
    views.appendLinesOfAllKinds();
    views.layOutAll();
    QTextCursor plain(views.plain().document());
    QTextCursor tested(views.tested().document());
    for (int position = 0; position < views.plain().document()->characterCount(); ++position) {
        plain.setPosition(position);
        tested.setPosition(position);
        QCOMPARE(views.tested().cursorRect(tested), views.plain().cursorRect(plain));
    }
    for (const auto move : {QTextCursor::Down, QTextCursor::Up, QTextCursor::EndOfLine}) {
        plain.movePosition(move);
        tested.movePosition(move);
        QCOMPARE(tested.position(), plain.position());
    }
}

void tst_common_KestProcessOutputLayout::findsCharactersAsQtsLayoutDoes()
{
    TwoViews views;
    views.appendLinesOfAllKinds();
    views.layOutAll();
    const QSizeF size = views.plain().document()->size();
    for (int y = -10; y < size.height() + 10; y += 7) {
        for (int x = -10; x < 300; x += 11) {
            const QPointF place(x + 0.5, y + 0.5);
            QCOMPARE(views.layout->hitTest(place, Qt::FuzzyHit),
                     views.plain().document()->documentLayout()->hitTest(place, Qt::FuzzyHit));
        }
    }
}

void tst_common_KestProcessOutputLayout::drawsAsQtsLayoutDoes()
{
    TwoViews views;
    views.appendLinesOfAllKinds();
    views.layOutAll();
    const int maximum = views.plain().verticalScrollBar()->maximum();
    QVERIFY(maximum > 1000);
    for (int value = 0; value <= maximum; value += 97) {
        views.plain().verticalScrollBar()->setValue(value);
        views.tested().verticalScrollBar()->setValue(value);
        QCOMPARE(views.tested().viewport()->grab().toImage(),
                 views.plain().viewport()->grab().toImage());
    }
    views.plain().horizontalScrollBar()->setValue(50);
    views.tested().horizontalScrollBar()->setValue(50);
    QCOMPARE(views.tested().viewport()->grab().toImage(),
             views.plain().viewport()->grab().toImage());
}

void tst_common_KestProcessOutputLayout::drawsSelectionsAsQtsLayoutDoes()
{
    TwoViews views;
    views.appendLinesOfAllKinds();
    views.layOutAll();
    for (QTextEdit* const view : {&views.plain(), &views.tested()}) {
        QTextCursor cursor = view->textCursor();
        cursor.setPosition(4);
        cursor.setPosition(700, QTextCursor::KeepAnchor);
        view->setTextCursor(cursor);
        view->verticalScrollBar()->setValue(30);
    }
    QCOMPARE(views.tested().viewport()->grab().toImage(),
             views.plain().viewport()->grab().toImage());
    const QImage before = views.tested().viewport()->grab().toImage();
    for (QTextEdit* const view : {&views.plain(), &views.tested()}) {
        QTextCursor cursor = view->textCursor();
        cursor.setPosition(203);
        cursor.setPosition(204, QTextCursor::KeepAnchor);
        view->setTextCursor(cursor);
        view->verticalScrollBar()->setValue(30);
    }
    QVERIFY(views.tested().viewport()->grab().toImage() != before);
    QCOMPARE(views.tested().viewport()->grab().toImage(),
             views.plain().viewport()->grab().toImage());
}

void tst_common_KestProcessOutputLayout::drawsInThePalettesColour()
{
    TwoViews views;
    views.append(QStringLiteral("\u2588"));
    QPalette palette;
    palette.setColor(QPalette::Text, Qt::green);
    views.plain().setPalette(palette);
    views.tested().setPalette(palette);
    QCOMPARE(views.tested().viewport()->grab().toImage(),
             views.plain().viewport()->grab().toImage());
}

void tst_common_KestProcessOutputLayout::drawsNoCursorWhereThereIsNone()
{
    TwoViews views;
    views.append(QStringLiteral(" "));
    const auto drawn = [&views](int cursorPosition) {
        QImage image(50, 30, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        QAbstractTextDocumentLayout::PaintContext context;
        context.cursorPosition = cursorPosition;
        context.palette.setColor(QPalette::Text, Qt::black);
        views.layout->draw(&painter, context);
        return image;
    };
    QVERIFY(!isAnyInked(drawn(-1)));
    QVERIFY(isAnyInked(drawn(1)));
    QVERIFY(!isAnyInked(drawn(5)));
}

void tst_common_KestProcessOutputLayout::followsChangesAnywhere()
{
    TwoViews views;
    views.appendLinesOfAllKinds();
    views.layOutAll();
    QRandomGenerator random = TestRandom::usual(9);
    for (int change = 0; change < 60; ++change) {
        const int length = views.plain().document()->characterCount();
        const int begin = random.bounded(length);
        const int end = std::min(begin + random.bounded(300), length - 1);
        const QString text = QStringLiteral("new text ").repeated(random.bounded(20)) +
                             QString(random.bounded(3), QLatin1Char('\n'));
        for (QTextEdit* const view : {&views.plain(), &views.tested()}) {
            QTextCursor cursor(view->document());
            cursor.setPosition(begin);
            cursor.setPosition(std::max(begin, end), QTextCursor::KeepAnchor);
            cursor.insertText(text);
        }
        if (change % 3 == 0) {
            views.layOutAll();
            QCOMPARE(views.tested().document()->size(), views.plain().document()->size());
        }
    }
    views.plain().clear();
    views.tested().clear();
    views.layOutAll();
    QCOMPARE(views.tested().document()->size(), views.plain().document()->size());
    views.appendLinesOfAllKinds();
    views.layOutAll();
    QCOMPARE(views.tested().document()->size(), views.plain().document()->size());
}

QTEST_MAIN(tst_common_KestProcessOutputLayout)
#include "tst_common_KestProcessOutputLayout.moc"
