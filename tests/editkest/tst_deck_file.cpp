#include "DeckFile.h"

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
        QTest::newRow("binary")          << QByteArray("CM\0a\n", 5)      << QStringLiteral("no text");
        QTest::newRow("lone CR")         << QByteArray("CM a\rCE\r")      << QStringLiteral("no text");
        QTest::newRow("mixed line ends") << QByteArray("CM a\r\nCE\n")    << QStringLiteral("end as on Windows");
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
