// SPDX-License-Identifier: MIT
#include "RunStage.h"

#include <ModelLock.h>
#include <ProgramName.h>
#include <RecordedRun.h>
#include <RunRecorder.h>

#include <QSettings>

using RecordedRun::ModelState;

// Runs that are repeated exactly as they were.
class tst_recorded_run : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<RunStage> m_stage;
    std::unique_ptr<common_CommonSettingsSet> m_settings;

    RunArchive archive() const { return RunArchive(m_stage->desk().path("user/runs")); }

    QStringList temporaryFiles() const
    {
        return QDir(m_stage->desk().path("user"))
            .entryList({text("gui_tmp_machfile*"), text(".gui_tmp_machfile*")},
                       QDir::AllEntries | QDir::Hidden);
    }

    void setOption(const char* name, const QString& value) const
    {
        QSettings settings(m_stage->desk().path("user/kest.ini"), QSettings::IniFormat);
        settings.setValue(text("options/") + text(name), value);
    }

    std::unique_ptr<RunRecorder> makeRecorder(Run& run) const
    {
        return std::make_unique<RunRecorder>(run, RunRecorder::Face::Terminal, archive(),
                                             RunArchive::Limits{90, 100});
    }

    // The record of a run to its end.
    RunRecord record(Run& run, common_RunWrapper::RunOptions options = {}) const
    {
        const std::unique_ptr<RunRecorder> recorder = makeRecorder(run);
        recorder->setRunOptions(options);
        const RunSetup::Readiness readiness = m_stage->setUp(run, options);
        if (readiness.isReady()) {
            run.start();
        } else {
            run.refuse(readiness.problem);
        }
        return finished(*recorder);
    }

    RunRecord finished(const RunRecorder& recorder) const
    {
        if (!QTest::qWaitFor([&recorder] { return recorder.isFinished(); }, RunStage::longTime)) {
            qFatal("the record is not finished");
        }
        return archive().record(recorder.number()).value_or(RunRecord());
    }

    // The record of the repetition, on the model.
    RunRecord repeat(const RunRecord& original, const QString& model) const
    {
        const std::unique_ptr<Run> run = RecordedRun::make(
            original, model, common_ActivePtr<ComponentRunner>(new ComponentRunner));
        const std::unique_ptr<RunRecorder> recorder = makeRecorder(*run);
        recorder->setRepeated(original);
        const RunSetup::Readiness readiness = RecordedRun::setUp(*run, original, *m_settings);
        if (readiness.isReady()) {
            run->start();
        } else {
            run->refuse(readiness.problem);
        }
        return finished(*recorder);
    }

    // What the component has seen of its arguments and its machines file, which has another name in
    // each run.
    QByteArray takeSeen(const QString& model) const
    {
        QByteArray seen = contentOf(model + text(".seen"));
        seen.truncate(seen.indexOf("\n--\n"));
        QList<QByteArray> lines = seen.split('\n');
        const int option = lines.indexOf("--machines-file");
        if (option >= 0) {
            lines[option + 1] = contentOf(model + text(".machines"));
        }
        QFile::remove(model + text(".seen"));
        QFile::remove(model + text(".machines"));
        return lines.join('\n');
    }

private Q_SLOTS:
    void init()
    {
        m_stage.reset(); // a failed test left it
        m_stage = std::make_unique<RunStage>();
        m_settings = std::make_unique<common_CommonSettingsSet>(m_stage->desk().path("user"),
                                                                text("kestdesk"));
    }

    void cleanup()
    {
        QTRY_COMPARE_WITH_TIMEOUT(m_stage->desk().processes(), QStringList(), 10000);
        QCOMPARE(temporaryFiles(), QStringList());
        m_settings.reset();
        m_stage.reset();
    }

    // Whatever the user has changed in the meantime.
    void everythingIsAsItWas()
    {
        const QString machines = m_stage->desk().path("user/machines.kest");
        writeFile(machines, "localhost:2\n");
        setOption("EnvironmentVariables", text("KEST_COLOUR=blue"));
        const std::unique_ptr<Run> run = m_stage->makeRun("valid");
        const RunRecord original = record(*run, common_RunWrapper::Parallel);
        QCOMPARE(original.state, RunRecord::State::Valid);
        const QByteArray seen = takeSeen(run->model());
        QVERIFY2(seen.contains("localhost:2"), seen.constData());

        writeFile(machines, "otherhost:8\n");
        setOption("EnvironmentVariables", text("KEST_COLOUR=red"));
        const RunRecord again = repeat(original, original.model);
        QCOMPARE(again.state, RunRecord::State::Valid);
        const QByteArray environment = contentOf(run->model() + text(".seen"));
        QCOMPARE(takeSeen(run->model()), seen);
        QVERIFY(environment.contains("KEST_COLOUR=blue"));
        QVERIFY(!environment.contains("KEST_COLOUR=red"));

        QCOMPARE(again.repeats, original.number);
        QCOMPARE(again.program, original.program);
        QCOMPARE(again.workingDirectory, original.workingDirectory);
        QCOMPARE(again.environment, original.environment);
        QCOMPARE(again.runOptions, original.runOptions);
        QCOMPARE(contentOf(QDir(again.folder).filePath(again.machinesCopy)),
                 QByteArray("localhost:2\n"));
    }

    void repetitionCanBeRepeated()
    {
        writeFile(m_stage->desk().path("user/machines.kest"), "localhost:2\n");
        const std::unique_ptr<Run> run = m_stage->makeRun("valid");
        const RunRecord first = record(*run, common_RunWrapper::Parallel);
        QVERIFY(QFile::remove(m_stage->desk().path("user/machines.kest")));
        const RunRecord second = repeat(first, first.model);
        QVERIFY(archive().remove(first.number));
        const RunRecord third = repeat(second, second.model);
        QCOMPARE(third.state, RunRecord::State::Valid);
        QCOMPARE(third.repeats, second.number);
    }

    void changeOfTheModelIsSeen()
    {
        const std::unique_ptr<Run> run = m_stage->makeRun("valid");
        const RunRecord original = record(*run);
        QVERIFY(RecordedRun::modelState(original) == ModelState::Unchanged);
        writeFile(original.model, "valid\n");
        QVERIFY(RecordedRun::modelState(original) == ModelState::Changed);
        QVERIFY(QFile::remove(original.model));
        QVERIFY(RecordedRun::modelState(original) == ModelState::Missing);
    }

    void modelAsItWasIsWrittenBesideTheModel()
    {
        const std::unique_ptr<Run> run = m_stage->makeRun("fault", "the model.nec");
        const RunRecord original = record(*run);
        writeFile(original.model, "valid");
        QVERIFY(RecordedRun::hasModelCopy(original));
        const RecordedRun::ModelFile file = RecordedRun::writeModel(original);
        QCOMPARE(file.problem, QString());
        QCOMPARE(file.path, m_stage->desk().path("models/the model-run1.nec"));
        QCOMPARE(contentOf(file.path), QByteArray("fault"));
        QCOMPARE(RecordedRun::writeModel(original).path, file.path);

        const RunRecord again = repeat(original, file.path);
        QCOMPARE(again.state, RunRecord::State::Fault);
        QCOMPARE(again.model, file.path);
        QCOMPARE(again.arguments.first(), text("the model-run1.nec"));
        QCOMPARE(contentOf(original.model), QByteArray("valid"));
    }

    void fileOfAnotherContentIsNotOverwritten()
    {
        const std::unique_ptr<Run> run = m_stage->makeRun("fault");
        const RunRecord original = record(*run);
        writeFile(m_stage->desk().path("models/m-run1.nec"), "mine");
        QCOMPARE(RecordedRun::writeModel(original).path,
                 m_stage->desk().path("models/m-run1-2.nec"));
        QCOMPARE(contentOf(m_stage->desk().path("models/m-run1.nec")), QByteArray("mine"));
    }

    void modelThatIsNotKeptIsAProblem()
    {
        const std::unique_ptr<Run> run = m_stage->makeRun("fault");
        const RunRecord original = record(*run);
        QVERIFY(QFile::remove(original.modelCopyPath()));
        QVERIFY(!RecordedRun::hasModelCopy(original));
        const RecordedRun::ModelFile file = RecordedRun::writeModel(original);
        QCOMPARE(file.path, QString());
        QCOMPARE(file.problem, text("the record of run 1 has no model"));
    }

    void missingPartsAreNamed_data()
    {
        QTest::addColumn<QString>("removed");
        QTest::addColumn<QString>("problem");
        QTest::newRow("program") << text("home/bin/runkest") + text(ProgramName::suffix())
                                 << "which the run was started with, is no longer there";
        QTest::newRow("model") << "models/m.nec"
                               << "there is no model ";
        QTest::newRow("machines file") << "user/runs/1/machines.kest"
                                       << "the record of run 1 has no copy of the machines file";
    }

    void missingPartsAreNamed()
    {
        QFETCH(QString, removed);
        QFETCH(QString, problem);
        writeFile(m_stage->desk().path("user/machines.kest"), "localhost:2\n");
        const std::unique_ptr<Run> run = m_stage->makeRun("valid");
        const RunRecord original = record(*run, common_RunWrapper::Parallel);
        QVERIFY(QFile::remove(m_stage->desk().path(removed)));
        const RunRecord again = repeat(original, original.model);
        QCOMPARE(again.state, RunRecord::State::NotStarted);
        QVERIFY2(again.problem.contains(problem), qPrintable(again.problem));
    }

    // Two runs would write over each other's results.
    void modelIsNotRunTwiceAtATime()
    {
        const std::unique_ptr<Run> run = m_stage->makeRun("valid");
        const RunRecord original = record(*run);
        {
            ModelLock other(original.model);
            QVERIFY(other.take());
            const RunRecord again = repeat(original, original.model);
            QCOMPARE(again.state, RunRecord::State::NotStarted);
            QVERIFY2(again.problem.contains(text("is being run already")),
                     qPrintable(again.problem));
        }
        QCOMPARE(repeat(original, original.model).state, RunRecord::State::Valid);
    }

    // What kept it from starting may be mended by now.
    void runThatWasRefusedIsSetUpAnew()
    {
        const QString machines = m_stage->desk().path("user/machines.kest");
        writeFile(machines, "# host:count\n");
        const std::unique_ptr<Run> run = m_stage->makeRun("valid");
        const RunRecord original = record(*run, common_RunWrapper::Parallel);
        QCOMPARE(original.state, RunRecord::State::NotStarted);
        QVERIFY(!RecordedRun::hasCommand(original));
        writeFile(machines, "localhost:3\n");
        const RunRecord again = repeat(original, original.model);
        QCOMPARE(again.state, RunRecord::State::Valid);
        QCOMPARE(again.runOptions, QStringList({text("parallel")}));
        QVERIFY(takeSeen(run->model()).contains("localhost:3"));
    }

    void unknownComponentIsNotRun()
    {
        RunRecord record;
        record.component = text("nokest");
        QVERIFY(RecordedRun::make(record, text("m.nec"),
                                  common_ActivePtr<ComponentRunner>(new ComponentRunner)) ==
                nullptr);
    }

    void copiesOfTheMachinesFileDoNotMeet()
    {
        const QString taken = m_stage->desk().path("user/gui_tmp_machfile_0");
        writeFile(m_stage->desk().path("user/machines.kest"), "localhost:2\n");
        const std::unique_ptr<Run> run = m_stage->makeRun("valid");
        const RunRecord original = record(*run, common_RunWrapper::Parallel);
        writeFile(taken, "another's");
        const RunRecord again = repeat(original, original.model);
        QCOMPARE(again.state, RunRecord::State::Valid);
        QVERIFY2(again.arguments.join(QLatin1Char(' ')).contains(text("gui_tmp_machfile_1")),
                 qPrintable(again.arguments.join(QLatin1Char(' '))));
        QCOMPARE(contentOf(taken), QByteArray("another's"));
        QVERIFY(QFile::remove(taken));
    }
};

QTEST_GUILESS_MAIN(tst_recorded_run)

#include "tst_recorded_run.moc"
