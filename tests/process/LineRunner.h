// SPDX-License-Identifier: MIT
#pragma once

#include <RecordingObserver.h>

#include <common_ProcessRunnerBase.h>

#include <QEventLoop>
#include <QTimer>
#include <QtTest>

inline const char* const logVariable = "DUMP_KERNEL_STDOUT_STDERR";

/// Keeps the lines as they are read and opens what is protected.
class LineRunner : public common_ProcessRunnerBase
{
public:
    using common_ProcessRunnerBase::hideConsole;
    using common_ProcessRunnerBase::logProcessOutput;
    using common_ProcessRunnerBase::logToFile;

    QStringList output;
    QStringList errors;
    std::function<void()> onLine = [] {};

protected:
    void onOutputRecieved(const QString& line) override
    {
        output.append(line);
        onLine();
    }
    void onErrorRecieved(const QString& line) override
    {
        errors.append(line);
        onLine();
    }
};

inline QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

inline QStringList words(const char* utf8)
{
    return text(utf8).split(QLatin1Char(' '));
}

inline void setUp(LineRunner& runner, const QStringList& commands)
{
    runner.setExecutable(text(KEST_TEST_CHILD));
    runner.setArguments(commands);
}

/// Runs to the end through the event loop, as applications do. QTest::qWaitFor() would not do: it
/// sleeps between any two looks at the pipes.
inline bool runWithEventLoop(common_ProcessRunnerBase& runner)
{
    QEventLoop loop;
    RecordingObserver end(&runner);
    end.then = [&loop](const QString& event) {
        if (event == text("done")) {
            loop.exit(1);
        }
    };
    QTimer::singleShot(60000, &loop, [&loop] { loop.exit(0); });
    return runner.run() && loop.exec() == 1;
}
