// SPDX-License-Identifier: MIT
#include <common_ActivePtr.h>
#include <common_ObserverOf.h>
#include <common_ProcessRunner.h>

#include <cstdio>

namespace {

using Runner = common_ProcessRunner<common_GenericProcessMessage>;

class Printer : public common_ObserverOf<common_IProcessRunnerObserver>
{
public:
    explicit Printer(Runner* runner) : common_ObserverOf(runner) {}

    void onProcessStarted(const QString&, const QStringList&) override {}
    void onFailedProcessStarted(const QString&, const QStringList&, const QString&) override {}
    void onProcessMessageReceived(const common_IProcessMessage& message) override
    {
        m_text += message.getText();
    }
    void onProcessDone() override { std::printf("%s\n", qPrintable(m_text)); }
    void onExitCodeChanged(int exitCode) override { std::printf("%d, ", exitCode); }

private:
    QString m_text;
};

} // namespace

int main()
{
    const common_ActivePtr<Runner> runner(new Runner);
    const Printer printer(runner.get());
    runner->setExecutable(QStringLiteral("echo"));
    runner->addArgument(QStringLiteral("hello from the child"));
    return runner->runAndWaitForFinish() ? 0 : 1;
}
