#include <Descendants.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <QProcess>
#include <QTimer>
#include <QtTest>

#include <csignal>

#include <sys/prctl.h>

namespace {

bool adoptsOrphans()
{
    int adopts = 0;
    prctl(PR_GET_CHILD_SUBREAPER, &adopts);
    return adopts != 0;
}

// A process that is nobody's child.
qint64 startDetached()
{
    qint64 process = 0;
    QProcess::startDetached(QStringLiteral("/bin/sleep"), {QStringLiteral("1000")}, QString(),
                            &process);
    return process;
}

void end(qint64 process)
{
    QVERIFY(process > 0);
    ::kill(static_cast<pid_t>(process), SIGKILL);
}

} // namespace

class tst_descendants : public QObject
{
    Q_OBJECT

private:
    qint64 m_process = 0;

private Q_SLOTS:
    void init() { prctl(PR_SET_CHILD_SUBREAPER, 0); }

    void cleanup() const
    {
        end(m_process);
        QTRY_VERIFY(!Descendants::areAlive());
    }

    void nothingChangesWhereOrphansAreLeftAlone()
    {
        bool isCalled = false;
        Descendants::startApart([&] {
            isCalled = true;
            m_process = startDetached();
        });
        QVERIFY(isCalled);
        QVERIFY(!adoptsOrphans());
        QVERIFY(!Descendants::areAlive());
        QCoreApplication::processEvents();
        QVERIFY(!adoptsOrphans());
    }

    void orphansCountAmongTheProcesses()
    {
        Descendants::adoptOrphans();
        m_process = startDetached();
        QVERIFY(Descendants::areAlive());
    }

    void whatIsStartedApartDoesNot()
    {
        Descendants::adoptOrphans();
        Descendants::startApart([this] { m_process = startDetached(); });
        QVERIFY(!Descendants::areAlive());
        Descendants::killAll();
        QCOMPARE(::kill(static_cast<pid_t>(m_process), 0), 0);
        QVERIFY(adoptsOrphans());
    }

    void orphansAreAdoptedWhileAMessageIsShownInstead()
    {
        Descendants::adoptOrphans();
        Descendants::startApart([this] {
            QVERIFY(!adoptsOrphans());
            QEventLoop message;
            QTimer::singleShot(50, &message, &QEventLoop::quit);
            message.exec();
            QVERIFY(adoptsOrphans());
            m_process = startDetached();
        });
        QVERIFY(Descendants::areAlive());
    }
};

QTEST_GUILESS_MAIN(tst_descendants)

#include "tst_descendants.moc"
