// SPDX-License-Identifier: MIT
#include "FileIdentity.h"
#include "FileName.h"
#include "InputFile.h"

#include <Text.h>

#include <QTemporaryDir>
#include <QtTest>

#ifdef Q_OS_UNIX
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>
#endif

using suite::InputFile;
using Problem = suite::InputFile::Problem;

namespace {

constexpr qint64 limit = 100;

} // namespace

// Only what a file can be is read, and no more of it than was asked for.
class tst_input_file : public QObject
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

    static void compare(const QString& path, Problem problem, const QString& reason)
    {
        InputFile file(path);
        QVERIFY(!file.read(limit));
        QCOMPARE(int(file.problem()), int(problem));
        QCOMPARE(file.reason(), reason);
        if (problem != Problem::TooLarge) {
            QVERIFY(!file.readStart(4));
            QCOMPARE(int(file.problem()), int(problem));
        }
    }

private Q_SLOTS:
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }

    void contentIsRead_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("some") << QByteArray("a\r\nb\0c", 6);
        QTest::newRow("as much as may be") << QByteArray(limit, 'x');
    }

    void contentIsRead()
    {
        QFETCH(QByteArray, content);
        InputFile file(write("file", content));
        const std::optional<QByteArray> read = file.read(limit);
        QVERIFY(read);
        QCOMPARE(*read, content);
        QCOMPARE(file.reason(), QString());
        QCOMPARE(file.readStart(4), std::make_optional(content.left(4)));
    }

    void memoryTakenIsThatOfTheContentAndNotOfTheLimit()
    {
        const QByteArray content(100000, 'x');
        const std::optional<QByteArray> few = InputFile(write("few", "EN\n")).read(256 << 20);
        const std::optional<QByteArray> many = InputFile(write("many", content)).read(256 << 20);
        QVERIFY(few && many);
        QCOMPARE(*many, content);
        QVERIFY2(few->capacity() < 100000, qPrintable(QString::number(few->capacity())));
        QVERIFY2(many->capacity() < 500000, qPrintable(QString::number(many->capacity())));
    }

    void startOfALargeFileIsRead()
    {
        QFile huge(path("huge"));
        QVERIFY(huge.open(QIODevice::WriteOnly) &&
                huge.resize(qint64(3) << 30)); // no room is taken
        InputFile file(huge.fileName());
        QCOMPARE(file.readStart(3), std::make_optional(QByteArray(3, '\0')));
        compare(huge.fileName(), Problem::TooLarge, text("it is larger than 100 bytes"));
        QVERIFY(!file.read(2 << 20));
        QCOMPARE(file.reason(), text("it is larger than 2 MB"));
    }

    void oneByteTooManyIsTooMany()
    {
        compare(write("file", QByteArray(limit + 1, 'x')), Problem::TooLarge,
                text("it is larger than 100 bytes"));
    }

    void whatIsNoFileIsNotRead()
    {
        compare(QString(), Problem::Missing, text("no file is named"));
        compare(m_folder->path(), Problem::Folder, text("it is a folder"));
#ifdef Q_OS_WIN
        compare(path("none"), Problem::Missing, text("File not found"));
        compare(write("file", "x") + text("/none"), Problem::Missing, text("Path not found"));
#else
        compare(path("none"), Problem::Missing, text("No such file or directory"));
        compare(write("file", "x") + text("/none"), Problem::Missing, text("Not a directory"));
        compare(suite::FileName::fromNative("a\xff"), Problem::BadName,
                text("its name, or the name of a folder that it is in, is not UTF-8; rename it"));
#endif
    }

#ifdef Q_OS_UNIX
    // To open one of these could wait for ever, or never come to an end.
    void pipesAndDevicesAreNotRead()
    {
        const QByteArray pipe = QFile::encodeName(path("pipe"));
        QCOMPARE(::mkfifo(pipe.constData(), 0600), 0);
        const int server = ::socket(AF_UNIX, SOCK_STREAM, 0);
        sockaddr_un address = {};
        address.sun_family = AF_UNIX;
        qstrncpy(address.sun_path, QFile::encodeName(path("socket")).constData(),
                 sizeof address.sun_path);
        QCOMPARE(::bind(server, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
        for (const QString& name :
             {path("pipe"), path("socket"), text("/dev/zero"), text("/dev/tty")}) {
            compare(name, Problem::NotRegular, text("it is not a regular file"));
        }
        QVERIFY(QFile::link(path("pipe"), path("link")));
        compare(path("link"), Problem::NotRegular, text("it is not a regular file"));
        ::close(server);
    }

    // Its size is told to be nothing.
    void fileThatHidesItsSizeIsReadUpToTheLimit()
    {
        compare(text("/proc/self/maps"), Problem::TooLarge, text("it is larger than 100 bytes"));
        QCOMPARE(InputFile(text("/proc/sys/kernel/ostype")).read(limit),
                 std::make_optional(QByteArray("Linux\n")));
    }

    void longFileThatHidesItsSizeIsReadToItsEnd()
    {
        QFile file(text("/proc/kallsyms"));
        if (!file.open(QIODevice::ReadOnly)) {
            QSKIP("this system does not show the names in its kernel");
        }
        const QByteArray content = file.readAll();
        QVERIFY(content.size() > (1 << 17));
        QVERIFY(InputFile(file.fileName()).read(64 << 20) == content);
    }

    void sameFileIsKnownByEveryPath()
    {
        const QString file = write("file", "x");
        QVERIFY(QFile::link(file, path("soft")));
        QCOMPARE(::link(QFile::encodeName(file).constData(),
                        QFile::encodeName(path("hard")).constData()),
                 0);
        QVERIFY(QDir(m_folder->path()).mkdir(text("inner")));
        QVERIFY(QFile::link(m_folder->path(), path("inner/up")));
        for (const char* const other : {"file", "soft", "hard", "./file", "inner/../file",
                                        "inner/up/file", "inner/up/hard"}) {
            QVERIFY2(suite::isSameFile(file, path(other)), other);
        }
        QVERIFY(!suite::isSameFile(file, write("other", "x")));
        QVERIFY(!suite::isSameFile(file, path("none")));
        // What is not there yet is the same by its place.
        QVERIFY(suite::isSameFile(path("none"), path("inner/up/none")));
        QVERIFY(suite::isSameFile(path("no folder/none"), path("./no folder/none")));
    }
#endif
};

QTEST_GUILESS_MAIN(tst_input_file)
#include "tst_input_file.moc"
