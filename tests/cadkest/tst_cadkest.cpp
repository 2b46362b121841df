// SPDX-License-Identifier: MIT
#include <NativeRun.h>
#include <SystemSkips.h>
#include <Text.h>
#include <UnixLines.h>

#include <QDir>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

namespace {

struct Result
{
    int exitCode = -1;
    QString output;
    QString errors;

    QStringList marked(const char* marker) const
    {
        return output.split(QLatin1Char('\n')).filter(text("-*-%1-*-").arg(text(marker)));
    }
};

QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class tst_cadkest : public QObject
{
    Q_OBJECT

private:
    Result run(const QString& program, const QStringList& arguments)
    {
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        // A display that is not there, and no OpenGL at all.
        environment.insert(text("QT_QPA_PLATFORM"), text("xcb"));
        environment.insert(text("QT_XCB_GL_INTEGRATION"), text("none"));
        environment.insert(text("DISPLAY"), text(":9999"));
        environment.insert(text("XDG_RUNTIME_DIR"), m_folder->path());
        process.setProcessEnvironment(environment);
        process.setWorkingDirectory(m_folder->path());
        process.start(program, arguments);
        if (!process.waitForFinished(120000) || process.exitStatus() != QProcess::NormalExit) {
            return Result();
        }
        return {process.exitCode(), QString::fromUtf8(unixLines(process.readAllStandardOutput())),
                QString::fromUtf8(unixLines(process.readAllStandardError()))};
    }

    Result picture(const QStringList& arguments)
    {
        return run(text(CADKEST), QStringList{text("--non-interactive")} + arguments);
    }

    QString path(const char* name) const { return m_folder->filePath(text(name)); }

    void copy(const char* model)
    {
        QVERIFY(QFile::copy(text(KEST_MODELS "/") + text(model), path(model)));
    }

    std::unique_ptr<QTemporaryDir> m_folder;

private Q_SLOTS:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        copy("yagi.nec");
        copy("mistakes.nec");
    }

    void makesAPictureBesideTheModel_data()
    {
        QTest::addColumn<QString>("model");
        QTest::newRow("file") << text("yagi.nec");
        QTest::newRow("without suffix") << text("yagi");
    }

    void makesAPictureBesideTheModel()
    {
        QFETCH(QString, model);
        const Result result = picture({model});
        QCOMPARE(result.errors, QString());
        QCOMPARE(result.exitCode, 0);
        QCOMPARE(result.marked("file"),
                 QStringList{text("-*-file-*-") + QDir::toNativeSeparators(path("yagi.png"))});
        const QImage image(path("yagi.png"));
        QCOMPARE(image.size(), QSize(1280, 800));
        QVERIFY(image.pixelColor(640, 20).lightness() > 200);
        QVERIFY(QDir(m_folder->path()).entryList(QDir::Files).size() == 3);
    }

    void namesThatLookLikeOptionsAreModels()
    {
        for (const char* const name : {"--help", "-np", "-style", "--output"}) {
            QVERIFY(QFile::copy(path("yagi.nec"), path(name)));
            const Result result = picture({text("--"), text(name)});
            QCOMPARE(result.errors, QString());
            QCOMPARE(result.exitCode, 0);
            QVERIFY(QFile::exists(path(name) + text(".png")));
        }
    }

    void nameThatIsNoTextIsTold()
    {
        SKIP_WITHOUT_BYTES_IN_ARGUMENTS();
        const NativeRun run =
            NativeRun::of(text(CADKEST), {"--non-interactive", "caf\xe9.nec"}, m_folder->path(),
                          QProcessEnvironment::systemEnvironment());
        QCOMPARE(run.exitCode, 1);
        QVERIFY2(run.output.contains("caf\\xE9.nec") && run.output.contains("is not UTF-8"),
                 run.output.constData());
    }

    void optionsChangeThePicture()
    {
        QSet<QByteArray> pictures;
        const QList<QStringList> variants = {
            {},
            {text("--view"), text("x")},
            {text("--view"), text("y")},
            {text("--view"), text("z")},
            {text("--palette"), text("dark")},
        };
        for (const QStringList& variant : variants) {
            const Result result =
                picture(QStringList{text("yagi"), text("--output"), text("new.png")} + variant);
            QCOMPARE(result.exitCode, 0);
            pictures.insert(bytesOf(path("new.png")));
        }
        QCOMPARE(pictures.size(), variants.size());
        QVERIFY(QImage(path("new.png")).pixelColor(640, 20).lightness() < 60);
        QVERIFY(!QFile::exists(path("yagi.png")));

        QCOMPARE(picture({text("yagi"), text("--size"), text("320x200")}).exitCode, 0);
        QCOMPARE(QImage(path("yagi.png")).size(), QSize(320, 200));
    }

    void tellsOfMistakesAsPrekestDoes()
    {
        const Result result = picture({text("mistakes")});
        QCOMPARE(result.exitCode, 1);
        QVERIFY(result.marked("error").size() > 5);
        const Result prekest = run(text(PREKEST), {text("mistakes")});
        QCOMPARE(result.marked("error"), prekest.marked("error"));
        QCOMPARE(result.marked("warning"), prekest.marked("warning"));
        QVERIFY(!QFile::exists(path("mistakes.png")));
    }

    void modelsThatCannotBeReadAreTold_data()
    {
        QTest::addColumn<QString>("model");
        QTest::newRow("missing") << text("none.nec");
        QTest::newRow("directory") << text(".");
        QTest::newRow("empty") << text("empty.nec");
        QTest::newRow("binary") << text("binary.nec");
        QTest::newRow("no deck") << text("words.nec");
        QTest::newRow("no wires") << text("wireless.nec");
        QTest::newRow("link to nothing") << text("link.nec");
        QTest::newRow("device") << text("/dev/null");
    }

    void modelsThatCannotBeReadAreTold()
    {
        QFETCH(QString, model);
        if (model == text("link.nec")) {
            SKIP_WITHOUT_SYMBOLIC_LINKS();
            QVERIFY(QFile::link(path("none"), path("link.nec")));
        }
        QFile empty(path("empty.nec"));
        QVERIFY(empty.open(QIODevice::WriteOnly));
        QFile binary(path("binary.nec"));
        QVERIFY(binary.open(QIODevice::WriteOnly));
        binary.write(QByteArray(1000, '\0'));
        binary.close();
        QFile words(path("words.nec"));
        QVERIFY(words.open(QIODevice::WriteOnly));
        words.write("Dear Sir,\nthis is no deck.\n");
        words.close();
        QFile wireless(path("wireless.nec"));
        QVERIFY(wireless.open(QIODevice::WriteOnly));
        wireless.write("CE\nGE 0\nFR 0 1 0 0 30 0\nEX 0 1 1 0 1 0\nXQ\nEN\n");
        wireless.close();
        QFile old(path("old.png"));
        QVERIFY(old.open(QIODevice::WriteOnly));
        old.write("old");
        old.close();
        const QStringList before = QDir(m_folder->path()).entryList(QDir::AllEntries);
        const Result result = picture({model, text("--output"), text("old.png")});
        QCOMPARE(result.exitCode, 1);
        QVERIFY(!result.marked("error").isEmpty());
        QVERIFY2(result.marked("error").constFirst().contains(QRegularExpression(text("[a-z]{3}"))),
                 qPrintable(result.output));
        QCOMPARE(result.marked("file"), QStringList());
        QCOMPARE(bytesOf(path("old.png")), QByteArray("old"));
        QCOMPARE(QDir(m_folder->path()).entryList(QDir::AllEntries), before);
    }

    void anOldPictureStaysWhenThereIsNoNewOne()
    {
        QFile old(path("old.png"));
        QVERIFY(old.open(QIODevice::WriteOnly));
        old.write("old");
        old.close();
        QCOMPARE(picture({text("mistakes"), text("--output"), text("old.png")}).exitCode, 1);
        QCOMPARE(bytesOf(path("old.png")), QByteArray("old"));
        QCOMPARE(picture({text("yagi"), text("--output"), text("old.png")}).exitCode, 0);
        QCOMPARE(QImage(path("old.png")).size(), QSize(1280, 800));
    }

    // The file may not grow beyond a few blocks.
    void anOldPictureStaysOnAFullDisk()
    {
        SKIP_WITHOUT_SHELL();
        QFile old(path("old.png"));
        QVERIFY(old.open(QIODevice::WriteOnly));
        old.write("old");
        old.close();
        const Result full =
            run(text("/bin/sh"),
                {text("-c"), text(R"(ulimit -f 2; exec "$0" "$@")"), text(CADKEST),
                 text("--non-interactive"), text("yagi"), text("--output"), text("old.png")});
        QCOMPARE(full.exitCode, 1);
        QVERIFY(full.marked("error").join(QString()).contains(text("old.png")));
        QCOMPARE(bytesOf(path("old.png")), QByteArray("old"));
        QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files).size(), 3);

        QCOMPARE(picture({text("yagi"), text("--output"), text("old.png")}).exitCode, 0);
        QCOMPARE(QImage(path("old.png")).size(), QSize(1280, 800));
    }

    void picturesThatCannotBeWrittenAreTold_data()
    {
        QTest::addColumn<QString>("output");
        QTest::newRow("no such folder") << text("none/new.png");
        QTest::newRow("a folder") << text("folder.png");
        QTest::newRow("a place of the system's") << text("/proc/new.png");
        QTest::newRow("below a file") << text("yagi.nec/new.png");
    }

    void picturesThatCannotBeWrittenAreTold()
    {
        QFETCH(QString, output);
        QVERIFY(QDir(m_folder->path()).mkdir(text("folder.png")));
        const Result result = picture({text("yagi"), text("--output"), output});
        QCOMPARE(result.exitCode, 1);
        QVERIFY(result.marked("error").join(QString()).contains(QDir::toNativeSeparators(output)));
        QCOMPARE(result.marked("file"), QStringList());
    }

    void wrongCommandLinesAreRefused_data()
    {
        QTest::addColumn<QString>("arguments");
        QTest::addColumn<QString>("reason");
        const auto row = [](const char* arguments, const char* reason) {
            QTest::newRow(arguments) << text(arguments) << text(reason);
        };
        row("--non-interactive", "no model");
        row("--non-interactive ", "the name of a model is empty");
        row("--non-interactive yagi yagi", "more than one");
        row("--non-interactive yagi --size 100", "is no size");
        row("--non-interactive yagi --size 0x100", "is no size");
        row("--non-interactive yagi --size 100x100000", "is no size");
        row("--non-interactive yagi --size axb", "is no size");
        row("--non-interactive yagi --view w", "is no view");
        row("--non-interactive yagi --palette red", "is no palette");
        row("--non-interactive yagi --output yagi.nec", "must end in .png");
        row("--non-interactive yagi --output", "Missing value");
        row("--non-interactive yagi --none", "none");
        row("--non-interactive --try-opengl yagi --size 0x0", "is no size");
    }

    void wrongCommandLinesAreRefused()
    {
        QFETCH(QString, arguments);
        QFETCH(QString, reason);
        const QByteArray model = bytesOf(path("yagi.nec"));
        const Result result = run(text(CADKEST), arguments.split(QLatin1Char(' ')));
        QCOMPARE(result.exitCode, 2);
        QVERIFY2(result.errors.contains(reason), qPrintable(result.errors));
        QCOMPARE(result.output, QString());
        QCOMPARE(bytesOf(path("yagi.nec")), model);
        QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files).size(), 2);
    }

    void withoutAScreenAWindowIsRefused()
    {
        SKIP_ON_WINDOWS("there is always a display");
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
            environment.remove(text(name));
        }
        process.setProcessEnvironment(environment);
        process.setWorkingDirectory(m_folder->path());
        process.start(text(CADKEST), {text("yagi")});
        QVERIFY(process.waitForFinished(120000));
        QCOMPARE(process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(process.exitCode(), 2);
        QVERIFY(process.readAllStandardError().contains("there is no display"));

        process.start(text(CADKEST), {text("--non-interactive"), text("yagi")});
        QVERIFY(process.waitForFinished(120000));
        QCOMPARE(process.exitCode(), 0);
        QCOMPARE(QImage(path("yagi.png")).size(), QSize(1280, 800));
    }

    void helpAndVersionNeedNoDisplay()
    {
        const Result help = run(text(CADKEST), {text("--help")});
        QCOMPARE(help.exitCode, 0);
        QVERIFY(help.output.contains(text("--non-interactive")));
        QVERIFY(!help.output.contains(text("--try-opengl"))); // the window's own
        const Result version = run(text(CADKEST), {text("--version")});
        QCOMPARE(version.exitCode, 0);
        QVERIFY(version.output.startsWith(text("cadkest " KEST_VERSION "\n")));
    }
};

QTEST_GUILESS_MAIN(tst_cadkest)
#include "tst_cadkest.moc"
