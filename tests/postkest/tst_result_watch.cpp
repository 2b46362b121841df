// SPDX-License-Identifier: MIT
#include "ResultWatch.h"

#include <FileReplacement.h>

#include <QFile>
#include <QSaveFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

namespace {

void write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

void replace(const QString& path, const QByteArray& bytes)
{
    QSaveFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
    QVERIFY(file.commit());
}

} // namespace

// A new result is noticed however it came to be.
class tst_result_watch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        m_path = m_folder->filePath(QStringLiteral("model.csv"));
    }

    void replacedFileIsNoticedEachTime()
    {
        write(m_path, "old");
        ResultWatch watch(nullptr);
        watch.add(m_path);
        QSignalSpy spy(&watch, &ResultWatch::changed);
        for (int i = 0; i < 3; ++i) {
            replace(m_path, QByteArray::number(i));
            QVERIFY(spy.wait(30000));
            QCOMPARE(spy.last().first().toString(), m_path);
        }
    }

    void rewrittenFileIsNoticed()
    {
        write(m_path, "old");
        ResultWatch watch(nullptr);
        watch.add(m_path);
        QSignalSpy spy(&watch, &ResultWatch::changed);
        write(m_path, "new and longer");
        QVERIFY(spy.wait(30000));
    }

    void fileThatComesLaterIsNoticed()
    {
        ResultWatch watch(nullptr);
        watch.add(m_path);
        QSignalSpy spy(&watch, &ResultWatch::changed);
        write(m_path, "first");
        QVERIFY(spy.wait(30000));
        QCOMPARE(spy.last().first().toString(), m_path);
    }

    void deletedAndMadeAgainIsNoticed()
    {
        write(m_path, "old");
        ResultWatch watch(nullptr);
        watch.add(m_path);
        QSignalSpy spy(&watch, &ResultWatch::changed);
        QVERIFY(QFile::remove(m_path));
        QTRY_VERIFY(!spy.isEmpty());
        spy.clear();
        write(m_path, "again");
        QVERIFY(spy.wait(30000));
    }

    // The system may tell of the folder before it tells that the old file has gone.
    void newFileInPlaceOfTheOldIsWatchedToo_data()
    {
        QTest::addColumn<bool>("isStillRead");
        QTest::newRow("at once") << false;
        QTest::newRow("somebody still reads the old one") << true;
    }

    void newFileInPlaceOfTheOldIsWatchedToo()
    {
        QFETCH(bool, isStillRead);
        if (isStillRead && !FileReplacement::isPossibleWhileOpen()) {
            QSKIP("files that are read cannot be replaced here");
        }
        write(m_path, "old");
        QFile reader(m_path);
        QVERIFY(!isStillRead || reader.open(QIODevice::ReadOnly));
        ResultWatch watch(nullptr);
        watch.add(m_path);
        QSignalSpy spy(&watch, &ResultWatch::changed);
        for (int i = 0; i < 3; ++i) {
            replace(m_path, "new");
            QVERIFY(spy.wait(30000));
            reader.close(); // only now the old file is gone
            while (spy.wait(500)) {
            }
            spy.clear();
            // Into the same file: the folder has nothing to tell.
            write(m_path, "newer");
            QVERIFY(spy.wait(30000));
            while (spy.wait(500)) {
            }
            spy.clear();
        }
    }

    void otherFilesOfTheFolderAreNobodysBusiness()
    {
        write(m_path, "old");
        ResultWatch watch(nullptr);
        watch.add(m_path);
        QSignalSpy spy(&watch, &ResultWatch::changed);
        write(m_folder->filePath(QStringLiteral("other.csv")), "x");
        QVERIFY(!spy.wait(600)); // in which nothing may come
    }

private:
    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_path;
};

QTEST_GUILESS_MAIN(tst_result_watch)
#include "tst_result_watch.moc"
