// SPDX-License-Identifier: MIT
#include <FileReplacement.h>

#include <QDir>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QtTest>

#include <algorithm>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace {

constexpr unsigned long moment = 200; // milliseconds
constexpr int programCount = 4;

} // namespace

// Files that other programs read for a moment, or keep open, or take as well.
class tst_FileReplacement : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<QTemporaryDir> m_folder;

    QString path(const char* name) const { return m_folder->filePath(QString::fromUtf8(name)); }

    QStringList files() const { return QDir(m_folder->path()).entryList(QDir::Files, QDir::Name); }

    std::unique_ptr<QFile> openFile(const char* name) const
    {
        auto file = std::make_unique<QFile>(path(name));
        if (!file->open(QIODevice::ReadWrite) || file->write("x") != 1 || !file->flush()) {
            qFatal("no file");
        }
        return file;
    }

private Q_SLOTS:
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }

    void fileIsRenamed()
    {
        openFile("old")->close();
        QVERIFY(FileReplacement::rename(path("old"), path("new")));
        QCOMPARE(files(), QStringList(QStringLiteral("new")));
    }

    void otherFileIsNotReplaced()
    {
        openFile("old")->close();
        openFile("new")->close();
        QVERIFY(!FileReplacement::rename(path("old"), path("new")));
        QCOMPARE(files(), (QStringList{QStringLiteral("new"), QStringLiteral("old")}));
    }

    void missingFileIsNotWaitedFor()
    {
        QElapsedTimer time;
        time.start();
        QVERIFY(!FileReplacement::rename(path("old"), path("new")));
        QVERIFY(!FileReplacement::remove(path("old")));
        QVERIFY(FileReplacement::longestWait() == 0 ||
                time.elapsed() < FileReplacement::longestWait());
        QCOMPARE(files(), QStringList());
    }

    void fileThatIsOpenForAMomentIsRenamedAndRemoved()
    {
        for (const bool isRemoved : {false, true}) {
            const std::unique_ptr<QFile> reader = openFile("old");
            std::thread other([&reader] {
                QThread::msleep(moment);
                reader->close();
            });
            const bool isDone = isRemoved ? FileReplacement::remove(path("old"))
                                          : FileReplacement::rename(path("old"), path("new"));
            other.join();
            QVERIFY(isDone);
        }
        QCOMPARE(files(), QStringList(QStringLiteral("new")));
    }

    void fileThatStaysOpenIsGivenUp()
    {
        if (FileReplacement::isPossibleWhileOpen()) {
            QSKIP("open files can be renamed and removed here");
        }
        const std::unique_ptr<QFile> reader = openFile("old");
        QElapsedTimer time;
        time.start();
        QVERIFY(!FileReplacement::rename(path("old"), path("new")));
        QVERIFY(time.elapsed() >= FileReplacement::longestWait());
        QVERIFY(!FileReplacement::remove(path("old")));
        QCOMPARE(files(), QStringList(QStringLiteral("old")));
    }

    void oneOfSeveralRenamesAFile()
    {
        for (int round = 0; round < 20; ++round) {
            openFile("old")->close();
            std::vector<std::thread> programs;
            std::vector<char> hasIt(programCount);
            for (int number = 0; number < programCount; ++number) {
                programs.emplace_back([this, number, &hasIt] {
                    const std::string name = "new" + std::to_string(number);
                    (void)QFile(path("old")).open(QIODevice::ReadOnly);
                    const QString newPath = path(name.c_str());
                    hasIt[number] = FileReplacement::rename(path("old"), newPath) &&
                                    QFile(newPath).open(QIODevice::ReadOnly);
                });
            }
            for (std::thread& program : programs) {
                program.join();
            }
            QCOMPARE(std::count(hasIt.cbegin(), hasIt.cend(), 1), 1);
            QCOMPARE(files().size(), 1);
            QVERIFY(QFile::remove(path(qPrintable(files().constFirst()))));
        }
    }
};

QTEST_GUILESS_MAIN(tst_FileReplacement)

#include "tst_FileReplacement.moc"
