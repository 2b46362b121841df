// SPDX-License-Identifier: MIT
#include "OutputViews.h"

#include <DialogStage.h>

#include <QtVersion.h>
#include <common_Contrast.h>

#include <QAbstractTextDocumentLayout>
#include <QScopeGuard>
#include <QtTest>

#include <array>

class tst_common_KestProcessOutputTabWidget : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void hasItsTabs();
    void hasItsSlots();
    void hasItsOutputView();
    void hasItsErrorsView();
    void holdsEachLineAtOnce_data();
    void holdsEachLineAtOnce();
    void isReadableWithDarkColours_data();
    void isReadableWithDarkColours();
    void keepsLightColours();
    void showsErrors();
    void showsWarnings_data();
    void showsWarnings();
    void showsNotices_data();
    void showsNotices();
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
    QCOMPARE(int(view->font().weight()), QtVersion::fontWeight(2));
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
    QCOMPARE(int(view->font().weight()), static_cast<int>(QFont::Normal));
    QCOMPARE(view->font().styleHint(), QFont::TypeWriter);
}

void tst_common_KestProcessOutputTabWidget::holdsEachLineAtOnce_data()
{
    QTest::addColumn<bool>("isFolded");
    QTest::newRow("folded") << true;
    QTest::newRow("open") << false;
}

// Through 2,000 of them, whatever the view does for lines that are still to come.
void tst_common_KestProcessOutputTabWidget::holdsEachLineAtOnce()
{
    QFETCH(bool, isFolded);
    const TabStage stage;
    stage.details()->setChecked(!isFolded);
    const QTextDocument* const document = stage.output()->document();
    QString text = QStringLiteral("line 0");
    stage.runner->output(text);
    QTextCursor selection(stage.output()->document());
    selection.setPosition(2);
    selection.setPosition(document->characterCount() - 1, QTextCursor::KeepAnchor);
    for (int number = 1; number < 2000; ++number) {
        const QString line = QStringLiteral("line %1").arg(number);
        stage.runner->output(number % 3 == 0 ? red(line) : line);
        text += QLatin1Char('\n') + line;
        QCOMPARE(document->blockCount(), number + 1);
        QCOMPARE(document->characterCount(), text.size() + 1);
        QCOMPARE(document->lastBlock().text(), line);
        QVERIFY(selection.atEnd());
        if (number % 100 == 0) {
            QCoreApplication::processEvents();
        }
    }
    QCOMPARE(stage.text(), text);
    QCOMPARE(selection.anchor(), 2);
    QCoreApplication::processEvents();
    QCOMPARE(stage.output()->textCursor().position(), text.size());
    QVERIFY(isFolded || stage.isAtEnd());
}

void tst_common_KestProcessOutputTabWidget::isReadableWithDarkColours_data()
{
    QTest::addColumn<bool>("fromTheBeginning");

    QTest::newRow("from the beginning") << true;
    QTest::newRow("later") << false;
}

// The views have the user's colours, and lines are drawn in shades that suit them.
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
    stage.runner->warning(QStringLiteral("WARNING 1: \u2588\u2588"));
    stage.runner->notice(QStringLiteral("NOTE 1: \u2588\u2588"));
    stage.runner->error(QStringLiteral("ERROR 1: \u2588\u2588"));
    for (const QWidget* const view :
         {static_cast<QWidget*>(stage.output()), static_cast<QWidget*>(stage.errors()),
          static_cast<QWidget*>(stage.notices()), static_cast<QWidget*>(stage.warnings()),
          static_cast<QWidget*>(stage.tabs()), static_cast<QWidget*>(stage.info())}) {
        QTRY_COMPARE(view->palette().color(QPalette::Base), dark); // Qt 6 sends it as an event
        QCOMPARE(view->palette().color(QPalette::Text), light);
    }
    stage.tabs()->setCurrentWidget(stage.output());
    QVERIFY(shows(stage.output()->viewport(), dark));
    QVERIFY(!shows(stage.output()->viewport(), Qt::white));
    for (const char* const name : {"orange", "blue", "red"}) {
        const QColor colour{QLatin1String(name)};
        const QColor shade = common_Contrast::readable(colour, dark);
        QVERIFY2(shows(stage.output()->viewport(), shade), name);
        QVERIFY2(common_Contrast::ratio(shade, dark) >= common_Contrast::least, name);
        QVERIFY2(stage.output()->toHtml().contains(colour.name()), name); // the document's own
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

QTEST_MAIN(tst_common_KestProcessOutputTabWidget)
#include "tst_common_KestProcessOutputTabWidget.moc"
