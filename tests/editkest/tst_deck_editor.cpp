// SPDX-License-Identifier: MIT
#include "DeckCheck.h"
#include "DeckEditor.h"
#include "DeckHighlighter.h"
#include "FindingMargin.h"
#include "GoodDeck.h"

#include <ApplicationIdentity.h>
#include <Services.h>
#include <SystemSkips.h>

#include <common_Contrast.h>

#include <QSignalSpy>
#include <QTextBlock>
#include <QTextLayout>
#include <QThreadPool>
#include <QtTest>

Q_DECLARE_METATYPE(suite::Finding)

namespace {

// The formats of a line: start, length and whether it is bold.
QVector<QTextLayout::FormatRange> formatsOf(const QPlainTextEdit& editor, int line)
{
    return editor.document()->findBlockByNumber(line - 1).layout()->formats();
}

} // namespace

// The editor colours the cards and marks what a check found.
class tst_deck_editor : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        qRegisterMetaType<QVector<suite::Finding>>();
        m_services = std::make_unique<Services>(
            ApplicationIdentity{QStringLiteral("editkest"), QString()}, false);
    }
    void cleanupTestCase() { m_services.reset(); }

    void cardsAreColouredByTheirPlaceInTheDeck()
    {
        DeckEditor editor;
        DeckHighlighter highlighter(editor.document(), editor.palette());
        editor.setPlainText(QStringLiteral("CM text\nGW 1 ! remark\nFR 0\nEN\nQX 1\n# note\n\n"));
        highlighter.rehighlight();
        const auto colourOf = [&](int line) {
            return formatsOf(editor, line).value(0).format.foreground().color();
        };
        QCOMPARE(formatsOf(editor, 1).value(0).length, 7);
        QCOMPARE(formatsOf(editor, 2).value(0).length, 2);
        QVERIFY(formatsOf(editor, 2).value(0).format.fontWeight() == QFont::Bold);
        QCOMPARE(formatsOf(editor, 2).constLast().start, 5);
        QVERIFY(formatsOf(editor, 2).constLast().format.fontItalic());
        QSet<QRgb> colours;
        for (const int line : {1, 2, 3, 4, 5}) {
            colours.insert(colourOf(line).rgb());
        }
        QCOMPARE(colours.size(), 5);
        QCOMPARE(colourOf(6), colourOf(1));
        QVERIFY(formatsOf(editor, 7).isEmpty());
        editor.setPlainText(QStringLiteral("gw 1\nGW 1"));
        QCOMPARE(colourOf(1), colourOf(2));
    }

    void coloursCanBeReadOnDarkAndLight()
    {
        for (const QColor& base : {QColor(Qt::white), QColor(30, 30, 30)}) {
            QPalette palette;
            palette.setColor(QPalette::Base, base);
            palette.setColor(QPalette::AlternateBase,
                             base.lightness() < 128 ? base.lighter(180) : base.darker(110));
            QTextDocument document;
            DeckHighlighter highlighter(&document, palette);
            document.setPlainText(QStringLiteral("CM a\nGW 1\nFR 0\nEN\nQX 1\n# note"));
            highlighter.rehighlight();
            for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
                const auto formats = block.layout()->formats();
                for (const auto& range : formats) {
                    const QColor ink = range.format.foreground().color();
                    for (const QColor& ground : {base, palette.color(QPalette::AlternateBase)}) {
                        QVERIFY2(common_Contrast::ratio(ink, ground) >= common_Contrast::least,
                                 qPrintable(block.text() + ink.name() + ground.name()));
                    }
                }
            }
        }
    }

    void colourOfTheNumbersOfLinesCanBeRead()
    {
        for (const QColor& ground : {QColor(245, 245, 245), QColor(40, 40, 40)}) {
            DeckEditor editor;
            QPalette palette = editor.palette();
            palette.setColor(QPalette::AlternateBase, ground);
            palette.setColor(QPalette::Disabled, QPalette::Text,
                             ground.lightness() < 128 ? ground.lighter(130) : ground.darker(130));
            editor.setPalette(palette);
            QFont font = editor.font();
            font.setPointSize(30); // so that there are pixels in the pen's own colour
            editor.setFont(font);
            editor.setPlainText(QStringLiteral("1\n2\n3"));
            editor.resize(300, 200);
            const QImage picture =
                editor.findChild<QWidget*>(QStringLiteral("findingMargin"))->grab().toImage();
            double best = 0;
            for (int y = 0; y < picture.height(); ++y) {
                for (int x = 0; x < picture.width(); ++x) {
                    best = qMax(best, common_Contrast::ratio(picture.pixelColor(x, y), ground));
                }
            }
            QVERIFY2(best >= common_Contrast::least, qPrintable(QString::number(best)));
        }
    }

    void coloursFollowThePalette()
    {
        DeckEditor editor;
        DeckHighlighter highlighter(editor.document(), editor.palette());
        connect(&editor, &DeckEditor::paletteChanged, &highlighter,
                [&] { highlighter.setPalette(editor.palette()); });
        editor.setPlainText(QStringLiteral("GW 1"));
        highlighter.rehighlight();
        const auto colour = [&editor] {
            return formatsOf(editor, 1).constFirst().format.foreground().color();
        };
        QPalette palette = editor.palette();
        for (const QColor& base : {QColor(Qt::white), QColor(30, 30, 30), QColor(Qt::white)}) {
            palette.setColor(QPalette::Base, base);
            palette.setColor(QPalette::AlternateBase, base);
            editor.setPalette(palette);
            QVERIFY(common_Contrast::ratio(colour(), base) >= common_Contrast::least);
            QCOMPARE(editor.extraSelections().constFirst().format.background().color(), base);
        }
    }

    void findingsStandAtTheirLines()
    {
        DeckEditor editor;
        editor.setPlainText(QStringLiteral("a\nb\nc\n"));
        const suite::Finding error = {suite::FindingKind::UnknownCard, 2,
                                      QStringLiteral("bad <card>")};
        const suite::Finding notice = {suite::FindingKind::WireCount, 3, QStringLiteral("wires")};
        const suite::Finding nowhere = {suite::FindingKind::NoEnd, 0, QStringLiteral("no end")};
        editor.setFindings({error, notice, nowhere});
        QCOMPARE(editor.findingsAt(2).size(), 1);
        QVERIFY(editor.findingsAt(3).isEmpty());
        QVERIFY(editor.findingsAt(0).isEmpty());
        const auto* margin = editor.findChild<FindingMargin*>();
        QCOMPARE(margin->toolTipOf(2), QStringLiteral("%1: bad <card>").arg(error.number()));
        QCOMPARE(margin->toolTipOf(1), QString());
        editor.setFindings({});
        QVERIFY(editor.findingsAt(2).isEmpty());
    }

    void markIsPaintedBesideTheLine()
    {
        DeckEditor editor;
        editor.setPlainText(QStringLiteral("a\nb\nc\n"));
        editor.resize(300, 200);
        editor.show();
        QVERIFY(QTest::qWaitForWindowExposed(&editor));
        auto* margin = editor.findChild<FindingMargin*>();
        const QImage before = margin->grab().toImage();
        editor.setFindings({{suite::FindingKind::UnknownCard, 2, QStringLiteral("bad")}});
        const QImage after = margin->grab().toImage();
        QVERIFY(before != after);
        const int height = editor.fontMetrics().height();
        const auto isSame = [&](int line) {
            const QRect place(0, (line - 1) * height + 4, before.width(), height - 2);
            return before.copy(place) == after.copy(place);
        };
        QVERIFY(!isSame(2));
        QVERIFY(isSame(4));
    }

    void marginHasRoomForEveryLineNumber()
    {
        DeckEditor editor;
        const int narrow = editor.marginWidth();
        editor.setPlainText(QString(12345, QLatin1Char('\n')));
        QVERIFY(editor.marginWidth() > narrow);
    }

    void checkTellsWhatPrekestWouldSay()
    {
        DeckCheck check(nullptr);
        QSignalSpy spy(&check, &DeckCheck::checked);
        check.request(QByteArray(goodDeck).replace("0.001", "zero"));
        QVERIFY(spy.wait(30000));
        const auto findings = spy.takeFirst().constFirst().value<QVector<suite::Finding>>();
        QVERIFY(!findings.isEmpty());
        QCOMPARE(findings.first().line, 3);
        QCOMPARE(findings.first().kind, suite::FindingKind::NotNumber);
    }

    void onlyTheLastRequestIsAnswered()
    {
        DeckCheck check(nullptr);
        QSignalSpy spy(&check, &DeckCheck::checked);
        for (int i = 0; i < 50; ++i) {
            check.request("nonsense\n");
        }
        check.request(goodDeck);
        QVERIFY(spy.wait(30000));
        QVERIFY(!spy.wait(500)); // in which nothing may come
        QCOMPARE(spy.size(), 1);
        const auto findings = spy.first().first().value<QVector<suite::Finding>>();
        for (const suite::Finding& finding : findings) {
            QCOMPARE(finding.severity(), suite::Severity::Notice);
        }
    }

    void requestDuringACheckIsAnsweredToo()
    {
        QByteArray large = "CE\n";
        const int cards = Wine::isHere() ? 10000 : 100000; // there, memory is slow
        for (int i = 0; i < cards; ++i) {
            large += "GW 1 21 0 0 -0.25 0 0 0.25 0.001\n";
        }
        DeckCheck check(nullptr);
        QSignalSpy spy(&check, &DeckCheck::checked);
        check.request(large);
        const auto hasBegun = [] { return QThreadPool::globalInstance()->activeThreadCount() > 0; };
        QVERIFY(QTest::qWaitFor(hasBegun, 30000));
        QVERIFY(spy.isEmpty());
        check.request(goodDeck);
        QTRY_VERIFY_WITH_TIMEOUT(!spy.isEmpty(), 120000);
        const auto findings = spy.last().first().value<QVector<suite::Finding>>();
        for (const suite::Finding& finding : findings) {
            QCOMPARE(finding.severity(), suite::Severity::Notice);
        }
    }

private:
    std::unique_ptr<Services> m_services;
};

QTEST_MAIN(tst_deck_editor)
#include "tst_deck_editor.moc"
