#include <NativeRun.h>
#include <TerminalRun.h>

#include <QDir>
#include <QImage>
#include <QPainter>
#include <QProcess>
#include <QSvgRenderer>
#include <QTemporaryDir>
#include <QtTest>

#ifdef Q_OS_UNIX
#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace {

const QByteArray header = QByteArrayLiteral("frequency_MHz,resistance_ohm,reactance_ohm,swr\n");

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

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

struct Answer
{
    int exitCode = -1;
    QString output;
    QString errors;
};

// A program that may write only so many bytes into a file, or that is no superuser's.
class LimitedProcess : public QProcess
{
public:
    qint64 mostBytes = 0;
    bool isOrdinaryUser = false;

protected:
    void setupChildProcess() override
    {
#ifdef Q_OS_UNIX
        if (mostBytes > 0) {
            const rlimit tight = {static_cast<rlim_t>(mostBytes), static_cast<rlim_t>(mostBytes)};
            std::signal(SIGXFSZ, SIG_DFL); // as at a shell
            ::setrlimit(RLIMIT_FSIZE, &tight);
        }
        if (isOrdinaryUser && ::geteuid() == 0 && ::setuid(65534) != 0) {
            ::_exit(99);
        }
#endif
    }
};

const QColor firstColour(0, 114, 178);
const QColor secondColour(213, 94, 0);

} // namespace

// The charts of results without a window, and what becomes of bad ones.
class tst_postkest : public QObject
{
    Q_OBJECT

private:
    Answer run(const QStringList& arguments, qint64 mostBytes = 0, bool isOrdinaryUser = false)
    {
        LimitedProcess process;
        process.mostBytes = mostBytes;
        process.isOrdinaryUser = isOrdinaryUser;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(text("QT_QPA_PLATFORM"), text("xcb"));
        environment.insert(text("DISPLAY"), text(":9999")); // none is needed
        environment.insert(text("XDG_RUNTIME_DIR"), path("."));
        environment.insert(text("KEST_USER_HOME"), path("."));
        process.setProcessEnvironment(environment);
        process.setWorkingDirectory(m_folder->path());
        process.start(text(POSTKEST), arguments);
        if (!process.waitForFinished(240000) || process.exitStatus() != QProcess::NormalExit) {
            return Answer();
        }
        return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
                QString::fromUtf8(process.readAllStandardError())};
    }

    Answer batch(const QStringList& arguments)
    {
        return run(QStringList{text("--non-interactive")} + arguments);
    }

    QString path(const char* name) const { return m_folder->filePath(text(name)); }

    void write(const char* name, const QByteArray& content)
    {
        QFile file(path(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(content), content.size());
    }

    QStringList files() const
    {
        return QDir(m_folder->path()).entryList(QDir::Files | QDir::System);
    }

    std::unique_ptr<QTemporaryDir> m_folder;

private Q_SLOTS:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        write("first run.csv", header + "100,10,-50,5\n200,70,0,1.4\n300,90,60,2\n");
        write("second.csv", header + "150,20,-20,8\n250,80,20,1.5\n");
    }

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
        QCOMPARE(countOf(image, secondColour), 0);
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
        QVERIFY(countOf(image, secondColour) > 150);
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
        QVERIFY(countOf(image, secondColour) > 100);
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

    void badResultsAreToldAndNothingIsWritten_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("reason");
        // clang-format off
        QTest::newRow("missing")       << text("none.csv")  << QByteArray()                   << text("none.csv: No such file");
        QTest::newRow("folder")        << text(".")         << QByteArray()                   << text("it is a folder");
        QTest::newRow("no name")       << text("")          << QByteArray()                   << text("no file is named");
        QTest::newRow("empty")         << text("bad.csv")   << QByteArray("")                 << text("bad.csv: it is no table of results");
        QTest::newRow("header only")   << text("bad.csv")   << header                         << text("it holds no results");
        QTest::newRow("other columns") << text("bad.csv")   << QByteArray("f,r\n1,2\n")       << text("its first line should be");
        QTest::newRow("words")         << text("bad.csv")   << header + "ten,1,2,3\n"         << text("line 2 is no result: \"ten,1,2,3\"");
        QTest::newRow("nan")           << text("bad.csv")   << header + "nan,1,2,3\n"         << text("line 2 is no result");
        QTest::newRow("inf")           << text("bad.csv")   << header + "1,1,1,1\ninf,1,2,3"  << text("line 3 is no result");
        QTest::newRow("cut line")      << text("bad.csv")   << header + "1,1,1,1\n2,1"        << text("line 3 is no result: \"2,1\"");
        // clang-format on
    }

    void badResultsAreToldAndNothingIsWritten()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, content);
        QFETCH(QString, reason);
        if (name == text("bad.csv")) {
            write("bad.csv", content);
        }
        write("out.png", "old picture");
        const QStringList before = files();
        const Answer answer = batch({text("second.csv"), name, text("--output"), text("out.png")});
        QCOMPARE(answer.exitCode, 1);
        QVERIFY2(answer.errors.startsWith(text("postkest: ")) && answer.errors.contains(reason),
                 qPrintable(answer.errors));
        QCOMPARE(answer.output, QString());
        QCOMPARE(contentOf(path("out.png")), QByteArray("old picture"));
        QCOMPARE(files(), before);
    }

#ifdef Q_OS_UNIX
    void pipeIsNotWaitedFor()
    {
        QCOMPARE(::mkfifo(path("pipe.csv").toLocal8Bit().constData(), 0600), 0);
        const Answer answer = batch({text("pipe.csv")});
        QCOMPARE(answer.exitCode, 1);
        QVERIFY2(answer.errors.contains(text("not a regular file")), qPrintable(answer.errors));
    }

    void unreadableResultAndUnwritableFolderAreTold()
    {
        QVERIFY(QFile::setPermissions(m_folder->path(), QFile::Permissions(0x7755)));
        QVERIFY(QFile::setPermissions(path("second.csv"), QFile::WriteOwner));
        const Answer unreadable = run({text("--non-interactive"), text("second.csv")}, 0, true);
        QCOMPARE(unreadable.exitCode, 1);
        QVERIFY2(unreadable.errors.contains(text("Permission denied")),
                 qPrintable(unreadable.errors));

        QVERIFY(QDir(m_folder->path()).mkdir(text("closed")));
        QVERIFY(QFile::setPermissions(path("closed"), QFile::ReadOwner | QFile::ExeOwner));
        const Answer unwritable = run({text("--non-interactive"), text("first run.csv"),
                                       text("--output"), text("closed/a.png")},
                                      0, true);
        QCOMPARE(unwritable.exitCode, 1);
        QVERIFY2(unwritable.errors.contains(text("closed/a.png cannot be written")),
                 qPrintable(unwritable.errors));
    }

    void fullDiskKeepsTheOldFile()
    {
        for (const char* name : {"out.png", "out.svg", "out.csv"}) {
            write(name, "old");
            const QStringList before = files();
            const Answer answer = run({text("--non-interactive"), text("first run.csv"),
                                       text("second.csv"), text("--output"), text(name)},
                                      100);
            QCOMPARE(answer.exitCode, 1);
            QVERIFY2(
                answer.errors.contains(text(name) + text(" cannot be written: File too large")),
                qPrintable(answer.errors));
            QCOMPARE(contentOf(path(name)), QByteArray("old"));
            QCOMPARE(files(), before);
        }
    }

    void pipeIsNotReplacedByAFile()
    {
        QCOMPARE(::mkfifo(path("pipe").toLocal8Bit().constData(), 0600), 0);
        QVERIFY(QFile::link(path("pipe"), path("link.csv")));
        const Answer answer = batch({text("second.csv"), text("--output"), text("link.csv")});
        QCOMPARE(answer.exitCode, 1);
        QVERIFY2(answer.errors.contains(text("not a regular file")), qPrintable(answer.errors));
        struct stat state = {};
        QCOMPARE(::stat(path("pipe").toLocal8Bit().constData(), &state), 0);
        QVERIFY(S_ISFIFO(state.st_mode));
    }
#endif

    void resultsOfOtherRunsAreNotOverwritten()
    {
        for (const char* target : {"first run.csv", "./first run.csv"}) {
            const QByteArray before = contentOf(path(target));
            const Answer answer = batch({text("second.csv"), text("--output"), text(target)});
            QCOMPARE(answer.exitCode, 1);
            QVERIFY2(answer.errors.contains(text("is not overwritten")), qPrintable(answer.errors));
            QCOMPARE(contentOf(path(target)), before);
        }
        // A table of several results is none of a run.
        QCOMPARE(batch({text("second.csv"), text("--output"), text("table.csv")}).exitCode, 0);
        QCOMPARE(batch({text("first run.csv"), text("--output"), text("table.csv")}).exitCode, 0);
        QVERIFY(contentOf(path("table.csv")).contains("\"first run\""));
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

    void resultsAreNotOverwritten()
    {
        const QByteArray before = contentOf(path("second.csv"));
        QVERIFY(QFile::link(path("second.csv"), path("link.csv")));
        for (const char* target : {"second.csv", "./second.csv", "link.csv"}) {
            const Answer answer =
                batch({text("first run.csv"), text("second.csv"), text("--output"), text(target)});
            QCOMPARE(answer.exitCode, 1);
            QVERIFY2(answer.errors.contains(text("not overwritten")), qPrintable(answer.errors));
            QCOMPARE(contentOf(path("second.csv")), before);
        }
        const Answer linked = batch({text("link.csv"), text("--output"), text("second.csv")});
        QCOMPARE(linked.exitCode, 1);
        QCOMPARE(contentOf(path("second.csv")), before);
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
