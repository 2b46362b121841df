// SPDX-License-Identifier: MIT
#include <ChildProcess.h>

#include <QElapsedTimer>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include <windows.h>

namespace {

constexpr int patience = 30000; // milliseconds

/// Holds a file open, so that the system starts no program from it.
class HeldFile
{
public:
    explicit HeldFile(const QString& path)
        : m_handle(CreateFileW(reinterpret_cast<const wchar_t*>(path.utf16()),
                               GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                               FILE_ATTRIBUTE_NORMAL, nullptr))
    {}
    ~HeldFile() { CloseHandle(m_handle); }

    HeldFile(const HeldFile&) = delete;
    HeldFile& operator=(const HeldFile&) = delete;

    bool isHeld() const { return m_handle != INVALID_HANDLE_VALUE; }

private:
    HANDLE m_handle;
};

} // namespace

/// Starts that the system refuses.
class tst_child_process_on_windows : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        m_program = m_folder->filePath(QStringLiteral("child.exe"));
        QVERIFY(QFile::copy(QStringLiteral(KEST_TEST_CHILD), m_program));
    }

    void programThatIsHeldForAMomentIsStarted()
    {
        auto held = std::make_unique<HeldFile>(m_program);
        QVERIFY(held->isHeld());
        const std::unique_ptr<QThread> release(QThread::create([&held] {
            QThread::msleep(30);
            held.reset();
        }));
        release->start();
        ChildProcess child;
        QSignalSpy ended(&child, &ChildProcess::ended);
        const bool isStarted = child.start(m_program, {});
        QVERIFY(release->wait());
        QVERIFY2(isStarted, qPrintable(child.startError()));
        QVERIFY(ended.wait(patience));
        QCOMPARE(child.exitCode(), 0);
        QCOMPARE(ended.size(), 1);
    }

    void programThatStaysHeldIsReportedSoon()
    {
        const HeldFile held(m_program);
        QVERIFY(held.isHeld());
        ChildProcess child;
        QSignalSpy ended(&child, &ChildProcess::ended);
        QElapsedTimer timer;
        timer.start();
        QVERIFY(!child.start(m_program, {}));
        QVERIFY(timer.elapsed() < 1000);
        QVERIFY(!child.startError().isEmpty());
        QVERIFY(ended.wait(patience));
        QCOMPARE(ended.size(), 1);
    }

    void programThatIsMissingIsReportedAtOnce()
    {
        ChildProcess child;
        QSignalSpy ended(&child, &ChildProcess::ended);
        QVERIFY(!child.start(m_folder->filePath(QStringLiteral("none.exe")), {}));
        QVERIFY(!child.startError().isEmpty());
        QVERIFY(ended.wait(patience));
    }

private:
    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_program;
};

QTEST_GUILESS_MAIN(tst_child_process_on_windows)
#include "tst_child_process_on_windows.moc"
