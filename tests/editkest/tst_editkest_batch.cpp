// SPDX-License-Identifier: MIT
#include "DeckEditor.h"
#include "EditorStage.h"
#include "EditorWindow.h"

#include <BoxAnswerer.h>
#include <NativeRun.h>
#include <SpecialFile.h>
#include <SystemSkips.h>

#include <QFile>
#include <QProcess>
#include <QtTest>

// The editor from a command line: without a window it checks a deck, and says what is wrong with
// it. And changes of the file by other programs.
class tst_editkest_batch : public QObject, protected EditorStage
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }

    void cleanup() { m_services.reset(); }

    // To look whether another program has changed it must not wait for the pipe's other end.
    void pipeInPlaceOfTheFileIsAChange()
    {
        EditorWindow window(m_path);
        QTest::keyClicks(window.findChild<DeckEditor*>(), QStringLiteral("#"));
        QVERIFY(QFile::remove(m_path));
        SPECIAL_FILE_OR_SKIP(S_IFIFO, m_path);
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
        SKIP_WITHOUT_BYTES_IN_NAMES();
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

    void withoutAWindowTheDeckIsChecked_data()
    {
        QTest::addColumn<QByteArray>("deck");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<QByteArray>("text");
        QTest::newRow("good") << goodDeck << 0 << QByteArray("-*-notice-*-");
        QTest::newRow("bad") << QByteArray(goodDeck).replace("0.001", "zero") << 1
                             << QByteArray("-*-error-*-ERROR 2104: field ");
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
        QTest::newRow("line 0")     << QStringList{QStringLiteral("--line"), QStringLiteral("0"), QStringLiteral("a")} << 2 << QStringLiteral("not '0'");
        QTest::newRow("no number")  << QStringList{QStringLiteral("--line"), QStringLiteral("x"), QStringLiteral("a")} << 2 << QStringLiteral("not 'x'");
        QTest::newRow("line alone") << QStringList{QStringLiteral("--line"), QStringLiteral("7")} << 2 << QStringLiteral("--line needs a model");
        QTest::newRow("line without a window") << QStringList{QStringLiteral("--non-interactive"), QStringLiteral("--line"), QStringLiteral("7"), QStringLiteral("a")} << 2 << QStringLiteral("--line is for the window");
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
        SKIP_WITHOUT_ALL_CHARACTERS_IN_NAMES();
        QFETCH(QString, argument);
        QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("my models")));
        write(m_folder->filePath(QStringLiteral("my models/a [*] dipole.nec")), goodDeck);
        EditorWindow window(m_folder->filePath(argument));
        auto* editor = window.findChild<DeckEditor*>();
        QCOMPARE(editor->deck().toUtf8(), goodDeck);
        QVERIFY(window.windowTitle().startsWith(QStringLiteral("a [*][*] dipole.nec (")));
        QVERIFY(window.windowTitle().endsWith(QStringLiteral("my models)[*] - editkest")));
        QTest::keyClicks(editor, QStringLiteral("#"));
        QVERIFY(window.save());
        QCOMPARE(contentOf(m_folder->filePath(QStringLiteral("my models/a [*] dipole.nec"))),
                 "#" + goodDeck);
    }
};

QTEST_MAIN(tst_editkest_batch)
#include "tst_editkest_batch.moc"
