// SPDX-License-Identifier: MIT
#include "DeckFile.h"

#include <FileSizeLimit.h>
#include <ReadingTime.h>
#include <SpecialFile.h>
#include <SystemSkips.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

namespace {

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

// A deck comes back from the editor as it was, or not at all.
class tst_deck_file : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        m_path = m_folder->filePath(QStringLiteral("model.nec"));
    }

    void savedUnchangedIsTheSameToTheByte_data()
    {
        QTest::addColumn<QByteArray>("content");
        // clang-format off
        QTest::newRow("empty")             << QByteArray();
        QTest::newRow("line feeds")        << QByteArray("CM a\nCE\n");
        QTest::newRow("Windows")           << QByteArray("CM a\r\nCE\r\n");
        QTest::newRow("no last line end")  << QByteArray("CM a\r\nCE");
        QTest::newRow("blank lines")       << QByteArray("\n\nCE\n\n\n");
        QTest::newRow("tabs and blanks")   << QByteArray("GW\t1  2   \n");
        QTest::newRow("UTF-8")             << QByteArray("CM \xc3\xa4\xe2\x82\xac\n");
        QTest::newRow("byte order mark")   << QByteArray("\xef\xbb\xbf" "CM a\n");
        QTest::newRow("Latin-1")           << QByteArray("CM \xe4\xf6\xfc\n");
        QTest::newRow("broken UTF-8")      << QByteArray("CM \xc3");
        QTest::newRow("mixed line ends")   << QByteArray("CM a\r\nCE\nEN\r\n");
        QTest::newRow("lone CR")           << QByteArray("CM a\rCE\r");
        QTest::newRow("CR in Windows")     << QByteArray("CM a\rb\r\nCE\r\n");
        QTest::newRow("CR CR LF")          << QByteArray("CM a\r\r\nCE\r\r\n");
        QTest::newRow("mixed Latin-1")     << QByteArray("CM \xe4\r\nCE\n");
        QTest::newRow("mixed with mark")   << QByteArray("\xef\xbb\xbf" "CM a\r\nCE\n");
        QTest::newRow("our sign")          << QByteArray("CM \xe2\x86\xb5\r\nCE\r\n");
        QTest::newRow("no-break blanks")   << QByteArray("CM \xc2\xa0 \xa0\n");
        QTest::newRow("line separator")    << QByteArray("CM \xe2\x80\xa8 a\n");
        // clang-format on
    }

    void savedUnchangedIsTheSameToTheByte()
    {
        QFETCH(QByteArray, content);
        write(content);
        DeckFile file;
        QVERIFY2(file.load(m_path), qPrintable(file.error()));
        QVERIFY(!file.text().contains(QLatin1Char('\r')));
        const QString other = m_folder->filePath(QStringLiteral("other.nec"));
        QVERIFY2(file.save(other, file.text()), qPrintable(file.error()));
        QCOMPARE(contentOf(other), content);
    }

    void keptReturnsAreShownAndMayBeDeleted()
    {
        write("CM a\r\nCE\n");
        DeckFile file;
        QVERIFY(file.load(m_path));
        QCOMPARE(file.text(), QStringLiteral("CM a\u21b5\nCE\n"));
        QVERIFY(file.save(m_path, QStringLiteral("CM a\nCE\u21b5\n")));
        QCOMPARE(contentOf(m_path), QByteArray("CM a\nCE\r\n"));
    }

    void addedLinesEndAsTheOthersDo()
    {
        write("CM a\r\n");
        DeckFile file;
        QVERIFY(file.load(m_path));
        QVERIFY(file.save(m_path, file.text() + QStringLiteral("CE\n")));
        QCOMPARE(contentOf(m_path), QByteArray("CM a\r\nCE\r\n"));
    }

    void whatAnEditorWouldSpoilIsRefused_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("reason");
        // clang-format off
        QTest::newRow("binary")               << QByteArray("CM\0a\n", 5)                << QStringLiteral("no text");
        QTest::newRow("paragraph separator")  << QByteArray("CM \xe2\x80\xa9\n")         << QStringLiteral("no text");
        QTest::newRow("frame signs")          << QByteArray("CM \xef\xb7\x90\n")         << QStringLiteral("no text");
        QTest::newRow("sign beside mixed")    << QByteArray("CM \xe2\x86\xb5\r\nCE\n")   << QStringLiteral("no text");
        QTest::newRow("two marks")            << QByteArray("\xef\xbb\xbf\xef\xbb\xbf" "CE\n") << QStringLiteral("no text");
        QTest::newRow("too large")            << QByteArray((16 << 20) + 1, ' ')         << QStringLiteral("larger");
        // clang-format on
    }

    void whatAnEditorWouldSpoilIsRefused()
    {
        QFETCH(QByteArray, content);
        QFETCH(QString, reason);
        write(content);
        DeckFile file;
        QVERIFY(!file.load(m_path));
        QVERIFY2(file.error().contains(reason), qPrintable(file.error()));
        QCOMPARE(file.path(), QString());
    }

    void missingFilesAndFoldersAreRefused()
    {
        DeckFile file;
        QVERIFY(!file.load(m_path));
        QVERIFY(!file.error().isEmpty());
        QVERIFY(!file.load(m_folder->path()));
        QVERIFY(file.error().contains(QStringLiteral("folder")));
    }

    void failedLoadKeepsWhatWasThere()
    {
        write("CE\n");
        DeckFile file;
        QVERIFY(file.load(m_path));
        QVERIFY(!file.load(m_path + QStringLiteral(".none")));
        QCOMPARE(file.path(), m_path);
        QCOMPARE(file.text(), QStringLiteral("CE\n"));
    }

    void pipesAndDevicesAreLeftAlone()
    {
        SPECIAL_FILE_OR_SKIP(S_IFIFO, m_path);
        DeckFile file;
        QVERIFY(!file.load(m_path));
        QVERIFY2(file.error().contains(QStringLiteral("not a regular file")),
                 qPrintable(file.error()));
        QVERIFY(!file.save(m_path, QStringLiteral("CE\n")));
        QVERIFY(!QFileInfo(m_path).isFile());
    }

    void fullDiskKeepsTheOldFile()
    {
        SKIP_WITHOUT_FILE_SIZE_LIMITS();
        write("CM old\n");
        DeckFile file;
        QVERIFY(file.load(m_path));
        {
            const FileSizeLimit limit(100);
            QVERIFY(!file.save(m_path, QString(100000, QLatin1Char('x'))));
        }
        QVERIFY2(file.error().contains(QStringLiteral("too large")), qPrintable(file.error()));
        QCOMPARE(contentOf(m_path), QByteArray("CM old\n"));
        QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files).size(), 1);
        QCOMPARE(file.text(), QStringLiteral("CM old\n"));
        QVERIFY(!file.isChangedOutside());
        QVERIFY(file.save(m_path, QStringLiteral("CM new\n")));
    }

    void savedFileKeepsItsPermissionsAndLinks()
    {
        SKIP_WITHOUT_SYMBOLIC_LINKS();
        write("CE\n");
        const QFile::Permissions permissions =
            QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup;
        QVERIFY(QFile::setPermissions(m_path, permissions));
        const QString link = m_folder->filePath(QStringLiteral("link.nec"));
        QVERIFY(QFile::link(m_path, link));
        DeckFile file;
        QVERIFY(file.load(link));
        QVERIFY(file.save(link, QStringLiteral("EN\n")));
        QVERIFY(QFileInfo(link).isSymLink());
        QCOMPARE(contentOf(m_path), QByteArray("EN\n"));
        QVERIFY(QFile::permissions(m_path).testFlag(QFile::ReadGroup));
        QVERIFY(!QFile::permissions(m_path).testFlag(QFile::ReadOther));
    }

    void failedSaveKeepsTheOldFile()
    {
        DeckFile file;
        const QString taken = m_folder->filePath(QStringLiteral("taken"));
        QVERIFY(QDir().mkpath(taken));
        QVERIFY(!file.save(taken, QStringLiteral("CE\n")));
        QVERIFY(!file.error().isEmpty());
        QVERIFY(QFileInfo(taken).isDir());
        QVERIFY(!file.save(m_folder->filePath(QStringLiteral("none/model.nec")), QString()));
    }

    void charactersThatTheEncodingLacksAreNotLost()
    {
        write("CM \xe4\n");
        DeckFile file;
        QVERIFY(file.load(m_path));
        QVERIFY(!file.save(m_path, QStringLiteral("CM \u20ac\n")));
        QVERIFY2(file.error().contains(QStringLiteral("Latin-1")), qPrintable(file.error()));
        QCOMPARE(contentOf(m_path), QByteArray("CM \xe4\n"));
    }

    void changesOfOthersAreNoticed()
    {
        write("CE\n");
        DeckFile file;
        QVERIFY(!file.isChangedOutside());
        QVERIFY(file.load(m_path));
        QVERIFY(!file.isChangedOutside());
        write("EN\n");
        QVERIFY(file.isChangedOutside());
        QVERIFY(file.save(m_path, QStringLiteral("CE\n")));
        QVERIFY(!file.isChangedOutside());
        QVERIFY(QFile::remove(m_path));
        QVERIFY(file.isChangedOutside());
    }

    void timeGrowsWithTheSize_data() { ReadingTime::addPieces(); }

    void timeGrowsWithTheSize()
    {
        QFETCH(QByteArray, piece);
        const auto read = [this](const QByteArray& bytes) {
            write(bytes);
            DeckFile file;
            if (file.load(m_path)) {
                QVERIFY(file.bytes(file.text()) == bytes);
            }
        };
        QCOMPARE(ReadingTime::problem(read, piece), QString());
    }

private:
    void write(const QByteArray& content)
    {
        QFile file(m_path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(content), content.size());
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_path;
};

QTEST_GUILESS_MAIN(tst_deck_file)
#include "tst_deck_file.moc"
