// SPDX-License-Identifier: MIT
#include "LineRunner.h"

#include <common_ActivePtr.h>
#include <common_ProcessRunner.h>
#include <common_ProcessRunnerObserver.h>

#include <QtTest>

#include <memory>

namespace {

using Observer = common_ProcessRunnerObserver;
using Runner = common_ProcessRunner<common_GenericProcessMessage>;
using RunnerPointer = common_ActivePtr<Runner>;

static_assert(!std::is_copy_constructible<Observer>::value, "functions refer to their observer");

RunnerPointer makeRunner(const QStringList& commands)
{
    RunnerPointer runner(new Runner);
    runner->setExecutable(text(KEST_TEST_CHILD));
    runner->setArguments(commands);
    return runner;
}

/// Sets a function for each notification that writes it down.
void recordAll(Observer& observer, QStringList& events)
{
    observer
        .setStartedFunction([&events](const QString& executable, const QStringList& arguments) {
            events.append(text("started ") + executable + text(" ") + arguments.join(text(" ")));
        })
        .setFailedFunction([&events](const QString& executable, const QStringList& /*arguments*/,
                                     const QString& errorString) {
            events.append(text("failed ") + executable + text(errorString.isEmpty() ? "" : " why"));
        })
        .setMessageFunction([&events](const common_IProcessMessage& message) {
            events.append(QStringLiteral("%1 %2").arg(message.getType()).arg(message.getText()));
        })
        .setDoneFunction([&events] { events.append(text("done")); })
        .setExitCodeFunction([&events](int exitCode) {
            events.append(QStringLiteral("exit code %1").arg(exitCode));
        });
}

/// Overrides one operation.
class CountingObserver : public common_ProcessRunnerObserver
{
public:
    using common_ProcessRunnerObserver::common_ProcessRunnerObserver;

    void onProcessMessageReceived(const common_IProcessMessage& /*message*/) override { ++count; }

    int count = 0;
};

} // namespace

class tst_common_ProcessRunnerObserver : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void callsTheFunctionOfEachNotification()
    {
        const RunnerPointer runner = makeRunner(words("out A\\n err B\\n exit 3"));
        Observer observer(runner.get());
        QStringList events;
        recordAll(observer, events);
        QVERIFY(runner->runAndWaitForFinish());
        QCOMPARE(events.takeFirst(),
                 text("started ") + text(KEST_TEST_CHILD) + text(" out A\\n err B\\n exit 3"));
        QVERIFY(events.removeOne(text("0 A")));
        QVERIFY(events.removeOne(text("4 B")));
        QCOMPARE(events, QStringList({text("exit code 3"), text("done")}));
    }

    void tellsWhyAStartFailed()
    {
        const RunnerPointer runner = makeRunner({});
        runner->setExecutable(text("/no/such/program"));
        Observer observer(runner.get());
        QStringList events;
        recordAll(observer, events);
        QVERIFY(!runner->run());
        QCOMPARE(events.size(), 2); // the exit code first, which means nothing
        QCOMPARE(events.at(1), text("failed /no/such/program why"));
    }

    void ignoresWhatNoFunctionIsSetFor()
    {
        const RunnerPointer runner = makeRunner(words("out A\\n exit 3"));
        const Observer silent(runner.get());
        Observer observer(runner.get());
        int exitCode = -1;
        observer.setExitCodeFunction([&exitCode](int code) { exitCode = code; });
        QVERIFY(runner->runAndWaitForFinish());
        QCOMPARE(exitCode, 3);
    }

    void anEmptyFunctionIgnoresANotificationAgain()
    {
        const RunnerPointer runner = makeRunner(words("out A\\n"));
        Observer observer(runner.get());
        QStringList events;
        recordAll(observer, events);
        observer.setStartedFunction({}).setMessageFunction({}).setExitCodeFunction({});
        QVERIFY(runner->runAndWaitForFinish());
        QCOMPARE(events, QStringList(text("done")));
    }

    void anOverrideTakesThePlaceOfAFunction()
    {
        const RunnerPointer runner = makeRunner(words("out A\\nB\\n"));
        CountingObserver observer(runner.get());
        QStringList events;
        recordAll(observer, events);
        QVERIFY(runner->runAndWaitForFinish());
        QCOMPARE(observer.count, 2);
        QCOMPARE(events.filter(text("0 ")), QStringList());
    }

    void startsAndStopsToObserve()
    {
        const RunnerPointer runner = makeRunner(words("exit 3"));
        Observer observer;
        int ends = 0;
        observer.setDoneFunction([&ends] { ++ends; });
        QVERIFY(runner->runAndWaitForFinish());
        QCOMPARE(ends, 0);
        observer.startObserving(runner.get());
        QVERIFY(runner->runAndWaitForFinish());
        QCOMPARE(ends, 1);
        observer.stopObserving();
        QVERIFY(runner->runAndWaitForFinish());
        QCOMPARE(ends, 1);
    }

    // The function is still running when its observer, which holds it, is gone.
    void aFunctionMayDestroyItsObserver()
    {
        const RunnerPointer runner = makeRunner(words("out A\\nB\\n"));
        auto observer = std::make_unique<Observer>(runner.get());
        const QString captured =
            text("long enough to be on the heap, in the function's own memory");
        QStringList seen;
        observer->setMessageFunction([&observer, &seen, captured](const common_IProcessMessage&) {
            observer.reset();
            seen.append(captured);
        });
        QVERIFY(runner->runAndWaitForFinish());
        QCOMPARE(seen, QStringList(captured));
    }

    void aFunctionMayReplaceItself()
    {
        const RunnerPointer runner = makeRunner(words(R"(out A\nB\nC\n)"));
        Observer observer(runner.get());
        const QString captured =
            text("long enough to be on the heap, in the function's own memory");
        QStringList seen;
        observer.setMessageFunction([&observer, &seen, captured](const common_IProcessMessage&) {
            observer.setMessageFunction(
                [&seen](const common_IProcessMessage& message) { seen.append(message.getText()); });
            seen.append(captured);
        });
        QVERIFY(runner->runAndWaitForFinish());
        QCOMPARE(seen, QStringList({captured, text("B"), text("C")}));
    }

    void outlivesItsRunner()
    {
        RunnerPointer runner = makeRunner({});
        const Observer observer(runner.get());
        runner.reset();
        QVERIFY(runner.isNull());
        QCOMPARE(Runner::getProcessCount(), 0);
    }
};

QTEST_GUILESS_MAIN(tst_common_ProcessRunnerObserver)
#include "tst_common_ProcessRunnerObserver.moc"
