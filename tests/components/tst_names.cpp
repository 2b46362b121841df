// SPDX-License-Identifier: MIT
#include "SuiteRun.h"

#include <NativeRun.h>
#include <TerminalRun.h>
#include <Text.h>

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

namespace {

const char* const overriding = "left\u202egnp.nec"; // turns the direction of writing

QString programOf(const QString& name)
{
    return QFileInfo(prekestProgram()).dir().filePath(name);
}

} // namespace

// Models are what they are called: no name is an option, and none steers a terminal.
class tst_names : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<QTemporaryDir> m_folder;

    void writeModel(const QString& name) const
    {
        QVERIFY(!writeFile(m_folder->path(), name, deckOf(dipoleCards())).isEmpty());
    }

    SuiteResult run(const QString& program, const QStringList& arguments) const
    {
        return runSuite(program, arguments, m_folder->path(),
                        environmentWith(text("LC_ALL"), text("C.UTF-8")));
    }

    NativeRun runNative(const QString& program, const QList<QByteArray>& words) const
    {
        return NativeRun::of(program, words, m_folder->path(),
                             environmentWith(text("LC_ALL"), text("C.UTF-8")));
    }

    bool isThere(const QString& name) const { return QFile::exists(m_folder->filePath(name)); }

private Q_SLOTS:
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }

    void namesThatLookLikeOptionsAreModels_data()
    {
        QTest::addColumn<QString>("name");
        for (const char* const name :
             {"--help", "--version", "--run-from-gui", "-np", "-NP", "--priority", "--use-gpu",
              "--machines-file", "--remote-host", "--kest-options", "--prekest-options",
              "--remote-session", "--", "-", "--check-only", "--print-variables"}) {
            QTest::newRow(name) << text(name);
        }
    }

    // As front ends call a solver: the model's bare name first, in its folder.
    void namesThatLookLikeOptionsAreModels()
    {
        QFETCH(QString, name);
        writeModel(name);
        for (const QString& program : {prekestProgram(), runkestProgram()}) {
            const SuiteResult result = run(program, {name, text("--run-from-gui")});
            QVERIFY2(result.bodies(text("error")).isEmpty(),
                     qPrintable(result.lines.join(QLatin1Char('\n'))));
            QCOMPARE(result.exitCode, 0);
            QVERIFY(result.hasText(text("Pre-processing ") + name));
        }
        QVERIFY(isThere(name + text(".out")));
        QVERIFY(isThere(name + text(".csv")));
    }

    void otherComponentsKnowThemToo_data()
    {
        QTest::addColumn<QString>("program");
        QTest::addColumn<QString>("model");
        QTest::newRow("optkest") << programOf(text("optkest")) << text("tune.nec");
        QTest::newRow("amrkest") << programOf(text("amrkest")) << text("coarse.nec");
        QTest::newRow("adaptkest") << programOf(text("adaptkest")) << text("adaptive.nec");
    }

    // They hand the model on to others.
    void otherComponentsKnowThemToo()
    {
        QFETCH(QString, program);
        QFETCH(QString, model);
        const QByteArray deck = readFile(suiteHome() + text("/models/") + model);
        for (const QString& name : {text("--help"), text("-np")}) {
            QVERIFY(!writeFile(m_folder->path(), name, deck).isEmpty());
            const SuiteResult result = run(program, {name, text("--run-from-gui")});
            QVERIFY2(result.bodies(text("error")).isEmpty(),
                     qPrintable(result.lines.join(QLatin1Char('\n'))));
            QCOMPARE(result.bodies(text("total-percentage"))
                         .value(result.bodies(text("total-percentage")).size() - 1),
                     text("100%"));
        }
    }

    void wordsBehindTwoHyphensAreNoOptions()
    {
        writeModel(text("--help"));
        for (const QStringList& words :
             {QStringList{text("--"), text("--help")},
              QStringList{text("--print-variables"), text("--"), text("--help")}}) {
            const SuiteResult result = run(prekestProgram(), words);
            QCOMPARE(result.exitCode, 0);
            QVERIFY(result.hasText(text("Pre-processing --help")));
        }
        const SuiteResult result =
            run(prekestProgram(), {text("--"), text("--help"), text("--version")});
        QCOMPARE(result.exitCode, 1);
        QVERIFY(result.bodies(text("error")).value(0).contains(text("unexpected argument")));
    }

    void helpIsHelpWhereNobodyMeansTheFile()
    {
        writeModel(text("--help"));
        const SuiteResult result = run(prekestProgram(), {text("--help")});
        QCOMPARE(result.exitCode, 0);
        QVERIFY(result.hasText(text("Usage: prekest")));
    }

    void resultsKeepTheNameAndMessagesShowIt()
    {
        const QString name = text(overriding);
        writeModel(name);
        const SuiteResult result = run(runkestProgram(), {name, text("--run-from-gui")});
        QCOMPARE(result.exitCode, 0);
        const QStringList files = result.bodies(text("file"));
        QCOMPARE(files.size(), 2);
        for (const QString& file : files) {
            QVERIFY2(QFileInfo(file).isFile(), qPrintable(file));
        }
        QVERIFY(result.hasText(text("Pre-processing left<U+202E>gnp.nec")));

        const SuiteResult missing =
            run(prekestProgram(), {text("right\u2067.nec"), text("--run-from-gui")});
        QCOMPARE(missing.bodies(text("error")),
                 QStringList{text("ERROR 2011: right<U+2067>.nec: there is no such model file")});
    }

    // Where nobody opens them.
    void terminalShowsTheNamesOfFiles()
    {
        const QString name = text(overriding);
        writeModel(name);
        QProcessEnvironment environment = environmentWith(text("LC_ALL"), text("C.UTF-8"));
        const TerminalRun run = TerminalRun::of(runkestProgram(), {m_folder->filePath(name)},
                                                environment.toStringList());
        QCOMPARE(run.exitCode, 0);
        const QString output = QString::fromUtf8(run.output);
        QVERIFY2(output.contains(text("left<U+202E>gnp.csv")), run.output.constData());
        QVERIFY(!output.contains(QChar(0x202e)));
    }

    void nameThatIsNoTextIsTold_data()
    {
        QTest::addColumn<QString>("program");
        for (const char* const name : {"prekest", "runkest", "optkest", "amrkest", "adaptkest"}) {
            QTest::newRow(name) << programOf(text(name));
        }
    }

    void nameThatIsNoTextIsTold()
    {
        QFETCH(QString, program);
        const NativeRun made =
            runNative(text("/bin/sh"), {"-c", "echo 'CM' > \"$0\"", "caf\xe9 \xc3\xa9.nec"});
        QCOMPARE(made.exitCode, 0);
        const NativeRun result = runNative(program, {"caf\xe9 \xc3\xa9.nec", "--run-from-gui"});
        QCOMPARE(result.exitCode, 1);
        QCOMPARE(QString::fromUtf8(result.output).trimmed().section(QLatin1Char('\n'), -1),
                 text("-*-error-*-ERROR 2013: caf\\xE9 é.nec: the model file cannot be read, its "
                      "name, or the name of a folder that it is in, is not UTF-8; rename it"));
    }

    void folderThatIsNoTextIsTold()
    {
        const NativeRun result = runNative(
            text("/bin/sh"), {"-c", R"(mkdir "$0" && cd "$0" && cp "$2" . && "$1" dipole.nec)",
                              "d\xe9p", prekestProgram().toLocal8Bit(),
                              (suiteHome() + text("/models/dipole.nec")).toLocal8Bit()});
        QCOMPARE(result.exitCode, 1);
        QVERIFY2(result.output.contains("is not UTF-8"), result.output.constData());
    }

    void machinesFileThatIsNoTextIsTold()
    {
        writeModel(text("dipole.nec"));
        const NativeRun result =
            runNative(runkestProgram(), {"dipole.nec", "--machines-file", "m\xe9.kest"});
        QCOMPARE(result.exitCode, 1);
        QVERIFY2(result.output.contains("m\\xE9.kest") && result.output.contains("is not UTF-8"),
                 result.output.constData());
    }
};

QTEST_GUILESS_MAIN(tst_names)
#include "tst_names.moc"
