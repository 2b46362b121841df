// SPDX-License-Identifier: MIT
#include "../support/SystemSkips.h"

#include "DeckEditor.h"
#include "EditorStage.h"
#include "EditorWindow.h"

#include <BoxAnswerer.h>
#include <FileChooser.h>
#include <HelpPage.h>

#include <QAction>
#include <QDropEvent>
#include <QFile>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMimeData>
#include <QStatusBar>
#include <QtTest>

#include <ctime>

// The editor as a person uses it.
class tst_editkest : public QObject, protected EditorStage
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }

    void cleanup() { m_services.reset(); }

    void findingsAppearWhileTyping()
    {
        EditorWindow window(m_path);
        auto* editor = window.findChild<DeckEditor*>();
        auto* summary = window.findChild<QLabel*>(QStringLiteral("summary"));
        QTRY_COMPARE(summary->text(), QStringLiteral("Errors: 0  Warnings: 0"));
        editor->goToLine(3);
        typeLine(editor, QStringLiteral("QX 1"));
        QTRY_COMPARE(summary->text(), QStringLiteral("Errors: 1  Warnings: 0"));
        QCOMPARE(editor->findingsAt(3).size(), 1);
        QVERIFY(window.isWindowModified());
        auto* list = window.findChild<QListWidget*>(QStringLiteral("findingList"));
        QVERIFY2(list->item(0)->text().endsWith(QStringLiteral(" (line 3)")),
                 qPrintable(list->item(0)->text()));
        editor->moveCursor(QTextCursor::End);
        window.findChild<QAction*>(QStringLiteral("nextFindingAction"))->trigger();
        QCOMPARE(editor->textCursor().blockNumber(), 2);
        discardChanges(window);
    }

    void lineThatIsAskedForIsGoneTo()
    {
        EditorWindow window(m_path);
        auto* editor = window.findChild<DeckEditor*>();
        window.goToLine(4);
        QCOMPARE(editor->textCursor().blockNumber(), 3);
        window.goToLine(100000); // there is no such line
        QCOMPARE(editor->textCursor().blockNumber(), 3);
    }

    void savedTextIsInTheFile()
    {
        EditorWindow window(m_path);
        auto* editor = window.findChild<DeckEditor*>();
        editor->moveCursor(QTextCursor::Start);
        typeLine(editor, QStringLiteral("CM new"));
        QVERIFY(window.save());
        QVERIFY(!window.isWindowModified());
        QCOMPARE(contentOf(m_path), "CM new\n" + goodDeck);
    }

    void namesCannotTurnTheWindowsTexts()
    {
        const QString path = m_folder->filePath(QStringLiteral("left\u202egnp.nec"));
        write(path, goodDeck);
        EditorWindow window(path);
        QVERIFY2(window.windowTitle().startsWith(QStringLiteral("left<U+202E>gnp.nec")),
                 qPrintable(window.windowTitle()));
        const QList<QMenu*> menus = window.findChildren<QMenu*>();
        QStringList recent;
        for (QMenu* const menu : menus) {
            if (menu->title().contains(QStringLiteral("recent"))) {
                Q_EMIT menu->aboutToShow();
                recent.append(menu->actions().constFirst()->text());
            }
        }
        QCOMPARE(recent.size(), 1);
        QVERIFY2(recent.first().endsWith(QStringLiteral("left<U+202E>gnp.nec")),
                 qPrintable(recent.first()));
        BoxAnswerer box(BoxAnswerer::clicking(QStringLiteral("OK")));
        QVERIFY(!window.openDeck(m_folder->filePath(QStringLiteral("none\u202e.nec"))));
        QCOMPARE(box.texts.size(), 1);
        QVERIFY2(box.texts.first().contains(QStringLiteral("none<U+202E>.nec")),
                 qPrintable(box.texts.first()));
        // What the name is, the file keeps.
        QVERIFY(window.save());
        QVERIFY(QFile::exists(path));
    }

    void nameThatIsNoTextIsTold()
    {
        SKIP_WITHOUT_BYTES_IN_NAMES();
        EditorWindow window{QString()};
        QMimeData data;
        data.setUrls(
            {QUrl::fromEncoded(QUrl::fromLocalFile(m_folder->path()).toEncoded() + "/caf%E9.nec")});
        BoxAnswerer box(BoxAnswerer::clicking(QStringLiteral("OK")));
        QDragEnterEvent enter({9, 9}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&window, &enter);
        QDropEvent drop({9, 9}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&window, &drop);
        QVERIFY(!window.openDeck(m_folder->filePath(QStringLiteral("caf\ufffd.nec"))));
        QCOMPARE(box.texts.size(), 2);
        QVERIFY2(box.texts.first().contains(QStringLiteral("caf\\xE9.nec")),
                 qPrintable(box.texts.first()));
        for (const QString& each : qAsConst(box.texts)) {
            QVERIFY2(each.contains(QStringLiteral("is not UTF-8; rename it")), qPrintable(each));
        }
    }

    void unsavedChangesAreAskedAbout_data()
    {
        QTest::addColumn<QString>("answer");
        QTest::addColumn<bool>("isClosed");
        QTest::addColumn<bool>("isSaved");
        QTest::newRow("save") << QStringLiteral("&Save") << true << true;
        QTest::newRow("discard") << QStringLiteral("&Discard") << true << false;
        QTest::newRow("cancel") << QStringLiteral("Cancel") << false << false;
    }

    void unsavedChangesAreAskedAbout()
    {
        QFETCH(QString, answer);
        QFETCH(bool, isClosed);
        QFETCH(bool, isSaved);
        EditorWindow window(m_path);
        window.show();
        QTest::keyClicks(window.findChild<DeckEditor*>(), QStringLiteral("#"));
        BoxAnswerer box(BoxAnswerer::clicking(answer));
        QCOMPARE(window.close(), isClosed);
        QCOMPARE(contentOf(m_path), isSaved ? "#" + goodDeck : goodDeck);
        if (!isClosed) {
            discardChanges(window);
        }
    }

    void deckThatCannotBeEditedLeavesTheOldOne()
    {
        EditorWindow window(m_path);
        BoxAnswerer box(BoxAnswerer::clicking(QStringLiteral("OK")));
        QVERIFY(!window.openDeck(m_folder->path()));
        QVERIFY2(box.texts.value(0).contains(QStringLiteral("folder")),
                 qPrintable(box.texts.value(0)));
        QCOMPARE(window.findChild<DeckEditor*>()->toPlainText().toUtf8(), goodDeck);
    }

    void openedDecksAreRecentFilesAtTheNextStart()
    {
        {
            EditorWindow window(m_path);
            window.resize(640, 480);
            window.close();
        }
        const QByteArray settings =
            contentOf(m_folder->filePath(QStringLiteral("user/editkest.ini")));
        QVERIFY2(settings.contains("model.nec"), settings.constData());
    }

    void deckThatNobodyEditedIsSavedToTheByte()
    {
        const QByteArray odd = "CM \xa0 \xe4\r\nCE\nGW\t1   \r\n\n\nEN";
        write(m_path, odd);
        EditorWindow window(m_path);
        QVERIFY(window.save());
        QCOMPARE(contentOf(m_path), odd);
        QVERIFY(!window.isWindowModified());
    }

    void failedSaveLosesNothing()
    {
        EditorWindow window(m_path);
        auto* editor = window.findChild<DeckEditor*>();
        QTest::keyClicks(editor, QStringLiteral("CM new "));
        QVERIFY(QFile::remove(m_path));
        QVERIFY(QDir().mkpath(m_path)); // nothing can be written here
        BoxAnswerer box([](QMessageBox& each) {
            const QList<QAbstractButton*> buttons = each.buttons();
            for (QAbstractButton* const button : buttons) {
                if (button->text() == QStringLiteral("Yes") ||
                    button->text() == QStringLiteral("OK")) {
                    button->click();
                }
            }
        });
        QVERIFY(!window.save());
        QVERIFY2(box.texts.last().contains(QStringLiteral("cannot be written")),
                 qPrintable(box.texts.last()));
        QVERIFY(window.isWindowModified());
        QCOMPARE(editor->deck().toUtf8(), "CM new " + goodDeck);
        discardChanges(window);
    }

    void saveThatFailsAtTheEndKeepsTheWindowOpen()
    {
        EditorWindow window(m_path);
        window.show();
        QTest::keyClicks(window.findChild<DeckEditor*>(), QStringLiteral("#"));
        QVERIFY(QFile::remove(m_path));
        QVERIFY(QDir().mkpath(m_path));
        BoxAnswerer box([](QMessageBox& each) {
            const QList<QAbstractButton*> buttons = each.buttons();
            for (QAbstractButton* const button : buttons) {
                const QString text = button->text();
                if (text == QStringLiteral("&Save") || text == QStringLiteral("Yes") ||
                    text == QStringLiteral("OK")) {
                    button->click();
                }
            }
        });
        QVERIFY(!window.close());
        QVERIFY(window.isVisible());
        QVERIFY(window.isWindowModified());
        discardChanges(window);
    }

    void saveAsWritesAnotherFile()
    {
        EditorWindow window(m_path);
        auto* editor = window.findChild<DeckEditor*>();
        QTest::keyClicks(editor, QStringLiteral("#"));
        const QString other = m_folder->filePath(QStringLiteral("other.nec"));
        const FileChooser chooser(other);
        window.findChild<QAction*>(QStringLiteral("saveAsAction"))->trigger();
        QCOMPARE(contentOf(other), "#" + goodDeck);
        QCOMPARE(contentOf(m_path), goodDeck);
        QVERIFY(window.windowTitle().startsWith(QStringLiteral("other.nec (")));
        QTest::keyClicks(editor, QStringLiteral("#"));
        QVERIFY(window.save());
        QCOMPARE(contentOf(other), "##" + goodDeck);
    }

    void newModelAsksForItsFile()
    {
        EditorWindow window{QString()};
        QCOMPARE(window.windowTitle(), QStringLiteral("New model[*] - editkest"));
        QTest::keyClicks(window.findChild<DeckEditor*>(), QStringLiteral("EN"));
        {
            const FileChooser nothing{QString()};
            QVERIFY(!window.save());
            QVERIFY(window.isWindowModified());
        }
        const QString path = m_folder->filePath(QStringLiteral("new.nec"));
        const FileChooser chooser(path);
        QVERIFY(window.save());
        QCOMPARE(contentOf(path), QByteArray("EN"));
    }

    void undoAndRedoTellWhatIsSaved()
    {
        EditorWindow window(m_path);
        auto* editor = window.findChild<DeckEditor*>();
        QTest::keyClicks(editor, QStringLiteral("#"));
        window.findChild<QAction*>(QStringLiteral("undoAction"))->trigger();
        QCOMPARE(editor->deck().toUtf8(), goodDeck);
        QVERIFY(!window.isWindowModified());
        window.findChild<QAction*>(QStringLiteral("redoAction"))->trigger();
        QCOMPARE(editor->deck().toUtf8(), "#" + goodDeck);
        QVERIFY(window.isWindowModified());
        window.findChild<QAction*>(QStringLiteral("undoAction"))->trigger();
        window.findChild<QAction*>(QStringLiteral("undoAction"))->trigger();
        QCOMPARE(editor->deck().toUtf8(), goodDeck); // the deck's opening is not undone
    }

    void findingLeadsToItsLine()
    {
        write(m_path, QByteArray(goodDeck).replace("0.001", "zero").replace("XQ", "QX"));
        EditorWindow window(m_path);
        auto* list = window.findChild<QListWidget*>(QStringLiteral("findingList"));
        auto* editor = window.findChild<DeckEditor*>();
        QTRY_VERIFY(list->count() > 1);
        Q_EMIT list->itemActivated(list->item(0));
        QCOMPARE(editor->textCursor().blockNumber(), 2);
        QSet<int> lines;
        for (int i = 0; i < list->count(); ++i) {
            window.findChild<QAction*>(QStringLiteral("nextFindingAction"))->trigger();
            lines.insert(editor->textCursor().blockNumber() + 1);
        }
        QVERIFY(lines.contains(3) && lines.contains(7));
    }

    void droppedModelIsOpened()
    {
        EditorWindow window{QString()};
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(m_path)});
        QDragEnterEvent enter({9, 9}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&window, &enter);
        QVERIFY(enter.isAccepted());
        QDropEvent drop({9, 9}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&window, &drop);
        QCOMPARE(window.findChild<DeckEditor*>()->deck().toUtf8(), goodDeck);
    }

    void ofSeveralDroppedModelsTheFirstIsOpened()
    {
        EditorWindow window{QString()};
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(m_path), QUrl::fromLocalFile(m_path + QLatin1Char('2'))});
        QDragEnterEvent enter({9, 9}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&window, &enter);
        QDropEvent drop({9, 9}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&window, &drop);
        QCOMPARE(window.findChild<DeckEditor*>()->deck().toUtf8(), goodDeck);
        QCOMPARE(window.statusBar()->currentMessage(),
                 QStringLiteral("Of 2 models that were dropped, one was opened"));
    }

    void windowIsAsItWasAtTheNextStart()
    {
        {
            EditorWindow window{QString()};
            window.resize(655, 533);
            window.move(31, 47);
            window.close();
        }
        const EditorWindow window{QString()};
        QCOMPARE(window.size(), QSize(655, 533));
        QCOMPARE(window.pos(), QPoint(31, 47));
    }

    void f1ShowsItsPage_data()
    {
        QTest::addColumn<bool>("fromTheMenu");
        QTest::newRow("key") << false;
        QTest::newRow("menu") << true;
    }

    void f1ShowsItsPage()
    {
        QFETCH(bool, fromTheMenu);
        EditorWindow window(m_path);
        window.show();
        if (fromTheMenu) {
            window.findChild<QAction*>(QStringLiteral("helpAction"))->trigger();
        } else {
            QTest::keyClick(window.findChild<DeckEditor*>(), Qt::Key_F1);
        }
        const QString shown = shownHelpPage();
        QVERIFY2(shown.startsWith(QStringLiteral("The editor of models")),
                 qPrintable(shown.left(80)));
        for (const char* word : {"--non-interactive", "F8", "Ctrl+S", "Latin-1"}) {
            QVERIFY2(shown.contains(QLatin1String(word)), word);
        }
    }

    void aMillionLinesAreOpenedAndEditedInReasonableTime()
    {
        write(m_path, QByteArray("GW 1\n").repeated(1000000));
        const std::clock_t begin = std::clock();
        EditorWindow window(m_path);
        auto* editor = window.findChild<DeckEditor*>();
        QCOMPARE(editor->blockCount(), 1000001);
        QTest::keyClicks(editor, QStringLiteral("# "));
        QVERIFY(window.save());
        QCOMPARE(contentOf(m_path).left(8), QByteArray("# GW 1\nG"));
        const double seconds = static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
        QVERIFY2(seconds < 120, qPrintable(QString::number(seconds)));
    }

private:
    static void typeLine(DeckEditor* editor, const QString& line)
    {
        QTest::keyClicks(editor, line);
        QTest::keyClick(editor, Qt::Key_Return);
    }
};

QTEST_MAIN(tst_editkest)
#include "tst_editkest.moc"
