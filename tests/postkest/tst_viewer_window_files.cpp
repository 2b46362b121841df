// SPDX-License-Identifier: MIT
#include "HardLink.h"
#include "ViewerStage.h"
#include "missingFileReason.h"

#include <BoxAnswerer.h>
#include <SystemSkips.h>

#include <QAction>
#include <QStatusBar>
#include <QtTest>

// The window follows the files of results, and never writes over one.
class tst_viewer_window_files : public QObject, protected ViewerStage
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }

    void cleanup() { tearDown(); }

    void newResultsOfARunAreShown_data()
    {
        QTest::addColumn<bool>("isReplaced");
        QTest::newRow("replaced by a new file") << true;
        QTest::newRow("written over") << false;
    }

    void newResultsOfARunAreShown()
    {
        QFETCH(bool, isReplaced);
        open({path("second.csv")});
        for (int end = 400; end < 403; ++end) {
            const QByteArray table = header + "100,1,2,3\n" + QByteArray::number(end) + ",2,3,4\n";
            if (isReplaced) {
                replace("second.csv", table);
            } else {
                write("second.csv", table);
            }
            QTRY_COMPARE(lastPoint(), QPointF(end, 2));
        }
        QVERIFY(m_window->statusBar()->currentMessage().contains(QStringLiteral("second")));
    }

    // The curves are those of the last whole table, or none with the reason: never half of one.
    void fileThatIsBeingWrittenIsShownOnceItIsWhole()
    {
        open({path("second.csv")});
        QFile file(path("second.csv"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(header + "100,1,2,3\n200,5");
        QVERIFY(file.flush());
        QTRY_VERIFY(list()->item(0)->toolTip().contains(QStringLiteral("line 3 is no result")));
        QCOMPARE(curveCount(), 0);
        file.write("5,6,7\n");
        file.close();
        QTRY_COMPARE(lastPoint(), QPointF(200, 55));
        QVERIFY(!list()->item(0)->toolTip().contains(QStringLiteral("line 3")));
    }

    void deletedResultComesBackWithTheNextRun()
    {
        open({path("first run.csv"), path("second.csv")});
        QVERIFY(QFile::remove(path("second.csv")));
        QTRY_VERIFY(list()->item(1)->toolTip().contains(missingFileReason()));
        QCOMPARE(curveCount(), 1);
        write("second.csv", header + "100,1,2,3\n500,5,6,7\n");
        QTRY_COMPARE(curveCount(), 2);
    }

    void reloadReadsAllAnew()
    {
        open({path("first run.csv"), path("second.csv")});
        replace("second.csv", header + "100,1,2,3\n777,2,3,4\n");
        QTest::keyClick(m_window.get(), Qt::Key_F5);
        QCOMPARE(lastPoint(), QPointF(777, 2));
    }

    void exportWritesWhatIsDrawn()
    {
        open({path("first run.csv"), path("second.csv")});
        list()->item(0)->setCheckState(Qt::Unchecked);
        const FileChooser chooser(path("table.csv"));
        action("exportAction")->trigger();
        QCOMPARE(chooser.folder, QDir(m_folder->path()).absolutePath());
        const QByteArray table = contentOf(path("table.csv"));
        QVERIFY(table.contains("\"second\",250"));
        QVERIFY(!table.contains("first"));
        QVERIFY(m_window->statusBar()->currentMessage().contains(QStringLiteral("table.csv")));
        const FileChooser picture(path("charts.png"));
        action("exportAction")->trigger();
        QVERIFY(QImage(path("charts.png")).width() > 300);
    }

    void exportThatFailsIsTold()
    {
        open({path("second.csv")});
        const QByteArray before = contentOf(path("second.csv"));
        BoxAnswerer box(BoxAnswerer::clicking(QStringLiteral("OK")));
        const FileChooser format(path("table.pdf"));
        action("exportAction")->trigger();
        QVERIFY2(box.texts.join(QLatin1Char('|')).contains(QStringLiteral("neither .png")),
                 qPrintable(box.texts.join(QLatin1Char('|'))));
        QCOMPARE(contentOf(path("second.csv")), before);
        QVERIFY(!QFile::exists(path("table.pdf")));
    }

    void exportNeverReplacesAResult_data()
    {
        QTest::addColumn<QString>("target");
        QTest::newRow("ticked") << QStringLiteral("second.csv");
        QTest::newRow("not ticked") << QStringLiteral("first run.csv");
        QTest::newRow("other spelling") << QStringLiteral("./inner/../first run.csv");
        QTest::newRow("link") << QStringLiteral("link.csv");
        QTest::newRow("hard link") << QStringLiteral("hard.csv");
        QTest::newRow("folder's link") << QStringLiteral("inner/up/first run.csv");
        QTest::newRow("not readable as a result") << QStringLiteral("bad.csv");
        QTest::newRow("not there now") << QStringLiteral("gone.csv");
        QTest::newRow("not opened") << QStringLiteral("third.csv");
    }

    void exportNeverReplacesAResult()
    {
        QFETCH(QString, target);
        const bool hasLinks =
            target.startsWith(QLatin1String("link")) || target.contains(QLatin1String("/up/"));
        if (hasLinks) {
            SKIP_WITHOUT_SYMBOLIC_LINKS();
        }
        write("bad.csv", "frequency_MHz\nnothing");
        write("third.csv", header + "1,1,1,1\n");
        write("gone.csv", header + "1,1,1,1\n");
        QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("inner")));
        if (hasLinks) {
            QVERIFY(QFile::link(path("first run.csv"), path("link.csv")));
            QVERIFY(QFile::link(m_folder->path(), path("inner/up")));
        }
        QVERIFY(HardLink::make(path("first run.csv"), path("hard.csv")));
        open({path("first run.csv"), path("second.csv"), path("bad.csv"), path("gone.csv")});
        list()->item(0)->setCheckState(Qt::Unchecked);
        QVERIFY(QFile::remove(path("gone.csv")));
        const QString file = m_folder->filePath(target);
        const QByteArray before = contentOf(file);
        BoxAnswerer box([](QMessageBox& question) {
            // The dialog's own question, whether to replace the file, comes first.
            QAbstractButton* const yes = question.button(QMessageBox::Yes);
            (yes != nullptr ? yes : question.button(QMessageBox::Ok))->click();
        });
        const FileChooser chooser(file);
        action("exportAction")->trigger();
        QCOMPARE(contentOf(file), before);
        QVERIFY2(box.texts.join(QLatin1Char('|')).contains(QStringLiteral("is not overwritten")),
                 qPrintable(box.texts.join(QLatin1Char('|'))));
        QCOMPARE(QFileInfo(path("link.csv")).isSymLink(), hasLinks);
    }
};

QTEST_MAIN(tst_viewer_window_files)
#include "tst_viewer_window_files.moc"
