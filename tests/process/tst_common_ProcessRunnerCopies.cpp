// SPDX-License-Identifier: MIT
#include <common_Assert.h>
#include <common_ProcessRunner.h>

#include <QtTest>

#include <memory>

// What a fatal message handler that returns would make of assertions: they are only noted. As the
// program's own definition it is used by the libraries as well.
static QStringList& assertions()
{
    static QStringList list;
    return list;
}

void common_assertionFailed(const char* text, const char* file, int line)
{
    assertions().append(
        QStringLiteral("%1 (%2): %3").arg(QLatin1String(file)).arg(line).arg(QLatin1String(text)));
}

namespace {

using Runner = common_ProcessRunner<common_KestProcessMessage>;

} // namespace

class tst_common_ProcessRunnerCopies : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { assertions().clear(); }

    void copyStaysIncompleteAndIsNotCounted()
    {
        Runner source;
        source.setExecutable(QStringLiteral("x"));
        source.addArgument(QStringLiteral("y"));
        source.reference();
        {
            // NOLINTNEXTLINE(performance-unnecessary-copy-initialization): copies are tested
            const Runner copy(source);
            QCOMPARE(assertions(), QStringList(QStringLiteral(
                                       "src/process/common_ProcessRunnerBase.cpp (40): 0")));
            QCOMPARE(Runner::getProcessCount(), 1);
            QVERIFY(copy.getArguments().isEmpty());
            QCOMPARE(copy.getExecutable().filePath(), QString());
            QCOMPARE(copy.getRefCount(), 0);
        }
        QCOMPARE(Runner::getProcessCount(), 1);
        QCOMPARE(source.getArguments(), QStringList(QStringLiteral("y")));
    }

    void assignmentThrows()
    {
        const Runner source;
        Runner target;
        target.addArgument(QStringLiteral("y"));
        QVERIFY_EXCEPTION_THROWN(target = source, std::exception);
        QCOMPARE(assertions(),
                 QStringList(QStringLiteral("src/process/common_ProcessRunnerBase.cpp (45): 0")));
        QCOMPARE(Runner::getProcessCount(), 2);
        QCOMPARE(target.getArguments(), QStringList(QStringLiteral("y")));
    }
};

QTEST_GUILESS_MAIN(tst_common_ProcessRunnerCopies)
#include "tst_common_ProcessRunnerCopies.moc"
