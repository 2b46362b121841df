#include "DeckEditor.h"
#include "EditorWindow.h"

#include <ApplicationIdentity.h>
#include <Services.h>

#include <BoxAnswerer.h>
#include <QAction>
#include <QFile>
#include <QLabel>
#include <QListWidget>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

namespace {

const QByteArray goodDeck = "CM a dipole\nCE\nGW 1 21 0 0 -0.25 0 0 0.25 0.001\nGE 0\n"
                            "FR 0 1 0 0 300 0\nEX 0 1 11 0 1 0\nXQ\nEN\n";

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void write(const QString& path, const QByteArray& content)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
}

} // namespace

// The editor as a person uses it, and without a window.
class tst_editkest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        m_path = m_folder->filePath(QStringLiteral("model.nec"));
        qputenv("KEST_USER_HOME", m_folder->filePath(QStringLiteral("user")).toLocal8Bit());
        qputenv("KEST_HOME", EDITKEST_SUITE);
        QVERIFY(QDir().mkpath(m_folder->filePath(QStringLiteral("user"))));
        m_services = std::make_unique<Services>(
            ApplicationIdentity{QStringLiteral("editkest"), QString()}, false);
        write(m_path, goodDeck);
    }

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
        QVERIFY2(list->item(0)->text().startsWith(QStringLiteral("line 3: ")),
                 qPrintable(list->item(0)->text()));
        editor->moveCursor(QTextCursor::End);
        window.findChild<QAction*>(QStringLiteral("nextFindingAction"))->trigger();
        QCOMPARE(editor->textCursor().blockNumber(), 2);
        discardChanges(window);
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

    void changesOfAnotherProgramAreNotOverwrittenUnasked()
    {
        EditorWindow window(m_path);
        auto* editor = window.findChild<DeckEditor*>();
        QTest::keyClicks(editor, QStringLiteral("#"));
        write(m_path, "other\n");
        {
            BoxAnswerer box(BoxAnswerer::clicking(QStringLiteral("No")));
            QVERIFY(!window.save());
            QVERIFY2(box.texts.value(0).contains(QStringLiteral("another program")),
                     qPrintable(box.texts.value(0)));
        }
        QCOMPARE(contentOf(m_path), QByteArray("other\n"));
        QVERIFY(window.isWindowModified());
        BoxAnswerer box(BoxAnswerer::clicking(QStringLiteral("Yes")));
        QVERIFY(window.save());
        QCOMPARE(contentOf(m_path), "#" + goodDeck);
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

    void withoutAWindowTheDeckIsChecked_data()
    {
        QTest::addColumn<QByteArray>("deck");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<QByteArray>("text");
        QTest::newRow("good") << goodDeck << 0 << QByteArray("-*-notice-*-");
        QTest::newRow("bad") << QByteArray(goodDeck).replace("0.001", "zero") << 1
                             << QByteArray("-*-error-*-ERROR 2104: model.nec:3:");
    }

    void withoutAWindowTheDeckIsChecked()
    {
        QFETCH(QByteArray, deck);
        QFETCH(int, exitCode);
        QFETCH(QByteArray, text);
        write(m_path, deck);
        QProcess process;
        process.start(QStringLiteral(EDITKEST_PROGRAM),
                      {m_path, QStringLiteral("--non-interactive")});
        QVERIFY(process.waitForFinished(60000));
        const QByteArray output = process.readAllStandardOutput();
        QVERIFY2(output.contains(text), output.constData());
        QCOMPARE(process.exitCode(), exitCode);
    }

    void withoutAWindowAModelIsNeeded()
    {
        QProcess process;
        process.start(QStringLiteral(EDITKEST_PROGRAM), {QStringLiteral("--non-interactive")});
        QVERIFY(process.waitForFinished(60000));
        QCOMPARE(process.exitCode(), 2);
        QVERIFY(process.readAllStandardError().contains("no model"));
    }

private:
    static void typeLine(DeckEditor* editor, const QString& line)
    {
        QTest::keyClicks(editor, line);
        QTest::keyClick(editor, Qt::Key_Return);
    }

    static void discardChanges(EditorWindow& window)
    {
        window.findChild<DeckEditor*>()->document()->setModified(false);
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<Services> m_services;
    QString m_path;
};

QTEST_MAIN(tst_editkest)
#include "tst_editkest.moc"
