// SPDX-License-Identifier: MIT
#include <Listening.h>
#include <UnixLines.h>

#include <common_ActivePtr.h>
#include <common_Assert.h>
#include <common_MultiObserverOf.h>
#include <common_ProcessRunner.h>

#include <QProcess>
#include <QtTest>

#include <functional>
#include <vector>

namespace {

using Runner = common_ProcessRunner<common_GenericProcessMessage>;

class MultiListener : public common_MultiObserverOf<IListener>
{
public:
    void onChanged() override {}
};

class OpenRunner : public Runner
{
public:
    using Runner::getObservers;
    using Runner::notifyProcessStarted;
};

void withRunningChild(const std::function<void(Runner&)>& misuse)
{
    Runner runner;
    runner.setExecutable(QStringLiteral(KEST_TEST_CHILD));
    runner.setArguments({QStringLiteral("sleep"), QStringLiteral("3000")});
    if (runner.run()) {
        misuse(runner);
    }
}

void releaseConnectionTooOften()
{
    Subject subject;
    QStringList calls;
    Listener listener(QString(), &calls);
    Connection(&listener, &subject).dereference();
}

void notifyWithoutObserver()
{
    OpenRunner runner;
    const common_ObserverConnection<common_IProcessRunnerObserver> connection(nullptr, &runner);
    runner.notifyProcessStarted();
}

void endObservableWithoutObserver()
{
    auto* const subject = new Subject;
    new Connection(nullptr, subject);
    delete subject;
}

// The compiler must not see the null pointer, which it would warn of.
Subject* noSubject()
{
    Subject* volatile none = nullptr;
    return none;
}

struct Misuse
{
    const char* name;
    const char* file;
    int line;
    const char* text;
    std::function<void()> commit;
};

const char* const runnerSource = "src/process/common_ProcessRunnerBase.cpp";
const char* const runnerHeader = "include/common_ProcessRunnerBase.h";
const char* const connectionHeader = "include/common_ObserverConnection.h";
const char* const notRunning = "m_pProcess->state() == QProcess::NotRunning";

// clang-format off
const std::vector<Misuse>& misuses()
{
    static const std::vector<Misuse> table = {
        {"macro",                    "include/x.h", 12, "1 == 2", [] { COMMON_ASSERT_AT(false, "1 == 2", "include/x.h", 12); }},
        {"observe null",             "include/common_ObserverOf.h", 83, "pObservable", [] { QStringList calls; Listener(QString(), &calls).startObserving(noSubject()); }},
        {"connection to null",       connectionHeader, 128, "pObservable != NULL", [] { QStringList calls; Listener listener(QString(), &calls); const Connection connection(&listener, noSubject()); }},
        {"connection without observer", connectionHeader, 54, "m_pObserver", [] { Subject subject; const Connection connection(nullptr, &subject); connection.getObserver(); }},
        {"connection released too often", connectionHeader, 22, "m_refCount > 0", releaseConnectionTooOften},
        {"notification without observer", connectionHeader, 54, "m_pObserver", notifyWithoutObserver},
        {"end without observer",     connectionHeader, 54, "m_pObserver", endObservableWithoutObserver},
        {"multi-observer stops what it does not observe", "include/common_MultiObserverOf.h", 114, "m_observerConnectionMap.contains(pObservable)", [] { Subject subject; MultiListener().stopObserving(&subject); }},
        {"multi-observer observes null", connectionHeader, 128, "pObservable != NULL", [] { MultiListener().startObserving(noSubject()); }},
        {"setProcessEnvironment while running",  runnerSource, 77,  notRunning, [] { withRunningChild([](Runner& r) { r.setProcessEnvironment({}); }); }},
        {"setArguments while running",           runnerSource, 97,  notRunning, [] { withRunningChild([](Runner& r) { r.setArguments({}); }); }},
        {"addArgument while running",            runnerSource, 104, notRunning, [] { withRunningChild([](Runner& r) { r.addArgument({}); }); }},
        {"addArguments while running",           runnerSource, 111, notRunning, [] { withRunningChild([](Runner& r) { r.addArguments({}); }); }},
        {"clearArguments while running",         runnerSource, 118, notRunning, [] { withRunningChild([](Runner& r) { r.clearArguments(); }); }},
        {"setExecutable(file) while running",    runnerSource, 130, notRunning, [] { withRunningChild([](Runner& r) { r.setExecutable(QFileInfo(QStringLiteral("x"))); }); }},
        {"setExecutable(empty file)",            runnerSource, 131, "!fileInfo.absoluteFilePath().isEmpty()", [] { Runner().setExecutable(QFileInfo()); }},
        {"setExecutable(text) while running",    runnerSource, 138, notRunning, [] { withRunningChild([](Runner& r) { r.setExecutable(QString()); }); }},
        {"setWorkingDirectory while running",    runnerSource, 151, notRunning, [] { withRunningChild([](Runner& r) { r.setWorkingDirectory({}); }); }},
        {"setTemporaryFilenames while running",  runnerSource, 163, notRunning, [] { withRunningChild([](Runner& r) { r.setTemporaryFilenames({}); }); }},
        {"runner released too often",            runnerHeader, 43,  "m_refCount > 0", [] { Runner().dereference(); }},
        {"runner copied",                        runnerSource, 40,  "0", [] { const Runner source; const Runner copy(source); }}, // NOLINT(performance-unnecessary-copy-initialization): that is refused
        {"runner assigned",                      runnerSource, 45,  "0", [] { const Runner source; Runner target; target = source; }},
    };
    return table;
}
// clang-format on

const char* const misuseVariable = "KEST_TEST_MISUSE";

} // namespace

/// Commits every misuse in a process of its own, which must end with the message.
class tst_common_Assert : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void holdsItsPeaceWhenTheConditionHolds()
    {
        int evaluations = 0;
        COMMON_ASSERT_AT(++evaluations, "evaluations", "include/x.h", 1);
        QCOMPARE(evaluations, 1);
    }

    void endsTheProcess_data()
    {
        QTest::addColumn<int>("number");
        for (std::size_t number = 0; number < misuses().size(); ++number) {
            QTest::newRow(misuses()[number].name) << int(number);
        }
    }

    void endsTheProcess()
    {
        QFETCH(int, number);
        const Misuse& misuse = misuses()[std::size_t(number)];
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QLatin1String(misuseVariable), QString::number(number));
        environment.insert(QStringLiteral("ASAN_OPTIONS"), QStringLiteral("detect_leaks=0"));
        process.setProcessEnvironment(environment);
        process.start(QCoreApplication::applicationFilePath(), QStringList());
        QVERIFY(process.waitForFinished());
        const QString expected = QStringLiteral("%1 (%2): Assertion failed: %3\n")
                                     .arg(QLatin1String(misuse.file))
                                     .arg(misuse.line)
                                     .arg(QLatin1String(misuse.text));
        QCOMPARE(QString::fromUtf8(unixLines(process.readAllStandardError())), expected);
        QCOMPARE(process.exitStatus(), QProcess::CrashExit);
    }
};

int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    if (qEnvironmentVariableIsSet(misuseVariable)) {
        misuses().at(std::size_t(qEnvironmentVariableIntValue(misuseVariable))).commit();
        return 0;
    }
    tst_common_Assert test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_common_Assert.moc"
