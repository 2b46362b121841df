// SPDX-License-Identifier: MIT
#include "EditorStage.h"

#include <FindingMend.h>
#include <Preprocessor.h>

#include <QAction>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

// Findings that one step mends.
class tst_finding_mend : public QObject, protected EditorStage
{
    Q_OBJECT

private:
    static QStringList linesOf(const QByteArray& deck)
    {
        return QString::fromUtf8(deck).split(QLatin1Char('\n'));
    }

    // The first finding of the deck that has a mend.
    static std::optional<FindingMend> mendOf(const QByteArray& deck)
    {
        const QVector<suite::Finding> findings = suite::Preprocessor(deck).findings().sorted();
        for (const suite::Finding& finding : findings) {
            if (auto mend = FindingMend::of(finding, linesOf(deck))) {
                return mend;
            }
        }
        return std::nullopt;
    }

    static void select(QListWidget* list, const QString& part)
    {
        QTRY_VERIFY(!list->findItems(part, Qt::MatchContains).isEmpty());
        list->setCurrentItem(list->findItems(part, Qt::MatchContains).constFirst());
    }

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { m_services.reset(); }

    void mendIsOneLine_data()
    {
        QTest::addColumn<QByteArray>("deck");
        QTest::addColumn<QString>("title");
        QTest::addColumn<int>("line");
        QTest::addColumn<QString>("text");
        const QByteArray wire = "GW 1 21 0 0 1 0 0 1.5 0.001\n";
        const QByteArray control = "FR 0 1 0 0 300 0\nEX 0 1 11 0 1 0\n";
        // clang-format off
        QTest::newRow("comments")    << QByteArray("CM a\n" + wire + "GE 0\n" + control + "XQ\nEN\n") << "&Insert CE" << 2 << "CE";
        QTest::newRow("geometry")    << QByteArray(wire + control + "XQ\nEN\n")                       << "&Insert GE" << 2 << "GE 0";
        QTest::newRow("ground")      << QByteArray(wire + "GN 1\n" + control + "XQ\nEN\n")            << "&Insert GE" << 2 << "GE 1";
        QTest::newRow("free space")  << QByteArray(wire + "GN -1\n" + control + "XQ\nEN\n")           << "&Insert GE" << 2 << "GE 0";
        QTest::newRow("execution")   << QByteArray(wire + "GE 0\n" + control + "EN\n")                << "&Insert XQ" << 5 << "XQ";
        QTest::newRow("end")         << QByteArray(wire + "GE 0\n" + control + "XQ\n")                << "&Insert EN" << 6 << "EN";
        QTest::newRow("end, blanks") << QByteArray(wire + "GE 0\n" + control + "XQ\n\n  \n")          << "&Insert EN" << 6 << "EN";
        QTest::newRow("end, no lf")  << QByteArray(wire + "GE 0\n" + control + "XQ")                  << "&Insert EN" << 6 << "EN";
        QTest::newRow("lower case")  << QByteArray(wire + "ge 0\n" + control + "xq\n")                << "&Insert EN" << 6 << "EN";
        QTest::newRow("blank")       << QByteArray(" \t" + wire + "GE 0\n" + control + "XQ\nEN\n")    << "Remove the &blanks" << 1 << QString::fromUtf8(wire).trimmed();
        // clang-format on
    }

    void mendIsOneLine()
    {
        QFETCH(QByteArray, deck);
        const auto mend = mendOf(deck);
        QVERIFY(mend);
        QTEST(mend->title, "title");
        QTEST(mend->line, "line");
        QTEST(mend->text, "text");
        QStringList lines = linesOf(deck);
        if (mend->kind == FindingMend::Kind::Replace) {
            lines.removeAt(mend->line - 1);
        }
        lines.insert(mend->line - 1, mend->text);
        const QByteArray mended = lines.join(QLatin1Char('\n')).toUtf8();
        QVERIFY2(!suite::Preprocessor(mended).findings().hasErrors(), mended.constData());
    }

    void restIsLeftToTheUser()
    {
        QVERIFY(!mendOf("CE\nGW 1 21 0 0 1 0 0 1.5 0.001\nGE 0\nQX 1\nEX 0 1 11 0 1 0\nXQ\nEN\n"));
    }

    void mendOfAnOlderTextIsNone()
    {
        suite::Finding finding;
        finding.kind = suite::FindingKind::NoEnd;
        finding.line = 8;
        QVERIFY(!FindingMend::of(finding, linesOf(goodDeck)));
        finding.kind = suite::FindingKind::LeadingBlank;
        QVERIFY(!FindingMend::of(finding, linesOf(goodDeck)));
        finding.line = 100;
        QVERIFY(!FindingMend::of(finding, linesOf(goodDeck)));
    }

    void findingIsMendedAndThatIsUndone_data()
    {
        QTest::addColumn<QByteArray>("broken");
        QTest::addColumn<QString>("finding");
        QByteArray noEnd = goodDeck;
        noEnd.chop(3);
        QByteArray noLineEnd = goodDeck;
        noLineEnd.chop(4);
        QByteArray noGeometryEnd = goodDeck;
        noGeometryEnd.replace("GE 0\n", "");
        QByteArray blank = goodDeck;
        blank.replace("XQ", "  XQ");
        QTest::newRow("end") << noEnd << "2212: ";
        QTest::newRow("end behind a line without one") << noLineEnd << "2212: ";
        QTest::newRow("geometry") << noGeometryEnd << "2205: ";
        QTest::newRow("blank") << blank << "2109: ";
    }

    void findingIsMendedAndThatIsUndone()
    {
        QFETCH(QByteArray, broken);
        QFETCH(QString, finding);
        write(m_path, broken);
        EditorWindow window(m_path);
        auto* const list = window.findChild<QListWidget*>(QStringLiteral("findingList"));
        auto* const button = window.findChild<QPushButton*>(QStringLiteral("mendButton"));
        auto* const editor = window.findChild<DeckEditor*>();
        QVERIFY(!button->isEnabled());
        select(list, finding);
        QVERIFY(button->isEnabled());
        QVERIFY(!button->toolTip().isEmpty());
        button->click();
        button->click(); // which is too late
        QCOMPARE(editor->deck().trimmed().toUtf8(), goodDeck.trimmed());
        auto* const summary = window.findChild<QLabel*>(QStringLiteral("summary"));
        QTRY_COMPARE(summary->text(), QStringLiteral("Errors: 0  Warnings: 0"));
        QVERIFY(!button->isEnabled());
        window.findChild<QAction*>(QStringLiteral("undoAction"))->trigger();
        QCOMPARE(editor->deck().toUtf8(), broken);
        discardChanges(window);
    }

    void findingWithoutAMendHasNone()
    {
        QByteArray broken = goodDeck;
        broken.replace("XQ\n", "XQ\nQX 1\n");
        write(m_path, broken);
        EditorWindow window(m_path);
        select(window.findChild<QListWidget*>(QStringLiteral("findingList")),
               QStringLiteral("2101: "));
        QVERIFY(!window.findChild<QPushButton*>(QStringLiteral("mendButton"))->isEnabled());
        QVERIFY(!window.findChild<QAction*>(QStringLiteral("mendAction"))->isEnabled());
    }
};

QTEST_MAIN(tst_finding_mend)

#include "tst_finding_mend.moc"
