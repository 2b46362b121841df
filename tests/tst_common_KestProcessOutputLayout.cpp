#include <common_KestProcessOutputLayout.h>

#include <QPainter>
#include <QRandomGenerator>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextEdit>
#include <QtTest>

#include <cmath>

namespace {

int laidOutBlocks(const QTextDocument* document)
{
    int count = 0;
    for (QTextBlock block = document->begin(); block.isValid(); block = block.next()) {
        count += block.layout()->lineCount() > 0 ? 1 : 0;
    }
    return count;
}

bool isAnyInked(const QImage& image)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) != image.pixel(0, 0)) {
                return true;
            }
        }
    }
    return false;
}

/// A text in QTextEdit's own layout and in the one under test.
class TwoViews
{
public:
    explicit TwoViews(const QSize& size = QSize(300, 200))
    {
        layout = new common_KestProcessOutputLayout(m_tested.document());
        layout->setPaintDevice(m_tested.viewport());
        m_tested.document()->setDocumentLayout(layout);
        for (QTextEdit* const view : {&m_plain, &m_tested}) {
            view->setReadOnly(true);
            view->setWordWrapMode(QTextOption::WordWrap);
            view->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
            view->setTabStopDistance(56);
            view->resize(size);
            view->show();
        }
    }

    void append(const QString& text, const QTextCharFormat& format = QTextCharFormat())
    {
        for (QTextEdit* const view : {&m_plain, &m_tested}) {
            QTextCursor writer(view->document());
            writer.movePosition(QTextCursor::End);
            if (!view->document()->isEmpty()) {
                writer.insertBlock(QTextBlockFormat(), QTextCharFormat());
            }
            writer.insertText(text, format);
        }
    }

    // Of every kind that a view may get, in a hundred lines.
    void appendLinesOfAllKinds()
    {
        QRandomGenerator random(5);
        QTextCharFormat coloured;
        coloured.setForeground(Qt::red);
        QTextCharFormat bold;
        bold.setFontWeight(QFont::Bold);
        QTextCharFormat large;
        large.setFontPointSize(23);
        QTextCharFormat raised;
        raised.setVerticalAlignment(QTextCharFormat::AlignSuperScript);
        const QVector<QTextCharFormat> formats = {{}, coloured, bold, large, raised};
        const QStringList words = QString::fromUtf8("a word \u05e9\u05dc\u05d5\u05dd |\t|longer |"
                                                    "\u00e9\u4e2d\U0001f600 |-|x\u2028y|  ")
                                      .split(QLatin1Char('|'));
        for (int line = 0; line < 100; ++line) {
            QString text;
            for (int left = random.bounded(30); left > 0; --left) {
                text += words.at(random.bounded(words.size()));
            }
            append(text, formats.at(random.bounded(formats.size())));
        }
        append(
            QString::fromUtf8("\u05e9\u05dc\u05d5\u05dd \u05e2\u05d5\u05dc\u05dd 12 ").repeated(9));
        append(QString(200, QLatin1Char('x')));
        append(QString());
    }

    void layOutAll() const { layout->layOut(0, 1e9); }

    QTextEdit& plain() { return m_plain; }
    QTextEdit& tested() { return m_tested; }

    common_KestProcessOutputLayout* layout = nullptr; // of the tested one

private:
    QTextEdit m_plain;
    QTextEdit m_tested;
};

} // namespace

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
    void estimatesBeforeAnyWidthIsKnown();
    void laysOutNothingByItself();
    void laysOutWhatIsAskedFor();
    void knowsTheSizeOfLinesThatFit();
    void tellsWhenTheSizeChanges();
    void keepsWidthAndHeightsWhenTextIsAppended();
    void laysOutAgainInAnotherWidth();
    void laysOutAgainInAnotherFont();
    void forgetsLayoutsThatNobodySees();
    void followsChangesAnywhere();
    void answersInTheMiddleOfAChange();
    void drawsFarDown();
    void limitsHeightsOfLines();
    void hitsNothingOutside();
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

void tst_common_KestProcessOutputLayout::estimatesBeforeAnyWidthIsKnown()
{
    QTextDocument document;
    document.setDocumentLayout(new common_KestProcessOutputLayout(&document));
    QTextCursor(&document).insertText(
        QStringLiteral("a line that wraps nowhere yet\n").repeated(9));
    const qreal height = document.size().height();
    QVERIFY2(height > 100 && height < 300, qPrintable(QString::number(height)));
}

void tst_common_KestProcessOutputLayout::laysOutNothingByItself()
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

void tst_common_KestProcessOutputLayout::laysOutWhatIsAskedFor()
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

void tst_common_KestProcessOutputLayout::knowsTheSizeOfLinesThatFit()
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

void tst_common_KestProcessOutputLayout::tellsWhenTheSizeChanges()
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

void tst_common_KestProcessOutputLayout::keepsWidthAndHeightsWhenTextIsAppended()
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

void tst_common_KestProcessOutputLayout::laysOutAgainInAnotherWidth()
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

void tst_common_KestProcessOutputLayout::laysOutAgainInAnotherFont()
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

void tst_common_KestProcessOutputLayout::forgetsLayoutsThatNobodySees()
{
    TwoViews views;
    views.tested().setPlainText(
        QStringLiteral("a text that is wider than the view, so it wraps\n").repeated(5000));
    const qreal end = 1e6;
    for (qreal place = 0; place < end; place += 150) {
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

void tst_common_KestProcessOutputLayout::followsChangesAnywhere()
{
    TwoViews views;
    views.appendLinesOfAllKinds();
    views.layOutAll();
    QRandomGenerator random(9);
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

void tst_common_KestProcessOutputLayout::answersInTheMiddleOfAChange()
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
void tst_common_KestProcessOutputLayout::drawsFarDown()
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

void tst_common_KestProcessOutputLayout::limitsHeightsOfLines()
{
    TwoViews views;
    QTextCharFormat huge;
    huge.setFontPointSize(100000);
    views.append(QStringLiteral("x"), huge);
    views.layOutAll();
    QVERIFY(views.layout->documentSize().height() <= 1100);
}

void tst_common_KestProcessOutputLayout::hitsNothingOutside()
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

QTEST_MAIN(tst_common_KestProcessOutputLayout)
#include "tst_common_KestProcessOutputLayout.moc"
