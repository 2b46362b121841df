// SPDX-License-Identifier: MIT
#include "SuiteRun.h"

#include <SpecialFile.h>

#include <QDir>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

// The program prekest as a front end runs it.
class tst_prekest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void installedModels_data();
    void installedModels();
    void unusableFile_data();
    void unusableFile();
    void missingModel();
    void pipeIsRefused();
    void anyPathWorks_data();
    void anyPathWorks();
    void ignoredErrorsAreStillTold();
    void unreadableModelIsNotIgnored();
    void variablesArePrinted();
    void variablesAreWritten();
    void variablesFileThatCannotBeWritten();
    void factsAreTold();
    void noLineHoldsTwoMarkers();
    void nothingIsWrittenUnasked();
    void installationIsComplete();
};

namespace {

QString model()
{
    return QStringLiteral("model.nec");
}

} // namespace

void tst_prekest::installedModels_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<int>("errors");
    QTest::addColumn<int>("warnings");
    QTest::newRow("dipole") << QStringLiteral("dipole.nec") << 0 << 0 << 0;
    QTest::newRow("yagi") << QStringLiteral("yagi.nec") << 0 << 0 << 0;
    QTest::newRow("monopole") << QStringLiteral("monopole.nec") << 0 << 0 << 0;
    QTest::newRow("mistakes") << QStringLiteral("mistakes.nec") << 1 << 8 << 1;
}

void tst_prekest::installedModels()
{
    QFETCH(QString, name);
    QFETCH(int, exitCode);
    QFETCH(int, errors);
    QFETCH(int, warnings);
    const QTemporaryDir folder;
    QVERIFY(!copyModel(name, folder.path()).isEmpty());
    const SuiteResult result = runSuite(prekestProgram(), {name}, folder.path());
    QCOMPARE(result.exitCode, exitCode);
    QCOMPARE(result.bodies(QStringLiteral("error")).size(), errors);
    QCOMPARE(result.bodies(QStringLiteral("warning")).size(), warnings);
    const bool isLast = result.lines.last() == QLatin1String("-*-total-percentage-*-100%");
    QCOMPARE(isLast, exitCode == 0);
    QVERIFY(result.errorOutput.isEmpty());
}

void tst_prekest::unusableFile_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<int>("number");
    QTest::newRow("empty") << QByteArray() << 2014;
    QTest::newRow("blank") << QByteArray("  \n\t\r\n\n") << 2014;
    QTest::newRow("only remarks") << QByteArray("# nothing\n# here\n") << 2014;
    QTest::newRow("binary") << QByteArray("\x7f"
                                          "ELF\0\1\2\3",
                                          8)
                            << 2016;
    QTest::newRow("zero byte in a card")
        << deckOf(dipoleCards()).replace("0.001", QByteArray(1, 0)) << 2016;
    QTest::newRow("escape in a comment")
        << deckOf(dipoleCards()).replace("A dipole", "\x1b[2J") << 2016;
    QTest::newRow("17 MB") << QByteArray(17 << 20, 'x') << 2015;
    QTest::newRow("garbage of other scripts") << QString(1000, QChar(0x4e2d)).toUtf8() + "\n"
                                              << 2108;
}

void tst_prekest::unusableFile()
{
    QFETCH(QByteArray, content);
    QFETCH(int, number);
    const QTemporaryDir folder;
    QVERIFY(!writeFile(folder.path(), model(), content).isEmpty());
    const SuiteResult result = runSuite(prekestProgram(), {model()}, folder.path());
    QCOMPARE(result.exitCode, 1);
    const QStringList errors =
        result.bodies(QStringLiteral("error")).filter(QStringLiteral("ERROR %1: ").arg(number));
    QVERIFY2(errors.size() == 1 && errors.first().contains(QStringLiteral("model.nec")),
             qPrintable(result.lines.join(QLatin1Char('\n'))));
}

void tst_prekest::missingModel()
{
    const QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkdir(model()));
    const SuiteResult directory = runSuite(prekestProgram(), {model()}, folder.path());
    QCOMPARE(directory.exitCode, 1);
    QVERIFY(directory.hasText(QStringLiteral("ERROR 2012: model.nec: the model is a directory")));
    const SuiteResult missing =
        runSuite(prekestProgram(), {QStringLiteral("nowhere/other")}, folder.path());
    QCOMPARE(missing.exitCode, 1);
    QVERIFY(missing.hasText(QStringLiteral("ERROR 2011: other: there is no such model file")));
}

void tst_prekest::pipeIsRefused()
{
    const QTemporaryDir folder;
    SPECIAL_FILE_OR_SKIP(S_IFIFO, folder.filePath(model()));
    const SuiteResult result = runSuite(prekestProgram(), {model()}, folder.path());
    QCOMPARE(result.exitCode, 1);
    QVERIFY(result.hasText(QStringLiteral("ERROR 2013: model.nec: ")));
}

void tst_prekest::anyPathWorks_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("argument");
    const auto add = [](const char* name, const char* argument) {
        QTest::newRow(argument) << QString::fromUtf8(name) << QString::fromUtf8(argument);
    };
    add("model.nec", "model");
    add("model.nec", "./model.nec");
    add("MODEL.NEC", "MODEL.NEC");
    add("two words.nec", "two words");
    add("Antenne f\u00fcr \u65e5\u672c.nec", "Antenne f\u00fcr \u65e5\u672c.nec");
    add("no-suffix", "no-suffix");
#ifdef Q_OS_UNIX // where names may have quotation marks, colons and asterisks
    add("it's \"quoted\" $(x);&.nec", "it's \"quoted\" $(x);&.nec");
    add("a:b.nec", "a:b.nec");
    add("-*-error-*-.nec", "-*-error-*-.nec");
#else
    add("it's not quoted $(x);&.nec", "it's not quoted $(x);&.nec");
#endif
}

void tst_prekest::anyPathWorks()
{
    QFETCH(QString, name);
    QFETCH(QString, argument);
    const QTemporaryDir folder;
    QVERIFY(!writeFile(folder.path(), name, deckOf(dipoleCards())).isEmpty());
    const QStringList arguments = {argument, QStringLiteral("--print-variables-to-out")};
    const QString suffix = QStringLiteral(".nec");
    const QString stem =
        name.endsWith(suffix, Qt::CaseInsensitive) ? name.chopped(suffix.size()) : name;
    const QString path = folder.filePath(stem + QStringLiteral(".pre"));
    QString printedPath = path;
    printedPath.replace(QLatin1String("-*"), QLatin1String("- *"));
    for (const char* locale : {"C", "C.UTF-8"}) {
        const SuiteResult result =
            runSuite(prekestProgram(), arguments, folder.path(),
                     environmentWith(QStringLiteral("LC_ALL"), QString::fromLatin1(locale)));
        QCOMPARE(result.exitCode, 0);
        QCOMPARE(result.bodies(QStringLiteral("error")), QStringList());
        QCOMPARE(result.bodies(QStringLiteral("file")), QStringList(printedPath));
        QVERIFY(QFile::remove(path));
    }
}

void tst_prekest::ignoredErrorsAreStillTold()
{
    const QTemporaryDir folder;
    QVERIFY(!copyModel(QStringLiteral("mistakes.nec"), folder.path()).isEmpty());
    const SuiteResult result =
        runSuite(prekestProgram(), {QStringLiteral("mistakes"), QStringLiteral("--ignore-errors")},
                 folder.path());
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.bodies(QStringLiteral("error")).size(), 8);
}

void tst_prekest::unreadableModelIsNotIgnored()
{
    const QTemporaryDir folder;
    const SuiteResult result =
        runSuite(prekestProgram(), {QStringLiteral("none"), QStringLiteral("--ignore-errors")},
                 folder.path());
    QCOMPARE(result.exitCode, 1);
}

void tst_prekest::variablesArePrinted()
{
    const QTemporaryDir folder;
    QVERIFY(!writeFile(folder.path(), model(), deckOf(dipoleCards())).isEmpty());
    const SuiteResult result =
        runSuite(prekestProgram(), {model(), QStringLiteral("--print-variables")}, folder.path());
    const QStringList variables = result.bodies(QStringLiteral("variable"));
    const QStringList expected = {
        QStringLiteral("wires = 1"),
        QStringLiteral("segments = 21"),
        QStringLiteral("excitations = 1"),
        QStringLiteral("ground_type = -1"),
        QStringLiteral("frequencies = 3"),
        QStringLiteral("frequency_start_MHz = 290"),
        QStringLiteral("frequency_step = 5"),
        QStringLiteral("frequency_lowest_MHz = 290"),
        QStringLiteral("frequency_highest_MHz = 300"),
    };
    for (const QString& variable : expected) {
        QVERIFY2(variables.contains(variable), qPrintable(variable));
    }
    QVERIFY(!QFile::exists(folder.filePath(QStringLiteral("model.pre"))));
}

void tst_prekest::variablesAreWritten()
{
    const QTemporaryDir folder;
    QVERIFY(!writeFile(folder.path(), model(), deckOf(dipoleCards())).isEmpty());
    const SuiteResult result = runSuite(
        prekestProgram(),
        {model(), QStringLiteral("--print-variables"), QStringLiteral("--print-variables-to-out")},
        folder.path());
    QCOMPARE(result.exitCode, 0);
    const QString path = folder.filePath(QStringLiteral("model.pre"));
    QCOMPARE(result.bodies(QStringLiteral("file")), QStringList(path));
    const QStringList printed = result.bodies(QStringLiteral("variable"));
    QVERIFY(!printed.isEmpty());
    QCOMPARE(QString::fromUtf8(readFile(path)),
             printed.join(QLatin1Char('\n')) + QLatin1Char('\n'));
}

void tst_prekest::variablesFileThatCannotBeWritten()
{
    const QTemporaryDir folder;
    QVERIFY(!writeFile(folder.path(), model(), deckOf(dipoleCards())).isEmpty());
    QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("model.pre")));
    const SuiteResult result = runSuite(
        prekestProgram(), {model(), QStringLiteral("--print-variables-to-out")}, folder.path());
    QCOMPARE(result.exitCode, 1);
    QVERIFY(result.hasText(QStringLiteral("ERROR 2701: model.nec: the result file 'model.pre'")));
    QCOMPARE(result.bodies(QStringLiteral("file")), QStringList());
}

void tst_prekest::factsAreTold()
{
    const QTemporaryDir folder;
    QVERIFY(!copyModel(QStringLiteral("monopole.nec"), folder.path()).isEmpty());
    const QStringList notices =
        runSuite(prekestProgram(), {QStringLiteral("monopole")}, folder.path())
            .bodies(QStringLiteral("notice"));
    QVERIFY(notices.contains(QStringLiteral("NOTE 101: number of wires 9, of patch cards 0")));
    QVERIFY(notices.contains(QStringLiteral("NOTE 102: number of segments 180")));
    QVERIFY(notices.contains(
        QStringLiteral("NOTE 103: number of frequencies 21, from 6.5 MHz to 7.5 MHz")));
    QVERIFY(
        notices.contains(QStringLiteral("NOTE 105: the ground is real, by the Sommerfeld method")));
}

void tst_prekest::noLineHoldsTwoMarkers()
{
#ifdef Q_OS_WIN
    QSKIP("on Windows, names have no asterisks");
#endif
    const QTemporaryDir folder;
    QStringList cards = dipoleCards();
    cards[6] = QStringLiteral("-*-error-*-x-*-notice-*-\nEX -*-a-*- b:c:d 1:2\nXQ");
    QVERIFY(!writeFile(folder.path(), QStringLiteral("-*-file-*-m:.nec"), deckOf(cards)).isEmpty());
    const SuiteResult result = runSuite(
        prekestProgram(), {QStringLiteral("./-*-file-*-m:.nec"), QStringLiteral("--ignore-errors")},
        folder.path());
    QVERIFY(result.bodies(QStringLiteral("error")).size() >= 2);
    static const QRegularExpression tag(QStringLiteral("^-\\*-[a-z]+(-[a-z]+)?-\\*-"));
    for (QString line : result.lines) {
        line.remove(tag);
        QVERIFY2(!line.contains(QLatin1String("-*-")), qPrintable(line));
        const bool isRemark =
            line.startsWith(QLatin1String("WARNING ")) || line.startsWith(QLatin1String("NOTE "));
        QVERIFY(!isRemark || line.count(QLatin1Char(':')) == 1);
    }
}

void tst_prekest::nothingIsWrittenUnasked()
{
    const QTemporaryDir folder;
    QVERIFY(!copyModel(QStringLiteral("yagi.nec"), folder.path()).isEmpty());
    QCOMPARE(runSuite(prekestProgram(), {QStringLiteral("yagi")}, folder.path()).exitCode, 0);
    QCOMPARE(QDir(folder.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
             QStringList(QStringLiteral("yagi.nec")));
}

void tst_prekest::installationIsComplete()
{
    const QDir home(suiteHome());
    for (const char* entry :
         {"shared/mpi/machines.kest", "images/shared", "default.ini", "models/dipole.nec"}) {
        QVERIFY2(home.exists(QString::fromLatin1(entry)), entry);
    }
    QVERIFY(QFile::exists(prekestProgram()) && QFile::exists(runkestProgram()));
    const QList<QByteArray> machines =
        readFile(home.filePath(QStringLiteral("shared/mpi/machines.kest"))).split('\n');
    QVERIFY(machines.size() > 2);
    for (const QByteArray& line : machines) {
        QVERIFY(line.isEmpty() || line.startsWith('#'));
    }
}

QTEST_GUILESS_MAIN(tst_prekest)
#include "tst_prekest.moc"
