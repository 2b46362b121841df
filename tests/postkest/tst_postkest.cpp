// SPDX-License-Identifier: MIT
#include "PostkestRun.h"

#include <NativeRun.h>
#include <TerminalRun.h>

#include <common_Contrast.h>

#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <QtTest>

namespace {

// Counts pixels of about one colour.
int countOf(const QImage& image, const QColor& colour)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor pixel = image.pixelColor(x, y);
            count += qAbs(pixel.red() - colour.red()) < 8 &&
                             qAbs(pixel.green() - colour.green()) < 8 &&
                             qAbs(pixel.blue() - colour.blue()) < 8
                         ? 1
                         : 0;
        }
    }
    return count;
}

const QColor firstColour(0, 114, 178);

// Orange would be too pale on white.
QColor secondColour()
{
    return common_Contrast::readable(QColor(213, 94, 0), Qt::white);
}

} // namespace

// The charts of results without a window.
class tst_postkest : public QObject, protected PostkestRun
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }

    void chartIsWrittenBesideTheResult()
    {
        const Answer answer = batch({text("first run.csv")});
        QCOMPARE(answer.errors, QString());
        QCOMPARE(answer.exitCode, 0);
        QVERIFY2(answer.output.contains(text("first run.png")), qPrintable(answer.output));
        QCOMPARE(files(),
                 (QStringList{text("first run.csv"), text("first run.png"), text("second.csv")}));
        const QImage image(path("first run.png"));
        QCOMPARE(image.size(), QSize(1000, 900));
        QVERIFY(countOf(image, firstColour) > 500);
        QCOMPARE(countOf(image, secondColour()), 0);
    }

    void severalRunsAreOverlaid()
    {
        const Answer answer = batch({text("first run.csv"), text("second.csv"), text("--output"),
                                     text("both.png"), text("--size"), text("600x500")});
        QCOMPARE(answer.errors, QString());
        QCOMPARE(answer.exitCode, 0);
        const QImage image(path("both.png"));
        QCOMPARE(image.width(), 600);
        QCOMPARE(image.height(), 500);
        QVERIFY(countOf(image, firstColour) > 300);
        QVERIFY(countOf(image, secondColour()) > 150);
        QCOMPARE(image.pixelColor(1, 1), QColor(Qt::white));
    }

    void drawingCanBeDrawnAgain()
    {
        const Answer answer =
            batch({text("first run.csv"), text("second.csv"), text("--output"), text("both.svg")});
        QCOMPARE(answer.errors, QString());
        QCOMPARE(answer.exitCode, 0);
        QSvgRenderer renderer(path("both.svg"));
        QVERIFY(renderer.isValid());
        QImage image(renderer.defaultSize(), QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        renderer.render(&painter);
        QVERIFY(countOf(image, firstColour) > 200);
        QVERIFY(countOf(image, secondColour()) > 100);
        const QByteArray bytes = contentOf(path("both.svg"));
        for (const char* word : {"Resistance", "Reactance", "SWR", "Frequency / MHz", "second"}) {
            QVERIFY2(bytes.contains(word), word);
        }
    }

    void tableHoldsAllRuns()
    {
        const Answer answer =
            batch({text("second.csv"), text("first run.csv"), text("--output"), text("all.csv")});
        QCOMPARE(answer.errors, QString());
        QCOMPARE(answer.exitCode, 0);
        QCOMPARE(contentOf(path("all.csv")),
                 QByteArray("result,frequency_MHz,resistance_ohm,reactance_ohm,swr\n"
                            "\"second\",150,20,-20,8\n\"second\",250,80,20,1.5\n"
                            "\"first run\",100,10,-50,5\n\"first run\",200,70,0,1.4\n"
                            "\"first run\",300,90,60,2\n"));
    }

    void namesThatLookLikeOptionsAreResults()
    {
        for (const char* name : {"--help", "-style", "--output"}) {
            write(name, contentOf(path("second.csv")));
            const Answer answer =
                batch({text("--output"), text("out.csv"), text("--"), text(name)});
            QCOMPARE(answer.errors, QString());
            QCOMPARE(answer.exitCode, 0);
            QVERIFY(contentOf(path("out.csv")).contains('"' + QByteArray(name) + '"'));
        }
    }

    void namesCannotTurnTheTerminal()
    {
        const QString name = text("left\u202egnp.csv");
        const Answer answer = batch({name});
        QCOMPARE(answer.exitCode, 1);
        QVERIFY2(answer.errors.startsWith(text("postkest: left<U+202E>gnp.csv: ")),
                 qPrintable(answer.errors));
        // Scripts take the name of what was written.
        write("left\u202egnp.csv", contentOf(path("second.csv")));
        QCOMPARE(batch({name}).output, text("./left\u202egnp.png\n"));
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(text("LC_ALL"), text("C.UTF-8"));
        environment.insert(text("KEST_USER_HOME"), path("."));
        const TerminalRun run =
            TerminalRun::of(text(POSTKEST), {text("--non-interactive"), m_folder->filePath(name)},
                            environment.toStringList());
        QCOMPARE(run.exitCode, 0);
        QVERIFY2(run.output.contains("left<U+202E>gnp.png"), run.output.constData());
    }

    void nameThatIsNoTextIsTold()
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(text("XDG_RUNTIME_DIR"), path("."));
        const NativeRun run = NativeRun::of(text(POSTKEST), {"--non-interactive", "caf\xe9.csv"},
                                            m_folder->path(), environment);
        QCOMPARE(run.exitCode, 1);
        QVERIFY2(run.errors.startsWith("postkest: caf\\xE9.csv: ") &&
                     run.errors.contains("is not UTF-8; rename it"),
                 run.errors.constData());
    }

    void commandLineThatMeansNothingIsRefused_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("reason");
        // clang-format off
        QTest::newRow("no result")      << QStringList{text("--non-interactive")} << text("no result given");
        QTest::newRow("unknown option") << QStringList{text("--non-interactive"), text("--wrong"), text("a.csv")} << text("wrong");
        QTest::newRow("size of words")  << QStringList{text("--non-interactive"), text("second.csv"), text("--size"), text("big")} << text("\"big\" is no size");
        QTest::newRow("window's file")  << QStringList{text("second.csv"), text("--output"), text("a.png")} << text("--output needs --non-interactive");
        QTest::newRow("window's size")  << QStringList{text("second.csv"), text("--size"), text("500x500")} << text("--size needs --non-interactive");
        QTest::newRow("too small")      << QStringList{text("--non-interactive"), text("second.csv"), text("--size"), text("99x500")} << text("is no size");
        QTest::newRow("too large")      << QStringList{text("--non-interactive"), text("second.csv"), text("--size"), text("500x10001")} << text("is no size");
        // clang-format on
    }

    void commandLineThatMeansNothingIsRefused()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, reason);
        const Answer answer = run(arguments);
        QCOMPARE(answer.exitCode, 2);
        QVERIFY2(answer.errors.contains(reason), qPrintable(answer.errors));
        QVERIFY(answer.errors.contains(text("--help")));
        QCOMPARE(files().size(), 2);
    }

    void formatThatIsNotKnownIsRefused()
    {
        const Answer answer = batch({text("second.csv"), text("--output"), text("a.pdf")});
        QCOMPARE(answer.exitCode, 1);
        QVERIFY2(answer.errors.contains(text("a.pdf is neither .png nor .svg nor .csv")),
                 qPrintable(answer.errors));
        QVERIFY(!QFile::exists(path("a.pdf")));
    }

    void helpAndVersionNeedNoDisplay()
    {
        const Answer help = run({text("--help")});
        QCOMPARE(help.exitCode, 0);
        QVERIFY(help.output.contains(text("--non-interactive")) &&
                help.output.contains(text("Exit code")));
        const Answer version = run({text("--version")});
        QCOMPARE(version.exitCode, 0);
        QVERIFY(version.output.startsWith(text("postkest ")));
    }

    void aMillionLinesAreDrawnInReasonableTime()
    {
        QByteArray table = header;
        for (int i = 1; i <= 1000000; ++i) {
            table += QByteArray::number(i) + ",50.5,-3.25,1.5\n";
        }
        write("long.csv", table);
        QElapsedTimer timer;
        timer.start();
        const Answer answer = batch({text("long.csv")});
        QCOMPARE(answer.errors, QString());
        QCOMPARE(answer.exitCode, 0);
        QVERIFY2(timer.elapsed() < 120000, qPrintable(QString::number(timer.elapsed())));
        QVERIFY(countOf(QImage(path("long.png")), firstColour) > 500);
    }
};

QTEST_MAIN(tst_postkest)
#include "tst_postkest.moc"
