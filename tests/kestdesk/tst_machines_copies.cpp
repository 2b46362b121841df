// SPDX-License-Identifier: MIT
#include "Desk.h"

#include "../platform/EndedProcess.h"

#include <ComponentRunner.h>
#include <MachinesCopies.h>
#include <RunningProcesses.h>
#include <SystemSkips.h>

#include <common_ActivePtr.h>

// Whose copies of the machines file are whose.
class tst_machines_copies : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<QTemporaryDir> m_folder;
    common_ActivePtr<ComponentRunner> m_runner;

    QString path(const QString& name) const { return m_folder->filePath(name); }
    QString copyPath(int number) const
    {
        return path(QStringLiteral("gui_tmp_machfile_%1").arg(number));
    }
    QString recordPath(int number) const
    {
        return path(QStringLiteral(".gui_tmp_machfile_%1.owner").arg(number));
    }
    MachinesCopies copies() const { return MachinesCopies(m_folder->path()); }

    // As a set-up does it.
    void makeCopy(int number, const QByteArray& content = "host:2\n") const
    {
        writeFile(copyPath(number), content);
        m_runner->setTemporaryFilenames({copyPath(number)});
    }

    // A copy with its record, which says that this process made it.
    void leaveCopy(int number, const QString& mark) const
    {
        writeFile(copyPath(number), "host:2\n");
        const qint64 time = QFileInfo(copyPath(number)).lastModified().toMSecsSinceEpoch();
        writeFile(recordPath(number), mark.toLatin1() + ' ' + QByteArray::number(time) + '\n');
    }

    QStringList entries() const
    {
        return QDir(m_folder->path())
            .entryList({text("*gui_tmp*")},
                       QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    static void compare(MachinesCopies::Claim claim, MachinesCopies::Claim expected)
    {
        QCOMPARE(static_cast<int>(claim), static_cast<int>(expected));
    }

private Q_SLOTS:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        qputenv("KEST_USER_HOME", m_folder->path().toUtf8());
        qputenv("KEST_HOME", m_folder->path().toUtf8());
        writeFile(path(text("machines.kest")), "host:2\n");
        m_runner = common_ActivePtr<ComponentRunner>(new ComponentRunner);
    }

    void newCopyIsTheRunnersOwn()
    {
        const auto before = copies().times();
        makeCopy(7);
        compare(copies().claim(*m_runner, before), MachinesCopies::Claim::Own);
        QCOMPARE(m_runner->getTemporaryFilenames(), QStringList({copyPath(7), recordPath(7)}));
        QVERIFY(contentOf(recordPath(7)).startsWith(ProcessMark::own().word().toLatin1() + ' '));
        m_runner->deleteTemporaryFiles();
        QCOMPARE(entries(), QStringList());
    }

    void copyThatWasThereBelongsToSomebodyElse()
    {
        writeFile(copyPath(7), "host:2\n");
        const auto before = copies().times();
        m_runner->setTemporaryFilenames({copyPath(7)});
        compare(copies().claim(*m_runner, before), MachinesCopies::Claim::Foreign);
        QCOMPARE(m_runner->getTemporaryFilenames(), QStringList());
        QCOMPARE(entries(), QStringList(text("gui_tmp_machfile_7")));
    }

    // Both have seen no copy, and one of them made it.
    void ofTwoRunsOneOwnsTheCopy()
    {
        const auto before = copies().times();
        const common_ActivePtr<ComponentRunner> other(new ComponentRunner);
        makeCopy(7);
        other->setTemporaryFilenames({copyPath(7)});
        compare(copies().claim(*m_runner, before), MachinesCopies::Claim::Own);
        compare(copies().claim(*other, before), MachinesCopies::Claim::Foreign);
        QCOMPARE(other->getTemporaryFilenames(), QStringList());
        QCOMPARE(entries().size(), 2);
    }

    void copyThatIsNotAsTheMachinesFileIsNotUsed()
    {
        const auto before = copies().times();
        makeCopy(7, "long.ago:2\n");
        compare(copies().claim(*m_runner, before), MachinesCopies::Claim::Foreign);
        QCOMPARE(entries(), QStringList());
    }

    void linkInPlaceOfTheCopyIsNotUsed()
    {
        writeFile(path(text("elsewhere")), "host:2\n");
        const auto before = copies().times();
        QVERIFY(QFile::link(path(text("elsewhere")), copyPath(7)));
        m_runner->setTemporaryFilenames({copyPath(7)});
        compare(copies().claim(*m_runner, before), MachinesCopies::Claim::Foreign);
        QCOMPARE(m_runner->getTemporaryFilenames(), QStringList());
    }

    void runnerWithoutACopyDeletesNothing()
    {
        const auto before = copies().times();
        m_runner->setTemporaryFilenames({copyPath(7)}); // could not be made
        compare(copies().claim(*m_runner, before), MachinesCopies::Claim::Own);
        QCOMPARE(m_runner->getTemporaryFilenames(), QStringList());
    }

    void namesCanRunOut()
    {
        QVERIFY(copies().waitForFreeName(copies().times(), 0));
        for (int number = 0; number < 1000; ++number) {
            writeFile(copyPath(number), "host:2\n");
        }
        QVERIFY(!copies().waitForFreeName(copies().times(), 0));
        QVERIFY(QFile::remove(copyPath(321)));
        QVERIFY(copies().waitForFreeName(copies().times(), 0));
    }

    void waitsForTheMomentOfAFreeName()
    {
        for (int number = 0; number < 1000; ++number) {
            if (number < 300 || number >= 600) {
                writeFile(copyPath(number), "host:2\n");
            }
        }
        const auto taken = copies().times();
        for (const int lead : {0, 250}) {
            QVERIFY(copies().waitForFreeName(taken, lead));
            const int number = (QTime::currentTime().msec() + lead) % 1000;
            QVERIFY2(number >= 300 && number < 800, qPrintable(QString::number(number)));
        }
    }

    void numberOfACopyIsThatOfItsName()
    {
        QCOMPARE(MachinesCopies::millisecondOf(*m_runner), -1);
        makeCopy(7);
        QCOMPARE(MachinesCopies::millisecondOf(*m_runner), 7);
    }

    void copyOfAKilledProcessIsRemoved()
    {
        leaveCopy(7, endedMark());
        copies().removeLeft();
        QCOMPARE(entries(), QStringList());
    }

    void copyOfALivingProcessStays()
    {
        leaveCopy(7, ProcessMark::own().word());
        copies().removeLeft();
        QCOMPARE(entries().size(), 2);
    }

    void copyOfAnotherHostStays()
    {
        leaveCopy(7, text("00000000") + endedMark().mid(8));
        copies().removeLeft();
        QCOMPARE(entries().size(), 2);
    }

    void copyThatNobodyHasClaimedStays()
    {
        writeFile(copyPath(7), "host:2\n");
        copies().removeLeft();
        QCOMPARE(entries(), QStringList(text("gui_tmp_machfile_7")));
    }

    // The component goes on after the program that started it was killed.
    void copyThatAProcessWasGivenStaysUntilThatHasEnded()
    {
        SKIP_ON_WINDOWS("components end with the program that has started them");
        leaveCopy(7, endedMark());
        QProcess component;
        component.start(text("/bin/sh"), {text("-c"), text("read line"), copyPath(7)});
        QVERIFY(component.waitForStarted());
        QTRY_VERIFY(RunningProcesses::haveArgumentEndingWith(copyPath(7)));
        copies().removeLeft();
        QCOMPARE(entries().size(), 2);
        component.kill();
        QVERIFY(component.waitForFinished());
        copies().removeLeft();
        QCOMPARE(entries(), QStringList());
    }

    // The copy went, and another program made one of this name.
    void laterCopyOfTheSameNameStays()
    {
        leaveCopy(7, endedMark());
        QFile later(copyPath(7));
        QVERIFY(later.open(QIODevice::ReadWrite));
        QVERIFY(later.setFileTime(QDateTime::currentDateTime().addSecs(1),
                                  QFileDevice::FileModificationTime));
        later.close();
        copies().removeLeft();
        QCOMPARE(entries(), QStringList(text("gui_tmp_machfile_7")));
    }

    void recordWithoutACopyIsRemoved()
    {
        leaveCopy(7, endedMark());
        QVERIFY(QFile::remove(copyPath(7)));
        copies().removeLeft();
        QCOMPARE(entries(), QStringList());
    }

    void whatIsNoRecordStays_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("words") << QByteArray("some words\n");
        QTest::newRow("noise") << QByteArray("\0\1\2\3", 4);
        QTest::newRow("long") << QByteArray(100000, 'x');
        QTest::newRow("long, with a mark")
            << endedMark().toLatin1() + QByteArray(1000, ' ') + "1\n";
    }

    void whatIsNoRecordStays()
    {
        QFETCH(QByteArray, content);
        writeFile(copyPath(7), "host:2\n");
        writeFile(recordPath(7), content);
        copies().removeLeft();
        QCOMPARE(entries().size(), 2);
    }

    void linksAreNotFollowed()
    {
        SKIP_WITHOUT_SYMBOLIC_LINKS();
        leaveCopy(7, endedMark());
        QVERIFY(QFile::rename(recordPath(7), path(text("elsewhere"))));
        QVERIFY(QFile::link(path(text("elsewhere")), recordPath(7)));
        copies().removeLeft();
        QCOMPARE(entries().size(), 2);

        QVERIFY(QFile::remove(recordPath(7)));
        QVERIFY(QFile::rename(copyPath(7), path(text("target"))));
        QVERIFY(QFile::link(path(text("target")), copyPath(7)));
        QVERIFY(QFile::rename(path(text("elsewhere")), recordPath(7)));
        copies().removeLeft();
        QVERIFY(QFile::exists(path(text("target"))));
        QVERIFY(QFileInfo(copyPath(7)).isSymLink());
    }
};

QTEST_GUILESS_MAIN(tst_machines_copies)

#include "tst_machines_copies.moc"
