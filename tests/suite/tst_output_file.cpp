// SPDX-License-Identifier: MIT
#include "OutputFile.h"
#include "ResultFiles.h"
#include "TemporaryFolder.h"

#include <FileSizeLimit.h>
#include <SpecialFile.h>
#include <SystemSkips.h>

#include <QTemporaryDir>
#include <QtTest>

#include <thread>

using suite::OutputFile;
using suite::ResultFiles;

namespace {

constexpr int limit = 100; // bytes

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

} // namespace

// A file is replaced as a whole, or stays what it was.
class tst_output_file : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<QTemporaryDir> m_folder;

    QString path(const char* name) const { return m_folder->filePath(text(name)); }

    QString write(const char* name, const QByteArray& content) const
    {
        QFile file(path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
            qFatal("no file");
        }
        return file.fileName();
    }

    QByteArray read(const char* name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArrayLiteral("missing");
    }

    QStringList entries() const
    {
        return QDir(m_folder->path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

private Q_SLOTS:
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }

    void fileThatIsReadForAMomentIsReplaced()
    {
        QFile reader(write("file", "old"));
        QVERIFY(reader.open(QIODevice::ReadOnly));
        std::thread other([&reader] {
            QThread::msleep(200);
            reader.close();
        });
        OutputFile file(path("file"));
        const bool isReplaced = file.replace("new");
        other.join();
        QVERIFY2(isReplaced, qPrintable(file.reason()));
        QCOMPARE(read("file"), QByteArrayLiteral("new"));
    }

    void contentReplacesAFile_data()
    {
        QTest::addColumn<QByteArray>("old");
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("new") << QByteArray() << QByteArray("a\r\nb\0c", 6);
        QTest::newRow("shorter") << QByteArray(1000, 'x') << QByteArray("short");
        QTest::newRow("empty") << QByteArray("old") << QByteArray();
        QTest::newRow("large") << QByteArray("old") << QByteArray(3 << 20, 'y');
    }

    void contentReplacesAFile()
    {
        QFETCH(QByteArray, old);
        QFETCH(QByteArray, content);
        if (!old.isEmpty()) {
            write("file", old);
        }
        OutputFile file(path("file"));
        QVERIFY2(file.replace(content), qPrintable(file.reason()));
        QCOMPARE(read("file"), content);
        QCOMPARE(entries(), QStringList(text("file")));
    }

    void nothingChangesBeforeTheEnd()
    {
        write("file", "old");
        {
            OutputFile file(path("file"));
            QVERIFY(file.open() && file.append("new"));
            QCOMPARE(read("file"), QByteArray("old"));
        }
        QCOMPARE(read("file"), QByteArray("old"));
        QCOMPARE(entries(), QStringList(text("file")));
    }

    // What is written last is what does not fit; the first write of it ends early and is no error.
    void fullDiskKeepsTheOldFileAndSaysWhy_data()
    {
        QTest::addColumn<int>("size");
        QTest::newRow("one byte too many") << limit + 1;
        QTest::newRow("more than a buffer") << (1 << 20);
    }

    void fullDiskKeepsTheOldFileAndSaysWhy()
    {
        SKIP_WITHOUT_FILE_SIZE_LIMITS();
        QFETCH(int, size);
        write("file", "old");
        {
            const FileSizeLimit full(limit);
            OutputFile file(path("file"));
            QVERIFY(file.replace(QByteArray(limit, 'x')));
            OutputFile large(path("file"));
            QVERIFY(!large.replace(QByteArray(size, 'y')));
            QCOMPARE(large.reason(), text("File too large"));
        }
        QCOMPARE(read("file"), QByteArray(limit, 'x'));
        QCOMPARE(entries(), QStringList(text("file")));
    }

    void whatIsNoFileIsNotReplaced()
    {
        SPECIAL_FILE_OR_SKIP(S_IFIFO, path("pipe"));
        QVERIFY(QFile::link(path("pipe"), path("link")));
        const QStringList before = entries();
        const auto reasonOf = [](const QString& path) {
            OutputFile file(path);
            return file.replace("x") ? QString() : file.reason();
        };
        QCOMPARE(reasonOf(path("pipe")), text("it is not a regular file"));
        QCOMPARE(reasonOf(path("link")), text("it is not a regular file"));
        QCOMPARE(reasonOf(m_folder->path()), text("it is a folder"));
        QCOMPARE(reasonOf(QString()), text("no file is named"));
        QCOMPARE(reasonOf(path("none/file")), text("No such file or directory"));
        QCOMPARE(reasonOf(path("") + QChar(0xdcff)),
                 text("its name, or the name of a folder that it is in, is not UTF-8; rename it"));
        QCOMPARE(entries(), before);
    }

    void linkLeadsToTheFileThatIsReplaced()
    {
        SKIP_WITHOUT_SYMBOLIC_LINKS();
        write("file", "old");
        QVERIFY(QFile::link(path("file"), path("link")));
        OutputFile file(path("link"));
        QVERIFY(file.replace("new"));
        QCOMPARE(read("file"), QByteArray("new"));
        QVERIFY(QFileInfo(path("link")).isSymLink());
    }

    void resultsAreReplacedTogether()
    {
        write("a", "old a");
        write("source", QByteArray(3 << 20, 's'));
        ResultFiles results;
        QVERIFY(results.open({path("a"), path("b")}));
        QVERIFY(results.write(0, "new ") && results.write(0, "a"));
        QVERIFY(results.copy(1, path("source")) && results.write(1, "."));
        QCOMPARE(read("a"), QByteArray("old a"));
        QCOMPARE(results.paths(), QStringList({path("a"), path("b")}));
        QVERIFY2(results.commit(), qPrintable(results.error()));
        QCOMPARE(read("a"), QByteArray("new a"));
        QCOMPARE(read("b"), QByteArray(3 << 20, 's') + '.');
    }

    // Also when the caller has not looked at what write() returned.
    void noResultIsReplacedUnlessAllAreWhole()
    {
        SKIP_WITHOUT_FILE_SIZE_LIMITS();
        write("a", "old a");
        write("b", "old b");
        const QStringList before = entries();
        {
            const FileSizeLimit full(limit);
            ResultFiles results;
            QVERIFY(results.open({path("a"), path("b")}));
            QVERIFY(results.write(0, "new a"));
            QVERIFY(!results.write(1, QByteArray(limit + 1, 'x')));
            QVERIFY(!results.commit());
            QCOMPARE(results.error(),
                     text("the result file 'b' cannot be written, File too large"));
        }
        QCOMPARE(read("a"), QByteArray("old a"));
        QCOMPARE(read("b"), QByteArray("old b"));
        QCOMPARE(entries(), before);
    }

    void copyThatIsNotPossibleNamesBothFiles()
    {
        SKIP_WITHOUT_FILE_SIZE_LIMITS();
        ResultFiles results;
        QVERIFY(results.open({path("a.out")}));
        QVERIFY(!results.copy(0, path("none.out")));
        QCOMPARE(results.error(), text("the result file 'a.out' cannot be written, its content "
                                       "'none.out' cannot be read, No such file or directory"));
        QVERIFY(QDir(m_folder->path()).mkdir(text("folder")));
        QVERIFY(!results.copy(0, path("folder")));
        QVERIFY2(results.error().endsWith(text("it is a folder")), qPrintable(results.error()));
        write("large", QByteArray(limit + 1, 'x'));
        const FileSizeLimit full(limit);
        QVERIFY(!results.copy(0, path("large")));
        QCOMPARE(results.error(),
                 text("the result file 'a.out' cannot be written, File too large"));
    }

    void linksAreNoResults()
    {
        SKIP_WITHOUT_SYMBOLIC_LINKS();
        write("file", "old");
        QVERIFY(QFile::link(path("file"), path("link")));
        ResultFiles results;
        QVERIFY(!results.open({path("link")}));
        QCOMPARE(results.error(),
                 text("the result file 'link' cannot be written, it is a symbolic link"));
        QCOMPARE(read("file"), QByteArray("old"));
    }

    void temporaryFileThatDoesNotFitNamesThePlace()
    {
        SKIP_WITHOUT_FILE_SIZE_LIMITS();
        QCOMPARE(suite::TemporaryFolder::writeFile(path("file"), "x"), QString());
        QCOMPARE(read("file"), QByteArray("x"));
        const FileSizeLimit full(limit);
        const QString error =
            suite::TemporaryFolder::writeFile(path("file"), QByteArray(limit + 1, 'x'));
        QVERIFY2(error.contains(text("File too large")) && error.contains(text("TMPDIR")),
                 qPrintable(error));
    }
};

QTEST_GUILESS_MAIN(tst_output_file)
#include "tst_output_file.moc"
