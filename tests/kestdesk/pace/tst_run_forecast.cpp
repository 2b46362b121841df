// SPDX-License-Identifier: MIT
#include "RunStage.h"

#include <RunForecast.h>

class tst_run_forecast : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<RunStage> m_stage;

    RunArchive archive() const { return RunArchive(m_stage->desk().path("user/runs")); }

private Q_SLOTS:
    void init()
    {
        m_stage.reset(); // a failed test left it
        m_stage = std::make_unique<RunStage>();
    }

    void steadyRunIsForecastUntilItsEnd()
    {
        const std::unique_ptr<Run> run = m_stage->makeRun("steady");
        const RunForecast forecast(*run, archive());
        const QSignalSpy changes(&forecast, &RunForecast::changed);
        QCOMPARE(forecast.text(), QString());
        m_stage->startWaiting(*run);
        QTRY_VERIFY_WITH_TIMEOUT(!forecast.text().isEmpty(), RunStage::longTime);
        QVERIFY2(forecast.text().startsWith(text("about ")), qPrintable(forecast.text()));
        QVERIFY(forecast.text().endsWith(text(" left")));
        QVERIFY(forecast.remaining().value_or(0) >= 5000);
        QVERIFY(!changes.isEmpty());
        QTRY_COMPARE_WITH_TIMEOUT(run->state(), Run::State::Valid, RunStage::longTime);
        QCOMPARE(forecast.text(), QString());
        QVERIFY(!forecast.remaining());
    }

    void runThatDoesNotGetOnIsNotForecast()
    {
        const std::unique_ptr<Run> run = m_stage->makeRun("halfway");
        const RunForecast forecast(*run, archive());
        m_stage->startWaiting(*run);
        QTest::qWait(3500);
        QCOMPARE(forecast.text(), QString());
        run->stop();
        QTRY_COMPARE_WITH_TIMEOUT(run->state(), Run::State::Stopped, RunStage::longTime);
    }

    void runThatIsStoppedIsNotForecast()
    {
        const std::unique_ptr<Run> run = m_stage->makeRun("steady");
        const RunForecast forecast(*run, archive());
        m_stage->startWaiting(*run);
        QTRY_VERIFY_WITH_TIMEOUT(!forecast.text().isEmpty(), RunStage::longTime);
        run->stop();
        QCOMPARE(forecast.text(), QString());
        QTRY_COMPARE_WITH_TIMEOUT(run->state(), Run::State::Stopped, RunStage::longTime);
    }

    void forecastMayGoWhileItReads()
    {
        const std::unique_ptr<Run> run = m_stage->makeRun("steady");
        auto forecast = std::make_unique<RunForecast>(*run, archive());
        m_stage->startWaiting(*run);
        forecast.reset();
        run->stop();
        QTRY_COMPARE_WITH_TIMEOUT(run->state(), Run::State::Stopped, RunStage::longTime);
    }
};

QTEST_GUILESS_MAIN(tst_run_forecast)

#include "tst_run_forecast.moc"
