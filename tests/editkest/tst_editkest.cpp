#include "DeckEditor.h"
#include "EditorWindow.h"

#include <ApplicationIdentity.h>
#include <Services.h>

#include <BoxAnswerer.h>
#include <HelpPage.h>
#include <NativeRun.h>

#include <QAction>
#include <QDropEvent>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMimeData>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <ctime>

#include <sys/stat.h>

namespace {

const QByteArray goodDeck =
    QByteArrayLiteral("CM a dipole\nCE\nGW 1 21 0 0 -0.25 0 0 0.25 0.001\nGE 0\n"
                      "FR 0 1 0 0 300 0\nEX 0 1 11 0 1 0\nXQ\nEN\n");

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

// Types a file into the next file dialog; closes it when there is none.
class FileChooser
{
public:
    explicit FileChooser(const QString& path)
    {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this, path] {
            auto* const dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            if (dialog != nullptr) {
                m_timer.stop();
                dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(path);
                QMetaObject::invokeMethod(dialog, path.isEmpty() ? "reject" : "accept");
            }
        });
        m_timer.start(5);
    }

private:
    QTimer m_timer;
};

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

    // To look whether another program has changed it must not wait for the pipe's other end.
    void pipeInPlaceOfTheFileIsAChange()
    {
        EditorWindow window(m_path);
        QTest::keyClicks(window.findChild<DeckEditor*>(), QStringLiteral("#"));
        QVERIFY(QFile::remove(m_path));
        QCOMPARE(::mkfifo(m_path.toLocal8Bit().constData(), 0600), 0);
        const BoxAnswerer box(BoxAnswerer::clicking(QStringLiteral("No")));
        QVERIFY(!window.save());
        QCOMPARE(box.texts.size(), 1);
        discardChanges(window);
    }

    void namesThatLookLikeOptionsAreModels()
    {
        for (const char* const name : {"--help", "-np", "-style"}) {
            write(m_folder->filePath(QLatin1String(name)), goodDeck);
            QProcess process;
            process.setWorkingDirectory(m_folder->path());
            process.start(
                QStringLiteral(EDITKEST_PROGRAM),
                {QStringLiteral("--non-interactive"), QStringLiteral("--"), QLatin1String(name)});
            QVERIFY(process.waitForFinished());
            QCOMPARE(process.exitCode(), 0);
            QVERIFY(process.readAllStandardOutput().contains("NOTE 101"));
        }
    }

    void nameThatIsNoTextIsToldInTheTerminal()
    {
        const NativeRun run =
            NativeRun::of(QStringLiteral(EDITKEST_PROGRAM), {"--non-interactive", "caf\xe9.nec"},
                          m_folder->path(), QProcessEnvironment::systemEnvironment());
        QCOMPARE(run.exitCode, 1);
        QVERIFY2(run.output.contains("caf\\xE9.nec") && run.output.contains("is not UTF-8"),
                 run.output.constData());
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

    void badModelsAreToldWithoutAWindow_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("text");
        // clang-format off
        QTest::newRow("missing")   << QStringLiteral("none.nec") << QByteArray()                        << QStringLiteral("there is no such model file");
        QTest::newRow("folder")    << QStringLiteral(".")        << QByteArray()                        << QStringLiteral("is a directory");
        QTest::newRow("empty")     << QStringLiteral("bad.nec")  << QByteArray("")                      << QStringLiteral("holds no card");
        QTest::newRow("binary")    << QStringLiteral("bad.nec")  << QByteArray("CM\0\x01", 4)           << QStringLiteral("binary data");
        QTest::newRow("long line") << QStringLiteral("bad.nec")  << QByteArray(3000000, 'x')            << QStringLiteral("line has 3000000 bytes");
        QTest::newRow("many")      << QStringLiteral("bad.nec")  << QByteArray("XX\n").repeated(1000000) << QStringLiteral("further errors are not listed");
        // clang-format on
    }

    void badModelsAreToldWithoutAWindow()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, content);
        QFETCH(QString, text);
        if (!content.isNull()) {
            write(m_folder->filePath(name), content);
        }
        QProcess process;
        process.setWorkingDirectory(m_folder->path());
        process.start(QStringLiteral(EDITKEST_PROGRAM),
                      {QStringLiteral("--non-interactive"), name, QStringLiteral("model")});
        QVERIFY(process.waitForFinished(120000));
        const QString output = QString::fromUtf8(process.readAllStandardOutput());
        QVERIFY2(output.contains(QStringLiteral("-*-error-*-")) && output.contains(text),
                 qPrintable(output.left(500)));
        QVERIFY(output.contains(QStringLiteral("-*-notice-*-"))); // the good one is checked, too
        QCOMPARE(process.exitCode(), 1);
    }

    void commandLinesThatMeanNothingAreRefused_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<QString>("text");
        // clang-format off
        QTest::newRow("two models") << QStringList{QStringLiteral("a"), QStringLiteral("b")} << 2 << QStringLiteral("one model at a time");
        QTest::newRow("option")     << QStringList{QStringLiteral("--wrong")}                << 2 << QStringLiteral("wrong");
        QTest::newRow("help")       << QStringList{QStringLiteral("--help")}                 << 0 << QStringLiteral("--non-interactive");
        QTest::newRow("version")    << QStringList{QStringLiteral("--version")}              << 0 << QStringLiteral("editkest ");
        // clang-format on
    }

    void commandLinesThatMeanNothingAreRefused()
    {
        QFETCH(QStringList, arguments);
        QFETCH(int, exitCode);
        QFETCH(QString, text);
        QProcess process;
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(QStringLiteral(EDITKEST_PROGRAM), arguments);
        QVERIFY(process.waitForFinished(60000));
        const QString output = QString::fromUtf8(process.readAll());
        QVERIFY2(output.contains(text), qPrintable(output));
        QCOMPARE(process.exitCode(), exitCode);
    }

    void modelWithBlanksInItsPathIsOpened_data()
    {
        QTest::addColumn<QString>("argument");
        QTest::newRow("whole name") << QStringLiteral("my models/a [*] dipole.nec");
        QTest::newRow("without suffix") << QStringLiteral("my models/a [*] dipole");
    }

    void modelWithBlanksInItsPathIsOpened()
    {
        QFETCH(QString, argument);
        QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("my models")));
        write(m_folder->filePath(QStringLiteral("my models/a [*] dipole.nec")), goodDeck);
        EditorWindow window(m_folder->filePath(argument));
        auto* editor = window.findChild<DeckEditor*>();
        QCOMPARE(editor->deck().toUtf8(), goodDeck);
        QCOMPARE(window.windowTitle(), QStringLiteral("a [*][*] dipole.nec[*] - editkest"));
        QTest::keyClicks(editor, QStringLiteral("#"));
        QVERIFY(window.save());
        QCOMPARE(contentOf(m_folder->filePath(QStringLiteral("my models/a [*] dipole.nec"))),
                 "#" + goodDeck);
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
        QCOMPARE(window.windowTitle(), QStringLiteral("other.nec[*] - editkest"));
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
        data.setUrls({QUrl::fromLocalFile(m_path), QUrl::fromLocalFile(m_path)});
        QDragEnterEvent two({9, 9}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        two.ignore();
        QCoreApplication::sendEvent(&window, &two);
        QVERIFY(!two.isAccepted());
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
