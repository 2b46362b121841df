// SPDX-License-Identifier: MIT
#include "RunStage.h"

#include "../platform/EndedProcess.h"

#include <CopyAnnouncement.h>
#include <MachinesCopies.h>

#ifdef Q_OS_LINUX
#include <sys/inotify.h>
#include <unistd.h>
#endif

// Copies of the machines file whose makers were killed before the copies had a record.
class tst_copy_announcement : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<RunStage> m_stage;

    QString folder() const { return m_stage->desk().path("user"); }
    QString path(const char* name) const { return folder() + text("/") + text(name); }
    QString copyPath() const { return path("gui_tmp_machfile_7"); }
    QString recordPath() const { return path(".gui_tmp_machfile_7.owner"); }

    QString announcementPath(const QString& mark) const
    {
        return folder() + text("/.gui_tmp_machfile_by_") + mark;
    }

    void announce(const QString& mark, int secondsAgo = 0) const
    {
        QFile file(announcementPath(mark));
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(file.setFileTime(QDateTime::currentDateTime().addSecs(-secondsAgo),
                                 QFileDevice::FileModificationTime));
    }

    // The clock of a file system may go in steps.
    static void passTime() { QTest::qSleep(50); }

    void makeCopy(const QByteArray& content = "host:2\n") const
    {
        passTime();
        writeFile(copyPath(), content);
    }

    void removeLeft() const { MachinesCopies(folder()).removeLeft(); }

    QStringList entries() const
    {
        return QDir(folder()).entryList({text("*gui_tmp*")}, QDir::Files | QDir::Hidden);
    }

#ifdef Q_OS_LINUX
    // What came to a folder and went, with names without numbers.
    static QStringList changes(int watch)
    {
        alignas(inotify_event) char bytes[1 << 16];
        const QRegularExpression withoutNames(text(ProcessMark::pattern) + text("|\\d+"));
        QStringList result;
        const ssize_t size = ::read(watch, bytes, sizeof bytes);
        for (ssize_t at = 0; at < size;) {
            const auto* const event = reinterpret_cast<const inotify_event*>(bytes + at);
            const QString name = QString::fromUtf8(event->name).remove(withoutNames);
            result.append((event->mask & IN_DELETE ? text("-") : text("+")) + name);
            at += static_cast<ssize_t>(sizeof *event) + event->len;
        }
        return result;
    }
#endif

private Q_SLOTS:
    void init()
    {
        m_stage = std::make_unique<RunStage>();
        writeFile(path("machines.kest"), "host:2\n");
    }

    void cleanup()
    {
        m_stage.reset();
    }

    void livesAsLongAsItsObject()
    {
        {
            const CopyAnnouncement announcement(folder());
            QVERIFY(QFile::exists(announcementPath(ProcessMark::own().word())));
        }
        QCOMPARE(entries(), QStringList());
    }

    void announcedCopyIsRemoved_data()
    {
        QTest::addColumn<bool>("hasEmptyRecord");
        QTest::newRow("killed before the record") << false;
        QTest::newRow("killed while the record was written") << true;
    }

    void announcedCopyIsRemoved()
    {
        QFETCH(bool, hasEmptyRecord);
        announce(endedMark());
        makeCopy();
        if (hasEmptyRecord) {
            writeFile(recordPath(), QByteArray());
        }
        removeLeft();
        QCOMPARE(entries(), QStringList());
    }

    void announcementWithoutACopyIsRemoved()
    {
        announce(endedMark());
        removeLeft();
        QCOMPARE(entries(), QStringList());
    }

    void copyOfAnotherTimeStays()
    {
        makeCopy();
        passTime();
        announce(endedMark());
        removeLeft();
        QCOMPARE(entries(), QStringList(text("gui_tmp_machfile_7")));
        announce(endedMark(), 10);
        removeLeft();
        QCOMPARE(entries(), QStringList(text("gui_tmp_machfile_7")));
    }

    void copyWithAnotherContentStays()
    {
        announce(endedMark());
        makeCopy("another:3\n");
        removeLeft();
        QCOMPARE(entries(), QStringList(text("gui_tmp_machfile_7")));
    }

    void copyWithARecordStays()
    {
        announce(endedMark());
        makeCopy();
        writeFile(recordPath(), ProcessMark::own().word().toLatin1() + " 1\n");
        removeLeft();
        QCOMPARE(entries().size(), 2);
    }

    // Whose copy it is, is not known then.
    void everythingStaysWhileAnotherProgramAnnounces()
    {
        announce(endedMark());
        announce(ProcessMark::own().word());
        makeCopy();
        removeLeft();
        QCOMPARE(entries().size(), 3);
        QVERIFY(QFile::remove(announcementPath(ProcessMark::own().word())));
        removeLeft();
        QCOMPARE(entries(), QStringList());
    }

    void foreignAnnouncementsStay_data()
    {
        QTest::addColumn<QString>("mark");
        QTest::newRow("no mark") << text("me");
        QTest::newRow("of another host") << text("00000000") + endedMark().mid(8);
    }

    void foreignAnnouncementsStay()
    {
        QFETCH(QString, mark);
        announce(mark);
        makeCopy();
        removeLeft();
        QCOMPARE(entries().size(), 2);
    }

    void runAnnouncesItsCopyUntilThatHasARecord()
    {
#ifdef Q_OS_LINUX
        const int watch = ::inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
        QVERIFY(watch >= 0);
        QVERIFY(::inotify_add_watch(watch, QFile::encodeName(folder()).constData(),
                                    IN_CREATE | IN_DELETE | IN_MOVED_TO) >= 0);
        const auto run = m_stage->makeRun("valid");
        QVERIFY(m_stage->setUp(*run, common_RunWrapper::Parallel).isReady());
        const QStringList seen = changes(watch).filter(text("machfile"));
        ::close(watch);
        QCOMPARE(seen.join(QLatin1Char(' ')),
                 text("+.gui_tmp_machfile_by_ +gui_tmp_machfile_ +.gui_tmp_machfile_.owner "
                      "-.gui_tmp_machfile_by_"));
#else
        QSKIP("watches the folder by a function of Linux");
#endif
    }
};

QTEST_MAIN(tst_copy_announcement)

#include "tst_copy_announcement.moc"
