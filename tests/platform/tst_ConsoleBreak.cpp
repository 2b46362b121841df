// SPDX-License-Identifier: MIT
#include <ConsoleBreak.h>

#include <QProcess>
#include <QtTest>

#include <windows.h>

namespace {

constexpr int patience = 30000;                    // milliseconds
constexpr auto endByEvent = STATUS_CONTROL_C_EXIT; // unless the program handles it

void start(QProcess& process)
{
    process.start(QStringLiteral(KEST_TEST_CHILD),
                  {QStringLiteral("out"), QStringLiteral("up\\n"), QStringLiteral("sleep"),
                   QStringLiteral("60000")});
    QVERIFY(process.waitForReadyRead(patience));
}

bool isWine()
{
    return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
}

} // namespace

// Only a real Windows sends these events.
#define SEND(process)                                                                              \
    if (isWine()) {                                                                                \
        QVERIFY(!ConsoleBreak::send(process.processId()));                                         \
        process.kill();                                                                            \
        QVERIFY(process.waitForFinished(patience));                                                \
        QSKIP("Wine sends no console events");                                                     \
    }                                                                                              \
    QVERIFY(ConsoleBreak::send(process.processId()))

class tst_ConsoleBreak : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void endsAProgramWithoutWindow()
    {
        QProcess process;
        ConsoleBreak::prepare(process);
        start(process);
        SEND(process);
        QVERIFY(process.waitForFinished(patience));
        QCOMPARE(static_cast<DWORD>(process.exitCode()), DWORD(endByEvent));
    }

    void reachesNoOtherProgram()
    {
        QProcess other;
        ConsoleBreak::prepare(other);
        start(other);
        QProcess process;
        ConsoleBreak::prepare(process);
        start(process);
        SEND(process);
        QVERIFY(process.waitForFinished(patience));
        QVERIFY(!other.waitForFinished(200));
        other.kill();
        QVERIFY(other.waitForFinished(patience));
    }

    // Attaching to another console replaces them.
    void standardHandlesStay()
    {
        const HANDLE output = GetStdHandle(STD_OUTPUT_HANDLE);
        const HANDLE errors = GetStdHandle(STD_ERROR_HANDLE);
        QProcess process;
        ConsoleBreak::prepare(process);
        start(process);
        SEND(process);
        QVERIFY(process.waitForFinished(patience));
        QVERIFY(GetStdHandle(STD_OUTPUT_HANDLE) == output);
        QVERIFY(GetStdHandle(STD_ERROR_HANDLE) == errors);
    }

    void processThatHasEndedIsNoMatter()
    {
        QProcess process;
        ConsoleBreak::prepare(process);
        start(process);
        const qint64 id = process.processId();
        process.kill();
        QVERIFY(process.waitForFinished(patience));
        QVERIFY(!ConsoleBreak::send(id));
    }
};

QTEST_GUILESS_MAIN(tst_ConsoleBreak)
#include "tst_ConsoleBreak.moc"
