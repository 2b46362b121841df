#include <DialogStage.h>
#include <TestRandom.h>

#include <QAbstractTextDocumentLayout>
#include <QAction>
#include <QClipboard>
#include <QMenu>
#include <QMimeData>
#include <QScopeGuard>
#include <QScreen>
#include <QScrollBar>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTextBlock>
#include <QTimer>
#include <QWheelEvent>
#include <QtTest>

#include <array>
#include <ctime>
#include <functional>
#include <utility>

namespace {

QString red(const QString& text)
{
    return QStringLiteral("<font color=#ff0000>%1</font>").arg(text);
}

QString blue(const QString& text)
{
    return QStringLiteral("<font color=#0000ff>%1</font>").arg(text);
}

QString orange(const QString& text)
{
    return QStringLiteral("<font color=#ffa500><b>%1</b></font>").arg(text);
}

// Everything that can be seen of the blocks from the given one on: their texts and their formats.
QVariantList appearance(const QTextDocument* document, int firstBlock = 0, int lastBlock = -1)
{
    QVariantList result;
    for (QTextBlock block = document->findBlockByNumber(firstBlock);
         block.isValid() && (lastBlock < 0 || block.blockNumber() <= lastBlock);
         block = block.next()) {
        result << block.text() << QVariant(block.blockFormat()) << QVariant(block.charFormat())
               << (block.textList() != nullptr);
        for (auto fragment = block.begin(); !fragment.atEnd(); ++fragment) {
            result << fragment.fragment().text() << QVariant(fragment.fragment().charFormat());
        }
    }
    return result;
}

// The appearance of one line among others, as QTextEdit itself appends it.
QVariantList plainAppearance(const QString& line)
{
    QTextEdit plain;
    plain.setReadOnly(true);
    plain.append(QStringLiteral("before"));
    plain.append(line);
    return appearance(plain.document(), 1);
}

bool isColour(QRgb pixel, const QColor& colour)
{
    return QColor(pixel).rgb() == colour.rgb();
}

bool shows(QWidget* widget, const QColor& colour)
{
    const QImage image = widget->grab().toImage();
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (isColour(image.pixel(x, y), colour)) {
                return true;
            }
        }
    }
    return false;
}

int laidOutBlocks(const QTextEdit* view)
{
    int count = 0;
    for (QTextBlock block = view->document()->begin(); block.isValid(); block = block.next()) {
        count += block.layout()->lineCount() > 0 ? 1 : 0;
    }
    return count;
}

/// A picture and a style sheet that a child might name, both in a colour that nothing else has.
class Bait
{
public:
    Bait() : m_oldDirectory(QDir::currentPath())
    {
        QImage image(40, 40, QImage::Format_RGB32);
        image.fill(colour());
        image.save(m_folder.filePath(QStringLiteral("bait.png")));
        SettingsFolders::write(m_folder.filePath(QStringLiteral("bait.css")),
                               "p, td { background-color: #12ab34 }");
        QDir::setCurrent(m_folder.path());
    }
    Bait(const Bait&) = delete;
    Bait& operator=(const Bait&) = delete;
    ~Bait() { QDir::setCurrent(m_oldDirectory); }

    static QColor colour() { return QColor(0x12, 0xab, 0x34); }

    QString inLine(QString line) const
    {
        return line.replace(QStringLiteral("FOLDER"), m_folder.path());
    }

private:
    QTemporaryDir m_folder;
    QString m_oldDirectory;
};

const char* const baits[] = {
    "<img src='FOLDER/bait.png'>",
    "<img src='file://FOLDER/bait.png'>",
    "<img src='bait.png'>",
    "<img src=bait.png width=500 height=300>",
    "<img src='FOLDER/bait.png' style='float:right'>",
    "<table background='FOLDER/bait.png'><tr><td>text text text</td></tr></table>",
    "<table background='bait.png'><tr><td>text text text</td></tr></table>",
    "<p style='background-image: url(bait.png)'>text text text</p>",
    "<table><tr><td style='background-image: url(\"bait.png\")'>text text</td></tr></table>",
    ("<html><head><link rel='stylesheet' type='text/css' href='bait.css'></head>"
     "<body><p>text text text</p></body></html>"),
    "<html><head><style>@import url('bait.css');</style></head><body><p>text</p></body></html>",
    "<base href='file://FOLDER/'><img src='bait.png'>",
};

class TabStage : public DialogStage
{
public:
    TabStage()
    {
        runner->start();
        openDetails();
        QCoreApplication::processEvents();
    }

    QScrollBar* scrollBar() const { return output()->verticalScrollBar(); }

    /// Whether the last line is in view; below it there is a margin.
    bool isAtEnd() const
    {
        return scrollBar()->maximum() > 0 && scrollBar()->maximum() - scrollBar()->value() <= 4;
    }

    void printLines(int count) const
    {
        for (int number = 0; number < count; ++number) {
            runner->output(QStringLiteral("line %1").arg(number));
        }
        QCoreApplication::processEvents();
    }

    // Wider than the view, each in its own way.
    void printWrappingLines(int count) const
    {
        for (int number = 0; number < count; ++number) {
            runner->output(QStringLiteral("line %1 of text ").arg(number).repeated(number % 40));
        }
        QCoreApplication::processEvents();
    }

    void moveCursorTo(int position) const
    {
        QTextCursor cursor = output()->textCursor();
        cursor.setPosition(position);
        output()->setTextCursor(cursor);
    }

    // What 15 degrees of a wheel are in pixels.
    int wheelStep() const { return QApplication::wheelScrollLines() * scrollBar()->singleStep(); }

    void wheel(int degrees) const
    {
        QWidget* const viewport = output()->viewport();
        const QPointF middle = viewport->rect().center();
        QWheelEvent event(middle, viewport->mapToGlobal(middle.toPoint()), QPoint(),
                          QPoint(0, degrees * 8), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                          false);
        QCoreApplication::sendEvent(viewport, &event);
    }
};

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

class tst_common_KestProcessOutputTabWidget : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void hasItsTabs();
    void hasItsSlots();
    void hasItsOutputView();
    void hasItsErrorsView();
    void isReadableWithDarkColours_data();
    void isReadableWithDarkColours();
    void keepsLightColours();
    void appendsParagraphs();
    void appendsAsQTextEditDoes_data();
    void appendsAsQTextEditDoes();
    void appendsRandomLinesAsQTextEditDoes();
    void appendsALongLineInPieces();
    void beginsPlainWhereverTheCursorIs();
    void endsMarkupWithItsLine_data();
    void endsMarkupWithItsLine();
    void endsMarkupWithTheFirstLine_data();
    void endsMarkupWithTheFirstLine();
    void readsNothingThatIsNamed_data();
    void readsNothingThatIsNamed();
    void namesImages();
    void showsBlocksAsLines();
    void staysAliveWithVeryManyLines_data();
    void staysAliveWithVeryManyLines();
    void staysAliveWithNestedTables_data();
    void staysAliveWithNestedTables();
    void connectsToNothingThatIsNamed_data();
    void connectsToNothingThatIsNamed();
    void readsNothingForTheClipboard();
    void copiesVeryMuchAsPlainText();
    void linksDoNothing();
    void laysOutNothingThatIsFolded();
    void laysOutOnlyWhatIsInView();
    void staysAtTheEndOfLinesThatWrap();
    void scrollsAsFarAsAskedAmongLinesThatWrap();
    void goesToTheBeginningOfLinesThatWrap();
    void neverMovesASliderThatIsHeld();
    void showsEachMatchAmongLinesThatWrap();
    void keepsItsPlaceInAnotherWidth();
    void findsAmongLinesThatWrap();
    void showsErrors();
    void showsWarnings_data();
    void showsWarnings();
    void showsNotices_data();
    void showsNotices();
    void isCompleteBeforeTheTurnEnds();
    void laysOutWhenPaintedInTheMiddleOfATurn();
    void scrollsNotWhilePainting();
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

void tst_common_KestProcessOutputTabWidget::hasItsTabs()
{
    const DialogStage stage;
    const QTabWidget* const tabs = stage.tabs();
    QCOMPARE(QLatin1String(tabs->metaObject()->className()),
             QLatin1String("common_KestProcessOutputTabWidget"));
    QCOMPARE(tabs->count(), 4);
    QCOMPARE(tabs->minimumHeight(), 300);
    QCOMPARE(tabs->currentIndex(), 0);
    const std::array<const char*, 4> texts = {"Output", "Notices", "Warnings", "Errors"};
    const std::array<const char*, 4> icons = {"", "info", "warning", "fault"};
    for (int tab = 0; tab < 4; ++tab) {
        const auto index = static_cast<std::size_t>(tab);
        QCOMPARE(tabs->tabText(tab), QLatin1String(texts.at(index)));
        const QLatin1String name(icons.at(index));
        QCOMPARE(tabs->tabIcon(tab).isNull(), name.isEmpty());
        if (!name.isEmpty()) {
            QCOMPARE(tabs->tabIcon(tab).pixmap(16).toImage().pixel(8, 8),
                     Picture::colour(name).rgb());
        }
    }
}

void tst_common_KestProcessOutputTabWidget::hasItsSlots()
{
    const DialogStage stage;
    const QMetaObject* const meta = stage.tabs()->metaObject();
    for (const char* const slot :
         {"onContextMenuRequested(QPoint)", "onOutputScrolled(int)", "findNext()",
          "onNoticeSelected(int,int)", "onWarningSelected(int,int)"}) {
        const int index = meta->indexOfSlot(slot);
        QVERIFY2(index >= 0, slot);
        QCOMPARE(meta->method(index).access(), QMetaMethod::Private);
    }
}

void tst_common_KestProcessOutputTabWidget::hasItsOutputView()
{
    const DialogStage stage;
    const QTextEdit* const view = stage.output();
    QCOMPARE(view->objectName(), QStringLiteral("outputTextEdit"));
    QCOMPARE(view->verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOn);
    QCOMPARE(view->horizontalScrollBarPolicy(), Qt::ScrollBarAsNeeded);
    QCOMPARE(view->wordWrapMode(), QTextOption::WordWrap);
    QCOMPARE(view->lineWrapMode(), QTextEdit::WidgetWidth);
    QCOMPARE(view->contextMenuPolicy(), Qt::CustomContextMenu);
    QVERIFY(view->isReadOnly());
    QVERIFY(!view->isUndoRedoEnabled());
    QCOMPARE(view->document()->documentLayout()->paintDevice(), view->viewport());
    QCOMPARE(view->tabStopDistance(), 56.0);
    QCOMPARE(view->font().family(), QStringLiteral("Courier"));
    QCOMPARE(view->font().pointSize(), 9);
    QCOMPARE(view->font().weight(), 2);
    QVERIFY(!view->font().italic());
}

void tst_common_KestProcessOutputTabWidget::hasItsErrorsView()
{
    const DialogStage stage;
    const QTextEdit* const view = stage.errors();
    QVERIFY(view->isReadOnly());
    QVERIFY(!view->isUndoRedoEnabled());
    QVERIFY(view != stage.output());
    QCOMPARE(view->font().family(), QStringLiteral("Courier"));
    QCOMPARE(view->font().weight(), static_cast<int>(QFont::Normal));
    QCOMPARE(view->font().styleHint(), QFont::TypeWriter);
}

void tst_common_KestProcessOutputTabWidget::isReadableWithDarkColours_data()
{
    QTest::addColumn<bool>("fromTheBeginning");

    QTest::newRow("from the beginning") << true;
    QTest::newRow("later") << false;
}

// The views of text alone: all else keeps the user's colours.
void tst_common_KestProcessOutputTabWidget::isReadableWithDarkColours()
{
    QFETCH(bool, fromTheBeginning);
    const QColor dark(0x23, 0x26, 0x29);
    const QColor light(0xf0, 0xf1, 0xf2);
    QPalette palette;
    palette.setColor(QPalette::Base, dark);
    palette.setColor(QPalette::Text, light);
    palette.setColor(QPalette::Window, dark);
    const QPalette usual = QApplication::palette();
    const auto restore = qScopeGuard([&usual] { QApplication::setPalette(usual); });
    if (fromTheBeginning) {
        QApplication::setPalette(palette);
    }
    const DialogStage stage;
    QApplication::setPalette(palette);
    stage.runner->start();
    stage.openDetails();
    stage.runner->notice(QStringLiteral("NOTE 1: text"));
    for (QTextEdit* const view : {stage.output(), stage.errors()}) {
        stage.tabs()->setCurrentWidget(view);
        QCOMPARE(view->palette().color(QPalette::Base), QColor(Qt::white));
        QCOMPARE(view->palette().color(QPalette::Text), QColor(Qt::black));
        QCOMPARE(view->palette().color(QPalette::Window), dark);
        QVERIFY(shows(view->viewport(), Qt::white));
        QVERIFY(!shows(view->viewport(), dark));
    }
    for (const QWidget* const other :
         {static_cast<QWidget*>(stage.notices()), static_cast<QWidget*>(stage.warnings()),
          static_cast<QWidget*>(stage.tabs()), static_cast<QWidget*>(stage.info())}) {
        QCOMPARE(other->palette().color(QPalette::Base), dark);
        QCOMPARE(other->palette().color(QPalette::Text), light);
    }
}

void tst_common_KestProcessOutputTabWidget::keepsLightColours()
{
    const DialogStage stage;
    const QColor paper(0xff, 0xfe, 0xe8);
    const QColor ink(0x30, 0x20, 0x10);
    QPalette palette;
    palette.setColor(QPalette::Base, paper);
    palette.setColor(QPalette::Text, ink);
    stage.dialog->setPalette(palette);
    for (const QTextEdit* const view : {stage.output(), stage.errors()}) {
        QCOMPARE(view->palette().color(QPalette::Base), paper);
        QCOMPARE(view->palette().color(QPalette::Text), ink);
    }
}

void tst_common_KestProcessOutputTabWidget::appendsParagraphs()
{
    const DialogStage stage;
    stage.runner->output(QStringLiteral("first"));
    stage.runner->say(common_IProcessMessage::LineFeed, QStringLiteral("not shown"));
    stage.runner->output(QStringLiteral("  two  blanks\tand a tab "));
    stage.runner->say(common_IProcessMessage::File, QStringLiteral("  out  of.log \t"));
    QCOMPARE(stage.text(), QStringLiteral("first\n\n  two  blanks\tand a tab \nout  of.log"));
}

void tst_common_KestProcessOutputTabWidget::appendsAsQTextEditDoes_data()
{
    QTest::addColumn<QString>("line");

    const std::array<const char*, 40> lines = {"",
                                               " ",
                                               "plain",
                                               "  leading",
                                               "trailing  ",
                                               "inner   blanks",
                                               "\ttab\ttab",
                                               "a\nb",
                                               "\n",
                                               "a\rb",
                                               "<",
                                               ">",
                                               "&",
                                               "a < b",
                                               "a <b",
                                               "a<b>c</b>",
                                               "&amp;",
                                               "a &lt; b",
                                               "&nbsp;x",
                                               "<b>bold</b>",
                                               "<b>open",
                                               "</b>",
                                               "<i><b>crossed</i></b>",
                                               "<font color=red>red</font>",
                                               "<font color=#ff0000>red</font>",
                                               "<font color=#ff00>short</font>",
                                               "<font color=#ff000g>wrong</font>",
                                               "<font color=#ff0000>a</font>b</font>",
                                               "<font color=#ff0000><b>a</font></b>",
                                               "<font color=#ff0000><b></b></font>",
                                               "<font color=#ff0000></font>",
                                               "<font color=></font>",
                                               "<br>",
                                               "a<br>b",
                                               "<pre>a  b</pre>",
                                               "<!-- comment -->",
                                               "<!-- open",
                                               "<style>p{color:red}</style>x",
                                               "<h1>x</h1>",
                                               "<a href='http://localhost/'>x</a>"};
    int number = 0;
    for (const char* const line : lines) {
        QTest::addRow("%d", number++) << QString::fromUtf8(line);
    }
    QTest::newRow("long") << QStringLiteral("word ").repeated(5000);
    QTest::newRow("two attributes") << QStringLiteral("<font color=#00ff00 size=7>x</font>");
    QTest::newRow("long colour") << QStringLiteral("<font color=#00ff001>x</font>");
    QTest::newRow("null") << QString::fromUtf8("a\0b", 3);
    for (const ushort character : {0x2029, 0xfdd0, 0xfdd1, 0xfeff, 0xfffc}) {
        QTest::addRow("character %x", static_cast<uint>(character))
            << QLatin1Char('a') + QString(QChar(character)) + QLatin1Char('b');
    }
    QTest::newRow("long without blanks") << QString(20000, QLatin1Char('x'));
}

// Also as an error, a warning and a notice, which are coloured by markup.
void tst_common_KestProcessOutputTabWidget::appendsAsQTextEditDoes()
{
    QFETCH(QString, line);
    const auto check = [&line](common_IProcessMessage::Type type, const QString& expected) {
        const DialogStage stage;
        stage.runner->output(QStringLiteral("before"));
        stage.runner->say(type, line);
        QCOMPARE(appearance(stage.output()->document(), 1), plainAppearance(expected));
    };
    check(common_IProcessMessage::Output, line);
    check(common_IProcessMessage::Error, red(line));
    check(common_IProcessMessage::Warning, orange(line));
    check(common_IProcessMessage::Notice, blue(line));
}

void tst_common_KestProcessOutputTabWidget::appendsRandomLinesAsQTextEditDoes()
{
    const QStringList pieces =
        QString::fromUtf8("a|b|word| |  |\t|&|&lt;|&amp;|<|>|<b>|</b>|<i>|</i>|<br>|</font>|#|;|\""
                          "|'|=|/|\u00e9|\u00a0|\u2003|\u2028|\U0001f600|\ufffd|\u0001|\u007f|1"
                          "|<font color=#00ff00>|<font color=red>|<u>|%1|\\|-|*|: |\u00ad|\u200b")
            .split(QLatin1Char('|'));
    QRandomGenerator random = TestRandom::usual(7);
    for (int round = 0; round < 30; ++round) {
        const DialogStage stage;
        QTextEdit plain;
        plain.setReadOnly(true);
        for (int number = 0; number < 100; ++number) {
            QString line;
            for (int left = random.bounded(9); left > 0; --left) {
                line += pieces.at(random.bounded(pieces.size()));
            }
            stage.runner->output(line);
            plain.append(line);
            stage.runner->error(line);
            plain.append(red(line));
            stage.runner->warning(line);
            plain.append(orange(line));
            stage.runner->notice(line);
            plain.append(blue(line));
        }
        QCOMPARE(appearance(stage.output()->document()), appearance(plain.document()));
        QCOMPARE(stage.output()->toHtml().section(QStringLiteral("<p"), 1),
                 plain.toHtml().section(QStringLiteral("<p"), 1));
    }
}

void tst_common_KestProcessOutputTabWidget::appendsALongLineInPieces()
{
    const TabStage stage;
    const QString piece(1023, QLatin1Char('x'));
    QElapsedTimer timer;
    timer.start();
    for (int left = 1 << 20; left > 0; left -= piece.size()) {
        stage.runner->output(piece);
    }
    QCoreApplication::processEvents();
    QVERIFY2(timer.elapsed() < 20000, qPrintable(QString::number(timer.elapsed())));
    QCOMPARE(stage.output()->document()->blockCount(), 1026);
}

void tst_common_KestProcessOutputTabWidget::beginsPlainWhereverTheCursorIs()
{
    const TabStage stage;
    stage.runner->error(QStringLiteral("red"));
    stage.runner->warning(QStringLiteral("bold"));
    stage.moveCursorTo(5);
    stage.runner->output(QStringLiteral("plain"));
    QCOMPARE(appearance(stage.output()->document(), 2), plainAppearance(QStringLiteral("plain")));
}

void tst_common_KestProcessOutputTabWidget::endsMarkupWithItsLine_data()
{
    QTest::addColumn<QString>("line");

    for (const char* const line : {"<b>x",
                                   "<font color=red>x",
                                   "<font size=7>x",
                                   "<table><tr><td>x",
                                   "<ul><li>x",
                                   "<ol><li>x<ol><li>y",
                                   "<pre>x",
                                   "x<!-- y",
                                   "<!--",
                                   "<style>p{color:red}",
                                   "x<style>* {color:red} </style>",
                                   "<head>x",
                                   "<title>x",
                                   "<center>x",
                                   "<h1>x",
                                   "x<hr>",
                                   "<body bgcolor=red>x",
                                   "<html><body style='background:red'>x",
                                   "<div align=right>x",
                                   "<p align=right>x<p align=right>y",
                                   "<blockquote>x<p>y",
                                   "<p dir=rtl>x<p dir=rtl>y",
                                   "<a href='http://localhost/'>x",
                                   "<a name=x>y",
                                   "<u>x",
                                   "<p style='margin-left:50px'>x<p>y",
                                   "<script>x",
                                   "<textarea>x",
                                   "<",
                                   "<b",
                                   "<b x='",
                                   "&",
                                   "<?xml x",
                                   "<!DOCTYPE html><b>x",
                                   "<p style='page-break-after:always'>x",
                                   "<qt>x",
                                   "<dl><dd>x",
                                   "</font></b><i>x"}) {
        QTest::newRow(line) << QString::fromUtf8(line);
    }
}

void tst_common_KestProcessOutputTabWidget::endsMarkupWithItsLine()
{
    QFETCH(QString, line);
    const QVariantList next = plainAppearance(QStringLiteral("next"));
    for (const auto type : {common_IProcessMessage::Output, common_IProcessMessage::Error,
                            common_IProcessMessage::Warning, common_IProcessMessage::Notice}) {
        const DialogStage stage;
        stage.runner->output(QStringLiteral("before"));
        const QVariantList before = appearance(stage.output()->document());
        const QTextFrameFormat frame = stage.output()->document()->rootFrame()->frameFormat();
        stage.runner->say(type, line);
        stage.runner->output(QStringLiteral("next"));
        const QTextDocument* const document = stage.output()->document();
        QCOMPARE(appearance(document, document->blockCount() - 1), next);
        QCOMPARE(appearance(document, 0, 0), before);
        QVERIFY(document->rootFrame()->frameFormat() == frame);

        stage.runner->error(QStringLiteral("next"));
        QCOMPARE(appearance(document, document->blockCount() - 1),
                 plainAppearance(red(QStringLiteral("next"))));
        if (type == common_IProcessMessage::Error) {
            const QTextDocument* const errors = stage.errors()->document();
            QCOMPARE(appearance(errors, errors->blockCount() - 1),
                     plainAppearance(red(QStringLiteral("next"))));
        }
    }
}

void tst_common_KestProcessOutputTabWidget::endsMarkupWithTheFirstLine_data()
{
    endsMarkupWithItsLine_data();
    for (const char* const line :
         {"<p align=right></p>", "<ul><li></ul>", "<ol><li>", "<b></b>", "<h1></h1>",
          "<body bgcolor=red>", "<p style='margin-left:50px'></p>", "<center></center>", "<hr>",
          "<i>"}) {
        QTest::newRow(line) << QString::fromUtf8(line);
    }
}

// Also where it leaves nothing that could be seen.
void tst_common_KestProcessOutputTabWidget::endsMarkupWithTheFirstLine()
{
    QFETCH(QString, line);
    const QString bold = QStringLiteral("<b>next</b>");
    for (const QString& next : {QStringLiteral("next"), bold}) {
        for (const auto type : {common_IProcessMessage::Output, common_IProcessMessage::Notice}) {
            const DialogStage stage;
            const QTextDocument* const document = stage.output()->document();
            const QTextFrameFormat frame = document->rootFrame()->frameFormat();
            stage.runner->say(type, line);
            stage.runner->output(next);
            QCOMPARE(appearance(document, document->blockCount() - 1), plainAppearance(next));
            QVERIFY(document->rootFrame()->frameFormat() == frame);
        }
    }
}

void tst_common_KestProcessOutputTabWidget::readsNothingThatIsNamed_data()
{
    QTest::addColumn<QString>("line");

    for (const char* const line : baits) {
        QTest::newRow(line) << QString::fromUtf8(line);
    }
}

// What is bait for a plain view is told by such a view.
void tst_common_KestProcessOutputTabWidget::readsNothingThatIsNamed()
{
    QFETCH(QString, line);
    const Bait bait;
    line = bait.inLine(line);
    QTextEdit plain;
    plain.resize(600, 300);
    plain.append(line);
    static int taken = 0;
    taken += shows(&plain, Bait::colour()) ? 1 : 0;
    if (QLatin1String(QTest::currentDataTag()) == QLatin1String(*std::rbegin(baits))) {
        QVERIFY2(taken >= 6, "the plain view takes the baits");
    }

    for (const auto type : {common_IProcessMessage::Output, common_IProcessMessage::Error,
                            common_IProcessMessage::Warning, common_IProcessMessage::Notice}) {
        const TabStage stage;
        stage.runner->say(type, line);
        stage.runner->output(QStringLiteral("next"));
        stage.tabs()->setCurrentIndex(0);
        QVERIFY(!shows(stage.dialog, Bait::colour()));
        stage.tabs()->setCurrentIndex(3);
        QVERIFY(!shows(stage.dialog, Bait::colour()));
    }

    const TabStage stage;
    stage.dialog->setInfoLabel(line);
    QVERIFY(!shows(stage.dialog, Bait::colour()));
    stage.dialog->setInfoLabel(QString());
    stage.runner->start(QStringLiteral("/bin/x"), {line});
    QVERIFY(!shows(stage.dialog, Bait::colour()));
    QCOMPARE(stage.info()->text(), QStringLiteral("> x ") + line);
}

void tst_common_KestProcessOutputTabWidget::connectsToNothingThatIsNamed_data()
{
    QTest::addColumn<QString>("line");

    const char* const lines[] = {
        "<img src='http://ADDRESS/bait.png'>",
        "<a href='http://ADDRESS/bait.html'>http://ADDRESS/bait.html</a>",
        "<table background='http://ADDRESS/bait.png'><tr><td>text</td></tr></table>",
        "<p style='background-image: url(http://ADDRESS/bait.png)'>text</p>",
        "<html><head><link rel='stylesheet' href='http://ADDRESS/bait.css'></head>text</html>",
        "<base href='http://ADDRESS/'><img src='bait.png'>",
        "http://ADDRESS/bait.png",
    };
    for (const char* const line : lines) {
        QTest::newRow(line) << QString::fromUtf8(line);
    }
}

void tst_common_KestProcessOutputTabWidget::connectsToNothingThatIsNamed()
{
    QFETCH(QString, line);
    QTcpServer server;
    QVERIFY(server.listen(QHostAddress::LocalHost));
    line.replace(QStringLiteral("ADDRESS"),
                 QStringLiteral("127.0.0.1:%1").arg(server.serverPort()));
    for (const auto type : {common_IProcessMessage::Output, common_IProcessMessage::Error,
                            common_IProcessMessage::Warning, common_IProcessMessage::Notice}) {
        const TabStage stage;
        stage.runner->say(type, line);
        stage.dialog->setInfoLabel(line);
        for (int tab = 0; tab < stage.tabs()->count(); ++tab) {
            stage.tabs()->setCurrentIndex(tab);
            stage.dialog->grab();
        }
        stage.output()->selectAll();
        stage.output()->copy();
        QCoreApplication::processEvents();
    }
    QVERIFY(!server.hasPendingConnections() && !server.waitForNewConnection(50));
    QTcpSocket caller; // as the server would be told
    caller.connectToHost(server.serverAddress(), server.serverPort());
    QVERIFY(server.waitForNewConnection(30000));
}

void tst_common_KestProcessOutputTabWidget::namesImages()
{
    const TabStage stage;
    stage.runner->output(QStringLiteral("<img src='missing.png' width=5000 height=5000> &lt;"));
    stage.runner->notice(QStringLiteral("<img src='x.png' alt='a picture'>"));
    QCOMPARE(stage.text(), QStringLiteral("[missing.png] <\n[a picture]"));
    QVERIFY(stage.output()->document()->size().height() < 60);
}

void tst_common_KestProcessOutputTabWidget::showsBlocksAsLines()
{
    const QString table = QStringLiteral("<table><tr><td>a</td><td>b</td></tr></table><p>c</p>"
                                         "<ul><li>d<li>e</ul>x<hr>");
    const QString text =
        QStringLiteral("a\tb\nc\n\u2022 d\n\u2022 e\nx\n") + QString(40, QLatin1Char('-'));
    for (const auto type : {common_IProcessMessage::Output, common_IProcessMessage::Error,
                            common_IProcessMessage::Warning, common_IProcessMessage::Notice}) {
        const DialogStage stage;
        stage.runner->say(type, table);
        QCOMPARE(stage.text(), text);
        const QTextDocument* const document = stage.output()->document();
        QVERIFY(document->rootFrame()->childFrames().isEmpty());
        const QTextCharFormat format = document->lastBlock().begin().fragment().charFormat();
        QCOMPARE(format.foreground().style() != Qt::NoBrush,
                 type != common_IProcessMessage::Output);
    }
}

void tst_common_KestProcessOutputTabWidget::staysAliveWithVeryManyLines_data()
{
    QTest::addColumn<bool>("open");

    QTest::newRow("folded") << false;
    QTest::newRow("open") << true;
}

// What a user waits for is one turn of the event loop. A view that lays out all lines takes seconds
// for some of these, and the more lines there are, the longer.
void tst_common_KestProcessOutputTabWidget::staysAliveWithVeryManyLines()
{
    QFETCH(bool, open);
    constexpr int turns = 200;
    constexpr int linesOfTurn = 1000;
    constexpr std::clock_t longest = CLOCKS_PER_SEC / 2; // of this process, whatever else runs
    const DialogStage stage;
    std::clock_t slowest = 0;
    const auto inOneTurn = [&slowest](const std::function<void()>& happens) {
        const std::clock_t begin = std::clock();
        happens();
        QCoreApplication::processEvents();
        slowest = qMax(slowest, std::clock() - begin);
    };
    stage.runner->start();
    if (open) {
        stage.openDetails();
    }
    for (int turn = 0; turn < turns; ++turn) {
        inOneTurn([&] {
            for (int line = 0; line < linesOfTurn; ++line) {
                stage.runner->output(
                    QStringLiteral("this is line number %1").arg(turn * linesOfTurn + line));
            }
        });
    }
    inOneTurn([&stage] { stage.openDetails(); });
    stage.tabs()->setCurrentIndex(0);
    inOneTurn([&stage] { stage.dialog->resize(stage.dialog->size() + QSize(150, 0)); });
    inOneTurn([&stage] { stage.dialog->grab(); });
    qInfo("slowest turn: %ld ms of processor time", long(slowest * 1000 / CLOCKS_PER_SEC));
    QVERIFY(slowest < longest);
    QCOMPARE(stage.output()->document()->blockCount(), turns * linesOfTurn);
    QCOMPARE(stage.output()->document()->lastBlock().text(),
             QStringLiteral("this is line number 199999"));
    const QScrollBar* const bar = stage.output()->verticalScrollBar();
    QVERIFY(bar->maximum() > turns * linesOfTurn);
    QCOMPARE(bar->value(), bar->maximum());
}

void tst_common_KestProcessOutputTabWidget::staysAliveWithNestedTables_data()
{
    QTest::addColumn<bool>("open");

    QTest::newRow("folded") << false;
    QTest::newRow("open") << true;
}

// Laid out as tables in tables, thirty of them would take for ever.
void tst_common_KestProcessOutputTabWidget::staysAliveWithNestedTables()
{
    QFETCH(bool, open);
    const QString nested = QStringLiteral("<table><tr><td>").repeated(30);
    for (const auto type : {common_IProcessMessage::Output, common_IProcessMessage::Error,
                            common_IProcessMessage::Warning, common_IProcessMessage::Notice}) {
        const DialogStage stage;
        stage.runner->start(QStringLiteral("/bin/x"), {nested});
        if (open) {
            stage.openDetails();
        }
        stage.runner->say(type, nested + QStringLiteral("x"));
        stage.runner->say(type, nested.repeated(100) + QStringLiteral("y"));
        stage.runner->output(QStringLiteral("next"));
        QCoreApplication::processEvents();
        stage.dialog->grab();
        QVERIFY(stage.text().endsWith(QStringLiteral("y\nnext")));
        QCOMPARE(stage.info()->text(), QStringLiteral("> x ") + nested);
    }
}

void tst_common_KestProcessOutputTabWidget::readsNothingForTheClipboard()
{
    const Bait bait;
    const TabStage stage;
    stage.runner->output(bait.inLine(QStringLiteral("<b>bold</b> <img src='FOLDER/bait.png'> x")));
    stage.output()->selectAll();
    stage.output()->copy();
    const QMimeData* const data = QApplication::clipboard()->mimeData();
    QVERIFY(data->text().startsWith(QStringLiteral("bold ")));
    QVERIFY(data->hasHtml());
    QVERIFY(!data->hasImage());
    QVERIFY(!data->hasFormat(QStringLiteral("application/vnd.oasis.opendocument.text")));
}

void tst_common_KestProcessOutputTabWidget::copiesVeryMuchAsPlainText()
{
    const TabStage stage;
    stage.runner->notice(QStringLiteral("a&nbsp;b<br>c"));
    for (int line = 0; line < 30000; ++line) {
        stage.runner->error(QStringLiteral("error %1").arg(line));
    }
    stage.output()->selectAll();
    stage.output()->copy();
    const QMimeData* const data = QApplication::clipboard()->mimeData();
    QVERIFY(data->text() == stage.text());
    QVERIFY(!data->hasHtml());
}

void tst_common_KestProcessOutputTabWidget::linksDoNothing()
{
    const TabStage stage;
    QVERIFY(!(stage.output()->textInteractionFlags() &
              (Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard)));
    QVERIFY(!(stage.errors()->textInteractionFlags() &
              (Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard)));
    QVERIFY(!stage.info()->openExternalLinks());
}

void tst_common_KestProcessOutputTabWidget::laysOutNothingThatIsFolded()
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

void tst_common_KestProcessOutputTabWidget::laysOutOnlyWhatIsInView()
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

void tst_common_KestProcessOutputTabWidget::staysAtTheEndOfLinesThatWrap()
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
void tst_common_KestProcessOutputTabWidget::scrollsAsFarAsAskedAmongLinesThatWrap()
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

void tst_common_KestProcessOutputTabWidget::goesToTheBeginningOfLinesThatWrap()
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

void tst_common_KestProcessOutputTabWidget::neverMovesASliderThatIsHeld()
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

void tst_common_KestProcessOutputTabWidget::showsEachMatchAmongLinesThatWrap()
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

void tst_common_KestProcessOutputTabWidget::keepsItsPlaceInAnotherWidth()
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

void tst_common_KestProcessOutputTabWidget::findsAmongLinesThatWrap()
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

void tst_common_KestProcessOutputTabWidget::showsErrors()
{
    const TabStage stage;
    stage.runner->output(QStringLiteral("before"));
    stage.runner->error(QStringLiteral(" bad\u00a0  value "));
    stage.runner->error(QStringLiteral("WARNING 1: no warning"));
    QCOMPARE(stage.tabs()->currentIndex(), 3);
    QCOMPARE(stage.tabs()->tabText(3), QStringLiteral("Errors"));
    QCOMPARE(stage.errors()->toPlainText(), QStringLiteral("bad value\nWARNING 1: no warning"));
    const QTextDocument* const output = stage.output()->document();
    QCOMPARE(appearance(output, 1, 1), plainAppearance(red(QStringLiteral(" bad\u00a0  value "))));
    QCOMPARE(stage.errors()->document()->begin().begin().fragment().charFormat().foreground(),
             QBrush(Qt::red));
    QCOMPARE(stage.warnings()->rowCount(), 0);
}

void tst_common_KestProcessOutputTabWidget::showsWarnings_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("tabText");

    // One is counted before.
    const auto row = [](const char* text, int count, const char* tabText) {
        QTest::newRow(text) << QString::fromUtf8(text) << count << QString::fromUtf8(tabText);
    };
    row("WARNING 12: text", 2, "Warnings(2)");
    row("warning 12: text", 2, "Warnings(2)");
    row("  12 WaRnInG : text", 2, "Warnings(2)");
    row("text without the word", 1, "Warnings(1)");
    row("WARNING", 1, "Warnings(1)");
    row("WARNING: no blank behind", 1, "Warnings(1)");
    row("WARNING without colon", 1, "Warnings(1)");
    row("WARNING : colon first", 1, "Warnings(1)");
    row("WARNING\t12: no blank before it is simplified", 1, "Warnings(1)");
    row("12: WARNING ", 2, "Warnings(2)");
}

void tst_common_KestProcessOutputTabWidget::showsWarnings()
{
    QFETCH(QString, text);
    QFETCH(int, count);
    QFETCH(QString, tabText);
    const TabStage stage;
    stage.runner->warning(QStringLiteral("WARNING 1: first"));
    QCOMPARE(stage.tabs()->tabText(2), QStringLiteral("Warnings(1)"));
    stage.runner->warning(text);
    QCOMPARE(stage.warnings()->rowCount(), count);
    QCOMPARE(stage.tabs()->tabText(2), tabText);
    QCOMPARE(stage.tabs()->tabText(1), QStringLiteral("Notices"));
    QCOMPARE(appearance(stage.output()->document(), 1), plainAppearance(orange(text)));
    QCOMPARE(stage.tabs()->currentIndex(), 0);
}

void tst_common_KestProcessOutputTabWidget::showsNotices_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("tabText");

    const auto row = [](const char* text, int count, const char* tabText) {
        QTest::newRow(text) << QString::fromUtf8(text) << count << QString::fromUtf8(tabText);
    };
    row("NOTE 12: text", 1, "Notices(1)");
    row("note 12: text", 1, "Notices(1)");
    row("FOOTNOTE 12: text", 1, "Notices(1)");
    row("text without the word", 0, "Notices");
    row("NOTICE 12: text", 0, "Notices");
    row("NOTES 12: text", 0, "Notices");
    row("NOTE: no blank behind", 0, "Notices");
    row("NOTE without colon", 0, "Notices(0)");
}

void tst_common_KestProcessOutputTabWidget::showsNotices()
{
    QFETCH(QString, text);
    QFETCH(int, count);
    QFETCH(QString, tabText);
    const TabStage stage;
    stage.runner->output(QStringLiteral("before"));
    stage.runner->notice(text);
    QCOMPARE(stage.notices()->rowCount(), count);
    QCOMPARE(stage.tabs()->tabText(1), tabText);
    QCOMPARE(stage.tabs()->tabText(2), QStringLiteral("Warnings"));
    QCOMPARE(appearance(stage.output()->document(), 1), plainAppearance(blue(text)));
    QCOMPARE(stage.tabs()->currentIndex(), 0);
}

void tst_common_KestProcessOutputTabWidget::isCompleteBeforeTheTurnEnds()
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

void tst_common_KestProcessOutputTabWidget::laysOutWhenPaintedInTheMiddleOfATurn()
{
    const TabStage stage;
    QVERIFY(!shows(stage.output(), Qt::red));
    stage.runner->output(QStringLiteral("<h1><font color=#ff0000>\u2588\u2588\u2588</font></h1>"));
    QVERIFY(shows(stage.output(), Qt::red));
}

void tst_common_KestProcessOutputTabWidget::scrollsNotWhilePainting()
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

void tst_common_KestProcessOutputTabWidget::followsWhileTheCursorIsAtTheEnd()
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
void tst_common_KestProcessOutputTabWidget::followsAfterTheScrollBarWasSet()
{
    const TabStage stage;
    stage.printLines(300);
    stage.scrollBar()->setValue(0);
    stage.printLines(1);
    QVERIFY(stage.isAtEnd());
}

void tst_common_KestProcessOutputTabWidget::followsThroughPaintsInTheMiddleOfATurn()
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

void tst_common_KestProcessOutputTabWidget::followsWhenTheDetailsAreOpened()
{
    const TabStage stage;
    stage.details()->setChecked(false);
    stage.printLines(300);
    stage.details()->setChecked(true);
    QTRY_VERIFY(stage.isAtEnd());
    stage.dialog->resize(stage.dialog->width() - 40, stage.dialog->height() - 60);
    QTRY_VERIFY(stage.isAtEnd());
}

void tst_common_KestProcessOutputTabWidget::followsWhenItGetsNarrower()
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

void tst_common_KestProcessOutputTabWidget::staysWithACursorFurtherUp()
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

void tst_common_KestProcessOutputTabWidget::staysWhileTheSliderIsHeld()
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

void tst_common_KestProcessOutputTabWidget::staysWhereTheUserScrolledTo()
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

void tst_common_KestProcessOutputTabWidget::staysWhereTheUserScrolledToInAnotherSize()
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
void tst_common_KestProcessOutputTabWidget::scrollsSidewaysToTheCursorToo()
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

void tst_common_KestProcessOutputTabWidget::staysSidewaysWithACursorFurtherUp()
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

void tst_common_KestProcessOutputTabWidget::followsAgainFromTheBottom()
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

void tst_common_KestProcessOutputTabWidget::followsAgainWhenTheCursorComesToTheEnd()
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

void tst_common_KestProcessOutputTabWidget::movesTheCursorToTheEndWithTheSlider()
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

void tst_common_KestProcessOutputTabWidget::keepsTheSelection()
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

void tst_common_KestProcessOutputTabWidget::errorsStayAtTheBottom()
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

void tst_common_KestProcessOutputTabWidget::errorsStayAtTheBottomWhenItGetsNarrower()
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

void tst_common_KestProcessOutputTabWidget::goesToTheLastErrorByKey()
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

void tst_common_KestProcessOutputTabWidget::goesToTheFirstErrorByKey()
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

void tst_common_KestProcessOutputTabWidget::findsTheSelectedMessage_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("block");

    QTest::newRow("notice") << 1 << QStringLiteral("the searched notice") << 300;
    QTest::newRow("warning") << 2 << QStringLiteral("the searched warning") << 301;
}

void tst_common_KestProcessOutputTabWidget::findsTheSelectedMessage()
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

void tst_common_KestProcessOutputTabWidget::findsInTheMiddleOfATurn()
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

void tst_common_KestProcessOutputTabWidget::findsWholeWordsOnly()
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

void tst_common_KestProcessOutputTabWidget::findsNextFromTheMenu()
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
void tst_common_KestProcessOutputTabWidget::showsWhatIsFoundAmongLinesThatWrap()
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

void tst_common_KestProcessOutputTabWidget::findsNothingWithNothingSelected()
{
    const TabStage stage;
    stage.printLines(10);
    QVERIFY(stage.output()->textCursor().atEnd());
    useContextMenu(stage.output(), QStringLiteral("Find next"));
    QCOMPARE(stage.output()->textCursor().position(), 0);
}

// A menu that does not fit there is moved into the screen.
void tst_common_KestProcessOutputTabWidget::opensTheMenuWhereItWasAskedFor()
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

void tst_common_KestProcessOutputTabWidget::isDestroyedWhileTheMenuIsOpen()
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

QTEST_MAIN(tst_common_KestProcessOutputTabWidget)
#include "tst_common_KestProcessOutputTabWidget.moc"
