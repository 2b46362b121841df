// SPDX-License-Identifier: MIT
#include "TwoViews.h"

#include <common_KestProcessOutputLayout.h>

#include <QPainter>
#include <QTextBlock>
#include <QTextEdit>
#include <QtTest>

namespace {

int laidOutBlocks(const QTextDocument* document)
{
    int count = 0;
    for (QTextBlock block = document->begin(); block.isValid(); block = block.next()) {
        count += block.layout()->lineCount() > 0 ? 1 : 0;
    }
    return count;
}

} // namespace

class tst_common_KestProcessOutputLayout_estimates : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void estimatesBeforeAnyWidthIsKnown();
    void laysOutNothingByItself();
    void laysOutWhatIsAskedFor();
    void knowsTheSizeOfLinesThatFit();
    void tellsWhenTheSizeChanges();
    void keepsWidthAndHeightsWhenTextIsAppended();
    void laysOutAgainInAnotherWidth();
    void laysOutAgainInAnotherFont();
    void forgetsLayoutsThatNobodySees();
    void answersInTheMiddleOfAChange();
    void drawsFarDown();
    void limitsHeightsOfLines();
    void hitsNothingOutside();
};

void tst_common_KestProcessOutputLayout_estimates::estimatesBeforeAnyWidthIsKnown()
{
    QTextDocument document;
    document.setDocumentLayout(new common_KestProcessOutputLayout(&document));
    QTextCursor(&document).insertText(
        QStringLiteral("a line that wraps nowhere yet\n").repeated(9));
    const qreal height = document.size().height();
    QVERIFY2(height > 100 && height < 300, qPrintable(QString::number(height)));
}

void tst_common_KestProcessOutputLayout_estimates::laysOutNothingByItself()
{
    QTextDocument document;
    document.setDocumentLayout(new common_KestProcessOutputLayout(&document));
    document.setPageSize(QSizeF(300, -1));
    QTextCursor writer(&document);
    for (int line = 0; line < 10000; ++line) {
        writer.insertText(QStringLiteral("line\n"));
    }
    document.setPageSize(QSizeF(200, -1));
    QVERIFY(document.size().height() > 10000);
    QCOMPARE(laidOutBlocks(&document), 0);
}

void tst_common_KestProcessOutputLayout_estimates::laysOutWhatIsAskedFor()
{
    TwoViews views;
    views.tested().setPlainText(QStringLiteral("line\n").repeated(1000));
    QTextDocument* const document = views.tested().document();
    const int before = laidOutBlocks(document);
    QVERIFY(before < 30);
    const qreal top = views.layout->top(500);
    QCOMPARE(views.layout->firstLaidOut(top, top + 100), -1);
    QVERIFY(views.layout->layOut(top, top + 100));
    QVERIFY(!views.layout->layOut(top, top + 100));
    QCOMPARE(views.layout->firstLaidOut(top, top + 100), 500);
    QCOMPARE(views.layout->firstLaidOut(top - 1000, top + 100), 500);
    const int inBetween = laidOutBlocks(document) - before;
    QVERIFY2(inBetween >= 4 && inBetween <= 30, qPrintable(QString::number(inBetween)));
    views.layout->blockBoundingRect(document->findBlockByNumber(800));
    QCOMPARE(laidOutBlocks(document), before + inBetween + 1);
}

void tst_common_KestProcessOutputLayout_estimates::knowsTheSizeOfLinesThatFit()
{
    TwoViews views(QSize(600, 200));
    views.plain().setFont(QFont(QStringLiteral("Courier"), 9));
    views.tested().setFont(QFont(QStringLiteral("Courier"), 9));
    const QString text =
        QStringLiteral("this is one line of the output of a component\n").repeated(300);
    views.plain().setPlainText(text);
    views.tested().setPlainText(text);
    QVERIFY(laidOutBlocks(views.tested().document()) < 100);
    QCOMPARE(views.tested().document()->size(), views.plain().document()->size());
}

void tst_common_KestProcessOutputLayout_estimates::tellsWhenTheSizeChanges()
{
    TwoViews views;
    const QSignalSpy told(views.layout, &QAbstractTextDocumentLayout::documentSizeChanged);
    const QSignalSpy drawn(views.layout, &QAbstractTextDocumentLayout::update);
    views.append(QStringLiteral("a"));
    const int first = told.size();
    views.append(QStringLiteral("b"));
    QCOMPARE(told.size(), first + 1);
    QCOMPARE(told.last().first().toSizeF(), views.layout->documentSize());
    QVERIFY(drawn.last().first().toRectF().top() > 10);
    views.append(QString(100, QLatin1Char('i')));
    const int appended = told.size();
    views.layOutAll();
    QVERIFY(told.size() > appended);
    QCOMPARE(told.last().first().toSizeF(), views.layout->documentSize());
}

void tst_common_KestProcessOutputLayout_estimates::keepsWidthAndHeightsWhenTextIsAppended()
{
    TwoViews views;
    views.append(QString(500, QLatin1Char('x')));
    views.append(QString(100, QLatin1Char('\t')));
    views.layOutAll();
    const QSizeF size = views.layout->documentSize();
    QVERIFY(size.width() > 1000);
    views.append(QStringLiteral("next"));
    QCOMPARE(views.layout->documentSize().width(), size.width());
    QVERIFY(views.layout->documentSize().height() > size.height());
    QCOMPARE(views.layout->firstLaidOut(0, 10), 0);
}

void tst_common_KestProcessOutputLayout_estimates::laysOutAgainInAnotherWidth()
{
    TwoViews views;
    views.appendLinesOfAllKinds();
    views.layOutAll();
    for (QTextEdit* const view : {&views.plain(), &views.tested()}) {
        view->resize(500, 200);
    }
    QVERIFY(laidOutBlocks(views.tested().document()) < 50);
    views.layOutAll();
    QCOMPARE(views.tested().document()->size(), views.plain().document()->size());
}

void tst_common_KestProcessOutputLayout_estimates::laysOutAgainInAnotherFont()
{
    TwoViews views;
    views.appendLinesOfAllKinds();
    views.layOutAll();
    const QSizeF before = views.tested().document()->size();
    for (QTextEdit* const view : {&views.plain(), &views.tested()}) {
        view->setFont(QFont(QStringLiteral("Courier"), 17));
    }
    views.layOutAll();
    QVERIFY(views.tested().document()->size() != before);
    QCOMPARE(views.tested().document()->size(), views.plain().document()->size());
}

void tst_common_KestProcessOutputLayout_estimates::forgetsLayoutsThatNobodySees()
{
    TwoViews views;
    views.tested().setPlainText(
        QStringLiteral("a text that is wider than the view in every font, so that it wraps\n")
            .repeated(5000));
    constexpr int end = 1000000;
    for (int place = 0; place < end; place += 150) {
        views.layout->layOut(place, place + 200);
    }
    QVERIFY(laidOutBlocks(views.tested().document()) < 1100);
    const QTextBlock first = views.tested().document()->firstBlock();
    QCOMPARE(first.layout()->lineCount(), 0);
    const qreal height = views.layout->documentSize().height();
    views.layout->layOut(0, 200);
    QVERIFY(first.layout()->lineCount() > 1);
    QCOMPARE(views.layout->documentSize().height(), height);
}

void tst_common_KestProcessOutputLayout_estimates::answersInTheMiddleOfAChange()
{
    TwoViews views;
    views.append(QStringLiteral("a"));
    QTextDocument* const document = views.tested().document();
    QTextCursor writer(document);
    writer.movePosition(QTextCursor::End);
    writer.beginEditBlock();
    writer.insertText(QStringLiteral("\nb\nc"));
    const QRectF place = views.layout->blockBoundingRect(document->lastBlock());
    QVERIFY(place.height() > 5);
    QVERIFY(place.top() > 5);
    QVERIFY(views.layout->hitTest(QPointF(5, 1000), Qt::FuzzyHit) >= 0);
    views.tested().viewport()->grab();
    writer.endEditBlock();
    QVERIFY(views.layout->blockBoundingRect(document->lastBlock()).top() > place.top());
}

// Beyond the 33 million pixels that a text layout can count.
void tst_common_KestProcessOutputLayout_estimates::drawsFarDown()
{
    QTextDocument document;
    auto* const layout = new common_KestProcessOutputLayout(&document);
    document.setDocumentLayout(layout);
    document.setPageSize(QSizeF(20, -1));
    QTextCursor writer(&document);
    for (int block = 0; block < 6; ++block) {
        writer.insertText(QString(1000000, QLatin1Char('x')) + QLatin1Char('\n'));
    }
    writer.insertText(QStringLiteral("\u2588"));
    const qreal place = layout->blockBoundingRect(document.lastBlock()).top();
    QVERIFY2(place > 4e7, qPrintable(QString::number(place)));
    QImage image(20, 30, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.translate(0, -place);
    QAbstractTextDocumentLayout::PaintContext context;
    context.clip = QRectF(0, place, 20, 30);
    layout->draw(&painter, context);
    painter.end();
    QVERIFY(isAnyInked(image));
    QCOMPARE(layout->hitTest(QPointF(19, place + 1), Qt::FuzzyHit), document.characterCount() - 1);
}

void tst_common_KestProcessOutputLayout_estimates::limitsHeightsOfLines()
{
    TwoViews views;
    QTextCharFormat huge;
    huge.setFontPointSize(100000);
    views.append(QStringLiteral("x"), huge);
    views.layOutAll();
    QVERIFY(views.layout->documentSize().height() <= 1100);
}

void tst_common_KestProcessOutputLayout_estimates::hitsNothingOutside()
{
    TwoViews views;
    views.append(QStringLiteral("word"));
    views.layOutAll();
    QCOMPARE(views.layout->hitTest(QPointF(6, 8), Qt::ExactHit), 0);
    const QTextLine line = views.tested().document()->firstBlock().layout()->lineAt(0);
    const QPointF behindW(4 + line.cursorToX(1) - 1, 8);
    QCOMPARE(views.layout->hitTest(behindW, Qt::ExactHit), 0);
    QCOMPARE(views.layout->hitTest(behindW, Qt::FuzzyHit), 1);
    for (const QPointF& place :
         {QPointF(-5, 8), QPointF(200, 8), QPointF(6, 500), QPointF(6, -5)}) {
        QCOMPARE(views.layout->hitTest(place, Qt::ExactHit), -1);
    }
}

QTEST_MAIN(tst_common_KestProcessOutputLayout_estimates)
#include "tst_common_KestProcessOutputLayout_estimates.moc"
