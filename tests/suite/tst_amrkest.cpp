#include "SuiteRun.h"

#include "MarkedRuns.h"
#include "Preprocessor.h"
#include "ResultTable.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QtTest>

#include <complex>

using suite::ResultTable;

// Refinements that go well, and the options that say how.
class tst_amrkest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void refinementConverges_data();
    void refinementConverges();
    void thresholdsAreOrdered();
    void refinedModelIsTheLastIterations();
    void finalResultsAreAPlainRuns();
    void finalSolveCanBeSkipped();
    void frequencyIsTheMiddleUnlessGiven_data();
    void frequencyIsTheMiddleUnlessGiven();
    void tooFewIterationsAreWarnedOf_data();
    void tooFewIterationsAreWarnedOf();
    void limitsStopTheRefinement_data();
    void limitsStopTheRefinement();
    void progressOnlyGrows_data();
    void progressOnlyGrows();
    void keptFilesAreTheIterations();
    void nothingIsKeptUnasked();
    void runkestOptionsArePassedOn_data();
    void runkestOptionsArePassedOn();
    void machinesFileThatIsMissingFailsTheFirstIteration();
    void errorsAreIgnoredAllTheWay();
    void adaptiveModelIsSampledAdaptively();
    void checkOnlySolvesNothing();
    void anyPathWorks_data();
    void anyPathWorks();
    void optionsOfTheFrontEnd_data();
    void optionsOfTheFrontEnd();
    void wrongOptions_data();
    void wrongOptions();
    void helpNamesItsOptions();
};

namespace {

QString text(const char* latin1)
{
    return QString::fromLatin1(latin1);
}

QString program()
{
    return suiteHome() + text("/bin/amrkest");
}

// A folder with amrkest and a runkest that writes down how it is called before it works.
class SpiedInstallation
{
public:
    SpiedInstallation()
    {
        QDir(m_folder.path()).mkdir(text("bin"));
        QFile::copy(::program(), program());
        const QByteArray script = "#!/bin/sh\n(IFS='|'; echo \"$*\") >> '" + calls().toUtf8() +
                                  "'\nexec '" + runkestProgram().toUtf8() + "' \"$@\"\n";
        const QString path = writeFile(m_folder.filePath(text("bin")), text("runkest"), script);
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

    QString program() const { return m_folder.filePath(text("bin/amrkest")); }
    QStringList calledWith() const
    {
        return QString::fromUtf8(readFile(calls())).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    }

private:
    QString calls() const { return m_folder.filePath(text("calls")); }

    QTemporaryDir m_folder;
};

QStringList words(const char* line)
{
    return text(line).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

struct Iteration
{
    int segments = 0;
    std::complex<double> impedance;
    QByteArray change;
};

QVector<Iteration> readIterations(const QString& path)
{
    QVector<Iteration> result;
    QList<QByteArray> lines = readFile(path).split('\n');
    if (lines.takeFirst() != "iteration,segments,resistance_ohm,reactance_ohm,change") {
        return result;
    }
    lines.removeAll(QByteArray());
    for (const QByteArray& line : qAsConst(lines)) {
        const QList<QByteArray> cells = line.split(',');
        if (cells.size() == 5 && cells.at(0).toInt() == result.size() + 1) {
            result.append({cells.at(1).toInt(),
                           {cells.at(2).toDouble(), cells.at(3).toDouble()},
                           cells.at(4)});
        }
    }
    return result;
}

// A dipole of five thin segments.
QByteArray coarseDipole()
{
    return deckOf({text("CM A coarse dipole"), text("CE"),
                   text("GW 1 5 0 0 -0.25 0 0 0.25 0.00005"), text("GE 0"),
                   text("FR 0 5 0 0 280 5"), text("EX 0 1 3 0 1 0"), text("XQ"), text("EN")});
}

SuiteResult refine(const QTemporaryDir& folder, const char* options,
                   const QByteArray& deck = coarseDipole())
{
    writeFile(folder.path(), text("m.nec"), deck);
    return runSuite(program(), QStringList(text("m")) + words(options), folder.path());
}

// Without those about the model: the segments are too long before they are divided.
QStringList ownWarnings(const SuiteResult& result)
{
    return result.bodies(text("warning")).filter(text("the refinement "));
}

} // namespace

void tst_amrkest::refinementConverges_data()
{
    QTest::addColumn<QString>("word");
    QTest::addColumn<double>("threshold");
    QTest::newRow("high") << text("--error-threshold high") << 0.05;
    QTest::newRow("normal") << text("--error-threshold normal") << 0.02;
    QTest::newRow("unsaid") << QString() << 0.02;
    QTest::newRow("low") << text("--error-threshold low") << 0.005;
}

// Each iteration's impedance is what a plain run of a wire with so many segments gives; the last
// change is below the threshold and no earlier one.
void tst_amrkest::refinementConverges()
{
    QFETCH(QString, word);
    QFETCH(double, threshold);
    const QTemporaryDir folder;
    const SuiteResult result = refine(folder, qPrintable(text("--max-iterations 12 ") + word));
    QCOMPARE(result.bodies(text("error")), QStringList());
    QCOMPARE(result.exitCode, 0);
    const QVector<Iteration> table = readIterations(folder.filePath(text("m.amr.csv")));
    QVERIFY(table.size() >= 2);
    QVERIFY(table.first().change.isEmpty());
    for (int i = 0; i < table.size(); ++i) {
        QCOMPARE(table.at(i).segments, 5 * (2 * i + 1));
        QByteArray deck = coarseDipole();
        deck.replace("GW 1 5", "GW 1 " + QByteArray::number(table.at(i).segments));
        deck.replace("EX 0 1 3", "EX 0 1 " + QByteArray::number(table.at(i).segments / 2 + 1));
        deck.replace("FR 0 5 0 0 280 5", "FR 0 1 0 0 290");
        QVERIFY(!writeFile(folder.path(), text("one.nec"), deck).isEmpty());
        QCOMPARE(runSuite(runkestProgram(), {text("one")}, folder.path()).exitCode, 0);
        const ResultTable one = ResultTable::read(folder.filePath(text("one.csv")));
        QCOMPARE(one.points.first().impedance()->resistance, table.at(i).impedance.real());
        QCOMPARE(one.points.first().impedance()->reactance, table.at(i).impedance.imag());
        if (i > 0) {
            const double change = std::abs(table.at(i).impedance - table.at(i - 1).impedance) /
                                  std::abs(table.at(i).impedance);
            QVERIFY(qAbs(table.at(i).change.toDouble() / change - 1) < 1e-4);
            QCOMPARE(change < threshold, i == table.size() - 1);
        }
    }
    const QString notice = text("the refinement converged after %1 iterations, number of segments "
                                "%2, last change ")
                               .arg(table.size())
                               .arg(table.last().segments);
    QCOMPARE(result.bodies(text("notice")).filter(notice).size(), 1);
    QCOMPARE(ownWarnings(result), QStringList());
}

void tst_amrkest::thresholdsAreOrdered()
{
    int last = 0;
    for (const char* word : {"high", "normal", "low"}) {
        const QTemporaryDir folder;
        const QString options =
            text("--skip-final-solve --max-iterations 12 --error-threshold ") + text(word);
        QCOMPARE(refine(folder, qPrintable(options)).exitCode, 0);
        const int count = readIterations(folder.filePath(text("m.amr.csv"))).size();
        QVERIFY(count >= last);
        QVERIFY(qstrcmp(word, "low") != 0 || count > 2);
        last = count;
    }
}

void tst_amrkest::refinedModelIsTheLastIterations()
{
    const QTemporaryDir folder;
    const QByteArray before = coarseDipole();
    QCOMPARE(refine(folder, "").exitCode, 0);
    QCOMPARE(readFile(folder.filePath(text("m.nec"))), before);
    const int segments = readIterations(folder.filePath(text("m.amr.csv"))).constLast().segments;
    QByteArray expected = before;
    expected.replace("GW 1 5", "GW 1 " + QByteArray::number(segments));
    expected.replace("EX 0 1 3", "EX 0 1 " + QByteArray::number(segments / 2 + 1));
    QCOMPARE(readFile(folder.filePath(text("m_amr.nec"))), expected);
}

void tst_amrkest::finalResultsAreAPlainRuns()
{
    const QTemporaryDir folder;
    QVERIFY(!copyModel(text("coarse.nec"), folder.path()).isEmpty());
    const SuiteResult result =
        runSuite(program(), words("coarse --max-iterations 12"), folder.path());
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.bodies(text("file")), QStringList({folder.filePath(text("coarse_amr.nec")),
                                                       folder.filePath(text("coarse.amr.csv")),
                                                       folder.filePath(text("coarse_amr.out")),
                                                       folder.filePath(text("coarse_amr.csv"))}));
    QVERIFY(result.hasText(text("NOTE 231: the refinement converged")));
    const QByteArray output = readFile(folder.filePath(text("coarse_amr.out")));
    const QByteArray table = readFile(folder.filePath(text("coarse_amr.csv")));
    QCOMPARE(ResultTable::read(folder.filePath(text("coarse_amr.csv"))).points.size(), 21);
    QCOMPARE(runSuite(runkestProgram(), words("coarse_amr"), folder.path()).exitCode, 0);
    QVERIFY(output == readFile(folder.filePath(text("coarse_amr.out"))));
    QCOMPARE(table, readFile(folder.filePath(text("coarse_amr.csv"))));
}

void tst_amrkest::finalSolveCanBeSkipped()
{
    const QTemporaryDir folder;
    QVERIFY(!writeFile(folder.path(), text("m_amr.csv"), "old table").isEmpty());
    const SuiteResult result = refine(folder, "--skip-final-solve");
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.lines.last(), text("-*-total-percentage-*-100%"));
    QCOMPARE(QDir(folder.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot, QDir::Name),
             words("m.amr.csv m.nec m_amr.csv m_amr.nec"));
    QCOMPARE(readFile(folder.filePath(text("m_amr.csv"))), QByteArray("old table"));
}

void tst_amrkest::frequencyIsTheMiddleUnlessGiven_data()
{
    QTest::addColumn<QString>("options");
    QTest::addColumn<QByteArray>("frequencies");
    QTest::addColumn<QByteArray>("expected");
    QTest::newRow("middle") << QString() << QByteArray("FR 0 5 0 0 280 5") << QByteArray("290");
    QTest::newRow("downwards") << QString() << QByteArray("FR 0 3 0 0 290 -5") << QByteArray("285");
    QTest::newRow("only one") << QString() << QByteArray("FR 0 1 0 0 300") << QByteArray("300");
    QTest::newRow("given") << text("--frequency 310.5") << QByteArray("FR 0 5 0 0 280 5")
                           << QByteArray("310.5");
    QTest::newRow("outside") << text("--frequency 1e2") << QByteArray("FR 0 5 0 0 280 5")
                             << QByteArray("100");
}

void tst_amrkest::frequencyIsTheMiddleUnlessGiven()
{
    QFETCH(QString, options);
    QFETCH(QByteArray, frequencies);
    QFETCH(QByteArray, expected);
    const QTemporaryDir folder;
    const QByteArray deck = coarseDipole().replace("FR 0 5 0 0 280 5", frequencies);
    const QString all = text("--skip-final-solve --keep-files ") + options;
    QCOMPARE(refine(folder, qPrintable(all), deck).exitCode, 0);
    for (const char* number : {"01", "02"}) {
        const QByteArray table =
            readFile(folder.filePath(text("m.amrkest/iteration_%1/m.csv").arg(text(number))));
        QCOMPARE(table.split('\n').value(1).split(',').first(), expected);
    }
    QVERIFY(readFile(folder.filePath(text("m_amr.nec"))).contains("\n" + frequencies + "\n"));
}

void tst_amrkest::tooFewIterationsAreWarnedOf_data()
{
    QTest::addColumn<int>("most");
    QTest::addColumn<QString>("reason");
    QTest::newRow("one") << 1
                         << text("1 iterations, one iteration has nothing to be compared with");
    QTest::newRow("two") << 2 << text("2 iterations, the last change was ");
}

void tst_amrkest::tooFewIterationsAreWarnedOf()
{
    QFETCH(int, most);
    QFETCH(QString, reason);
    const QTemporaryDir folder;
    const QString options = text("--error-threshold low --max-iterations %1").arg(most);
    const SuiteResult result = refine(folder, qPrintable(options));
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(ownWarnings(result).size(), 1);
    const QString expected = text("WARNING 3231: the refinement did not converge within ") + reason;
    QVERIFY2(ownWarnings(result).constFirst().startsWith(expected),
             qPrintable(ownWarnings(result).first()));
    QCOMPARE(readIterations(folder.filePath(text("m.amr.csv"))).size(), most);
    QVERIFY(QFile::exists(folder.filePath(text("m_amr.csv"))));
}

void tst_amrkest::limitsStopTheRefinement_data()
{
    QTest::addColumn<QByteArray>("radius");
    QTest::addColumn<int>("iterations");
    QTest::newRow("at once") << QByteArray("0.005") << 1;
    QTest::newRow("later") << QByteArray("0.004") << 2;
}

void tst_amrkest::limitsStopTheRefinement()
{
    QFETCH(QByteArray, radius);
    QFETCH(int, iterations);
    const QTemporaryDir folder;
    const SuiteResult result =
        refine(folder, "--error-threshold low", coarseDipole().replace("0.00005", radius));
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(ownWarnings(result),
             QStringList(text("WARNING 3232: the refinement stopped before it converged, segments "
                              "of the wire in line 3 would be shorter than eight radii")));
    QCOMPARE(readIterations(folder.filePath(text("m.amr.csv"))).size(), iterations);
    QVERIFY(QFile::exists(folder.filePath(text("m_amr.out"))));
}

void tst_amrkest::progressOnlyGrows_data()
{
    QTest::addColumn<QString>("options");
    QTest::newRow("all") << QString();
    QTest::newRow("no final solution") << text("--skip-final-solve");
    QTest::newRow("a million") << text("--max-iterations 1000000");
}

void tst_amrkest::progressOnlyGrows()
{
    QFETCH(QString, options);
    const QTemporaryDir folder;
    const SuiteResult result = refine(folder, qPrintable(options));
    QCOMPARE(result.exitCode, 0);
    int last = 0;
    const QStringList totals = result.bodies(text("total-percentage"));
    QVERIFY(totals.size() >= 3);
    for (const QString& total : totals) {
        const int value = total.chopped(1).toInt();
        QVERIFY(value > last && value <= 100);
        last = value;
    }
    QCOMPARE(last, 100);
    QCOMPARE(result.lines.last(), text("-*-total-percentage-*-100%"));
}

void tst_amrkest::keptFilesAreTheIterations()
{
    const QTemporaryDir folder;
    QCOMPARE(refine(folder, "--keep-files").exitCode, 0);
    const QVector<Iteration> table = readIterations(folder.filePath(text("m.amr.csv")));
    const QDir kept(folder.filePath(text("m.amrkest")));
    QCOMPARE(kept.entryList({text("iteration_*")}, QDir::Dirs).size(), table.size());
    for (int i = 0; i < table.size(); ++i) {
        const QDir one(kept.filePath(text("iteration_%1").arg(i + 1, 2, 10, QLatin1Char('0'))));
        QCOMPARE(one.entryList(QDir::AllEntries | QDir::NoDotAndDotDot, QDir::Name),
                 words("m.csv m.nec m.out"));
        const suite::Preprocessor checked(readFile(one.filePath(text("m.nec"))));
        QCOMPARE(checked.model().structure.segmentCount(), table.at(i).segments);
    }
    // A shorter run leaves no iteration of the longer one.
    QCOMPARE(refine(folder, "--keep-files --max-iterations 1 --skip-final-solve").exitCode, 0);
    QCOMPARE(kept.entryList(QDir::AllEntries | QDir::NoDotAndDotDot, QDir::Name),
             words("iteration_01 made_by_amrkest"));
}

void tst_amrkest::nothingIsKeptUnasked()
{
    MarkedRuns runs;
    QVERIFY(!writeFile(runs.folder(), text("m.nec"), coarseDipole()).isEmpty());
    QCOMPARE(runSuite(program(), {text("m")}, runs.folder(), runs.environment()).exitCode, 0);
    QCOMPARE(runs.entries(), words("m.amr.csv m.nec m_amr.csv m_amr.nec m_amr.out"));
    QCOMPARE(runs.temporaryEntries(), QStringList());
}

void tst_amrkest::runkestOptionsArePassedOn_data()
{
    QTest::addColumn<QString>("options");
    QTest::addColumn<QString>("expected");
    QTest::newRow("none") << QString() << QString();
    QTest::newRow("of the solver") << text("--runkest-options --priority 4 -np 1 --use-gpu 2:0,1"
                                           " --kest-options --mtl-circuit-export")
                                   << text("|--priority|4|-np|1|--use-gpu|2:0,1"
                                           "|--kest-options|--mtl-circuit-export");
    QTest::newRow("of the pre-processor")
        << text("--runkest-options --use-gpu 0 --prekest-options --ignore-errors --print-variables")
        << text("|--use-gpu|0|--prekest-options|--ignore-errors");
    QTest::newRow("of this program")
        << text("--run-from-gui --error-threshold low --runkest-options --use-gpu 0")
        << text("|--use-gpu|0");
}

// Each iteration and the final solution are runs of runkest; what is for amrkest's own
// pre-processing stays here.
void tst_amrkest::runkestOptionsArePassedOn()
{
    QFETCH(QString, options);
    QFETCH(QString, expected);
    const QTemporaryDir folder;
    const SpiedInstallation spied;
    QVERIFY(!writeFile(folder.path(), text("m.nec"), coarseDipole()).isEmpty());
    const SuiteResult result = runSuite(
        spied.program(), QStringList(text("m")) + words(qPrintable(options)), folder.path());
    QCOMPARE(result.exitCode, 0);
    QStringList wanted;
    const int iterations = readIterations(folder.filePath(text("m.amr.csv"))).size();
    QVERIFY(iterations >= 2);
    for (int number = 1; number <= iterations; ++number) {
        wanted.append(folder.filePath(text("m.amrkest/iteration_0%1/m.nec").arg(number)) +
                      expected);
    }
    wanted.append(folder.filePath(text("m.amrkest/final/m_amr.nec")) + expected);
    QCOMPARE(spied.calledWith(), wanted);
    // The words mean something to runkest: the final run tells how many engines it may start.
    QCOMPARE(result.hasText(text("Solving 5 frequencies, 1 at once")),
             options.contains(text("-np 1")));
    QCOMPARE(result.bodies(text("variable")).contains(text("segments = 5")),
             options.contains(text("--print-variables")));
}

void tst_amrkest::machinesFileThatIsMissingFailsTheFirstIteration()
{
    const QTemporaryDir folder;
    const SuiteResult result = refine(folder, "--runkest-options -np 2 --machines-file /nowhere/m"
                                              " --parallel-authenticate sspi");
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(result.bodies(text("error")),
             QStringList(text("ERROR 2823: m.nec: iteration 1 failed, ERROR 2021; m.nec; the "
                              "machines file '/nowhere/m' does not exist")));
    QVERIFY(!QFile::exists(folder.filePath(text("m_amr.nec"))));
}

void tst_amrkest::errorsAreIgnoredAllTheWay()
{
    const QTemporaryDir folder;
    const QByteArray deck = coarseDipole().replace("XQ", "GN 0 0 0 0 0.5 0.01\nXQ");
    QCOMPARE(refine(folder, "", deck).exitCode, 1);
    QVERIFY(!QFile::exists(folder.filePath(text("m_amr.nec"))));
    const SuiteResult result = refine(folder, "--prekest-options --ignore-errors", deck);
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.bodies(text("error")).size(), 1);
    QVERIFY(QFile::exists(folder.filePath(text("m_amr.csv"))));
}

void tst_amrkest::adaptiveModelIsSampledAdaptively()
{
    const QTemporaryDir folder;
    const QByteArray deck = coarseDipole()
                                .replace("CE\n", "CM @adapt\nCE\n")
                                .replace("280 5", "250 2")
                                .replace("FR 0 5", "FR 0 51");
    const SuiteResult result = refine(folder, "--keep-files", deck);
    QCOMPARE(result.exitCode, 0);
    QVERIFY(result.hasText(text("NOTE 221: adaptive sampling took ")));
    const int points = ResultTable::read(folder.filePath(text("m_amr.csv"))).points.size();
    QVERIFY(points > 10 && points < 30);
}

void tst_amrkest::checkOnlySolvesNothing()
{
    const QTemporaryDir folder;
    const SuiteResult result = refine(folder, "--runkest-options --kest-options --check-only");
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(result.lines.last(), text("-*-total-percentage-*-100%"));
    QCOMPARE(QDir(folder.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
             words("m.nec"));
}

void tst_amrkest::anyPathWorks_data()
{
    QTest::addColumn<QString>("path");
    for (const char* path :
         {"plain", "two words/two words", "it's \"q\" $(x);&/m'\"",
          "f\xc3\xbcr/\xe6\x97\xa5\xe6\x9c\xac", "-dash/-m", "dots/a.b (c)[d]+"}) {
        QTest::newRow(path) << QString::fromUtf8(path);
    }
}

void tst_amrkest::anyPathWorks()
{
    QFETCH(QString, path);
    const QTemporaryDir folder;
    const QFileInfo file(folder.filePath(path + text(".nec")));
    QVERIFY(QDir().mkpath(file.absolutePath()));
    QVERIFY(!writeFile(file.absolutePath(), file.fileName(), coarseDipole()).isEmpty());
    const SuiteResult result = runSuite(program(), {file.filePath()}, QDir::tempPath(),
                                        environmentWith(text("LC_ALL"), text("C")));
    QCOMPARE(result.bodies(text("error")), QStringList());
    QCOMPARE(result.exitCode, 0);
    QCOMPARE(ResultTable::read(folder.filePath(path + text("_amr.csv"))).points.size(), 5);
    QCOMPARE(QDir(file.absolutePath()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot).size(),
             5);
}

void tst_amrkest::optionsOfTheFrontEnd_data()
{
    QTest::addColumn<QStringList>("options");
    for (const char* options :
         {"--run-from-gui --runkest-options --use-gpu 0",
          "--run-from-gui --max-iterations 3 --frequency 300 --error-threshold high --keep-files"
          " --skip-final-solve --runkest-options --priority 0 --use-gpu 0",
          "--run-from-gui --error-threshold low --runkest-options --priority 1"
          " --parallel-authenticate sspi --use-gpu :0,1",
          "--run-from-gui --runkest-options --use-gpu --kest-options --mtl-circuit-export"}) {
        QTest::newRow(options) << words(options);
    }
    QTest::newRow("blank words") << QStringList(
        {text("--run-from-gui"), QString(), text("--runkest-options"), QString()});
}

void tst_amrkest::optionsOfTheFrontEnd()
{
    QFETCH(QStringList, options);
    const QTemporaryDir folder;
    QVERIFY(!writeFile(folder.path(), text("m.nec"), coarseDipole()).isEmpty());
    const SuiteResult result =
        runSuite(program(), QStringList(text("m.nec")) + options, folder.path());
    QCOMPARE(result.bodies(text("error")), QStringList());
    QCOMPARE(result.exitCode, 0);
    QVERIFY(QFile::exists(folder.filePath(text("m_amr.nec"))));
    QCOMPARE(QFile::exists(folder.filePath(text("m.amrkest"))),
             options.contains(text("--keep-files")));
    QCOMPARE(QFile::exists(folder.filePath(text("m_amr.csv"))),
             !options.contains(text("--skip-final-solve")));
}

void tst_amrkest::wrongOptions_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("error");
    const auto add = [](const char* arguments, const char* error) {
        QTest::newRow(arguments) << words(arguments) << text(error);
    };
    add("m --max-iterations 0",
        "ERROR 2001: amrkest: option --max-iterations needs a whole number");
    add("m --max-iterations -1", "ERROR 2001: amrkest: option --max-iterations needs");
    add("m --max-iterations many", "ERROR 2001: amrkest: option --max-iterations needs");
    add("m --frequency", "ERROR 2001: amrkest: the value is missing of option '--frequency'");
    for (const char* value : {"0", "-5", "inf", "nan", "1e16", "300,5", "mid"}) {
        add(qPrintable(text("m --frequency ") + text(value)),
            "ERROR 2001: amrkest: option --frequency needs a number greater than 0");
    }
    add("m --frequency 300 MHz", "ERROR 2001: amrkest: unexpected argument 'MHz'");
    add("m --error-threshold 0.1",
        "ERROR 2001: amrkest: option --error-threshold needs one of the words high normal low");
    add("m --restart 1", "ERROR 2001: amrkest: unknown option '--restart'");
    add("m -np 2", "ERROR 2001: amrkest: unknown option '-np'");
    add("m --runkest-options --frequency 300", "ERROR 2001: amrkest: unknown option '--frequency'");
    add("--keep-files", "ERROR 2001: amrkest: no model is given");
    add("missing", "ERROR 2011: missing: there is no such model file");
    add(".", "ERROR 2012: ");
    add("patch", "ERROR 2821: patch.nec:4: card SP cannot be refined, patches have no segments");
    add("wave", "ERROR 2822: wave.nec: the refinement compares input impedances");
}

void tst_amrkest::wrongOptions()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, error);
    MarkedRuns runs;
    const QByteArray deck = coarseDipole();
    writeFile(runs.folder(), text("m.nec"), deck);
    writeFile(runs.folder(), text("patch.nec"),
              QByteArray(deck).replace("GE 0", "SP 0 0 1 1 1 0 0 0.1\nGE 0"));
    writeFile(runs.folder(), text("wave.nec"),
              QByteArray(deck).replace("EX 0 1 3 0 1 0", "EX 1 1 1 0 0 0 0 0 0 0"));
    const SuiteResult result = runSuite(program(), arguments, runs.folder(), runs.environment());
    QCOMPARE(result.exitCode, 1);
    const QStringList errors = result.bodies(text("error"));
    QVERIFY(!errors.isEmpty());
    QVERIFY2(errors.first().startsWith(error), qPrintable(errors.first()));
    QCOMPARE(runs.entries(), words("m.nec patch.nec wave.nec"));
    QVERIFY(!result.hasText(text("-*-total-percentage-*-100%")));
}

void tst_amrkest::helpNamesItsOptions()
{
    const SuiteResult result = runSuite(program(), words("--help"), QDir::tempPath());
    QCOMPARE(result.exitCode, 0);
    for (const char* option :
         {"--max-iterations", "--frequency", "--error-threshold", "--keep-files",
          "--skip-final-solve", "--runkest-options", "--priority", "--ignore-errors"}) {
        QVERIFY2(result.hasText(text("  ") + text(option) + QLatin1Char(' ')), option);
    }
}

QTEST_GUILESS_MAIN(tst_amrkest)
#include "tst_amrkest.moc"
