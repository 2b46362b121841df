// SPDX-License-Identifier: MIT
#include <common_IProcessRunnerMediatorObserver.h>
#include <common_ProcessRunnerMediator.h>

#include <QMetaMethod>
#include <QtTest>

namespace {

class Recorder : public common_IProcessRunnerMediatorObserver
{
public:
    void onReadPipe() override { calls.append(QStringLiteral("output")); }
    void onReadErrorPipe() override { calls.append(QStringLiteral("error")); }
    void onProcessDone() override { calls.append(QStringLiteral("done")); }

    QStringList calls;
};

} // namespace

class tst_common_ProcessRunnerMediator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void hasItsSlotsInOrderAndNoSignal()
    {
        const QMetaObject& meta = common_ProcessRunnerMediator::staticMetaObject;
        QStringList methods;
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
            methods.append(QString::fromLatin1(meta.method(i).methodSignature()));
            QCOMPARE(meta.method(i).methodType(), QMetaMethod::Slot);
            QCOMPARE(meta.method(i).access(), QMetaMethod::Private);
        }
        QCOMPARE(methods.join(QLatin1Char(' ')),
                 QStringLiteral("onProcessFinished(int,QProcess::ExitStatus) onPipeReady() "
                                "onErrorPipeReady()"));
    }

    void hasNoParent()
    {
        Recorder recorder;
        QVERIFY(!common_ProcessRunnerMediator(&recorder).parent());
    }

    void passesOnWhatTheProcessSignals()
    {
        Recorder recorder;
        common_ProcessRunnerMediator mediator(&recorder);
        QProcess process;
        mediator.setProcess(&process);
        process.start(QStringLiteral(KEST_TEST_CHILD),
                      {QStringLiteral("out"), QStringLiteral("x"), QStringLiteral("sleep"),
                       QStringLiteral("50"), QStringLiteral("err"), QStringLiteral("y")});
        QVERIFY(process.waitForFinished());
        QCOMPARE(recorder.calls.value(0), QStringLiteral("output"));
        QVERIFY(recorder.calls.contains(QStringLiteral("error")));
        QCOMPARE(recorder.calls.last(), QStringLiteral("done"));
        QCOMPARE(recorder.calls.count(QStringLiteral("done")), 1);
    }

    void destroyedMediatorPassesNothingOn()
    {
        Recorder recorder;
        QProcess process;
        {
            common_ProcessRunnerMediator mediator(&recorder);
            mediator.setProcess(&process);
        }
        process.start(QStringLiteral(KEST_TEST_CHILD),
                      {QStringLiteral("out"), QStringLiteral("x")});
        QVERIFY(process.waitForFinished());
        QVERIFY(recorder.calls.isEmpty());
    }
};

QTEST_GUILESS_MAIN(tst_common_ProcessRunnerMediator)
#include "tst_common_ProcessRunnerMediator.moc"
