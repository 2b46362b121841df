// SPDX-License-Identifier: MIT
#include "../support/SystemSkips.h"
#include "EndedProcess.h"

#include <MarkedFolders.h>

#include <memory>

#include <sys/stat.h>

// Temporary folders, and what is left of those whose process was killed.
class tst_MarkedFolders : public QObject
{
    Q_OBJECT

private:
#ifdef Q_OS_WIN
    static constexpr const char* variable = "TMP";
#else
    static constexpr const char* variable = "TMPDIR";
#endif

    std::unique_ptr<QTemporaryDir> m_temporary;
    QByteArray m_before;

    QString path(const QString& name) const
    {
        return m_temporary->filePath(name);
    }
    QString path(const char* name) const
    {
        return path(QString::fromLatin1(name));
    }

    QStringList entries() const
    {
        return QDir(m_temporary->path())
            .entryList(QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot);
    }

private Q_SLOTS:
    void init()
    {
        m_before = qgetenv(variable);
        m_temporary = std::make_unique<QTemporaryDir>();
        qputenv(variable, QFile::encodeName(m_temporary->path()));
    }

    void cleanup()
    {
        qputenv(variable, m_before);
    }

    void nameSaysWhoseTheFolderIs()
    {
        {
            const QTemporaryDir folder(QDir::tempPath() + QLatin1Char('/') +
                                       MarkedFolders::marked(QStringLiteral("kest-test")) +
                                       QStringLiteral("-XXXXXX"));
            QVERIFY(folder.isValid());
            QCOMPARE(entries().size(), 1);
            QVERIFY(entries().constFirst().startsWith(QStringLiteral("kest-test-") +
                                                      ProcessMark::own().word()));
        }
        QCOMPARE(entries(), QStringList());
    }

    void folderOfALivingProcessStays()
    {
        const QTemporaryDir folder(QDir::tempPath() + QLatin1Char('/') +
                                   MarkedFolders::marked(QStringLiteral("kest-test")) +
                                   QStringLiteral("-XXXXXX"));
        MarkedFolders::removeLeft();
        QCOMPARE(entries().size(), 1);
        QVERIFY(QFileInfo(folder.path()).isDir());
    }

    void folderOfAKilledProcessIsRemovedWithAllThatIsInIt()
    {
        QVERIFY(QDir().mkpath(leftPath(endedMark()) + QStringLiteral("/below/deeper")));
        QVERIFY(QFile(leftPath(m_mark) + QStringLiteral("/below/deeper/file"))
                    .open(QIODevice::WriteOnly));
        QVERIFY(::chmod(QFile::encodeName(leftPath(m_mark)).constData(), 0700) == 0);
        MarkedFolders::removeLeft();
        QCOMPARE(entries(), QStringList());
    }

    void whatAKilledProcessMadeIsFound()
    {
#ifdef Q_OS_WIN
        QSKIP("on Windows, processes do not fork");
#else
        const QByteArray left = doneByAKilledProcess([] {
            auto* const folder = new QTemporaryDir(
                QDir::tempPath() + QLatin1Char('/') +
                MarkedFolders::marked(QStringLiteral("kest-test")) + QStringLiteral("-XXXXXX"));
            return QFile::encodeName(folder->path());
        });
        QVERIFY(QFileInfo(QFile::decodeName(left)).isDir());
        MarkedFolders::removeLeft();
        QCOMPARE(entries(), QStringList());
#endif
    }

    void whatIsNotSurelyOursStays_data()
    {
        QTest::addColumn<QString>("name"); // MARK is that of a process that has ended
        QTest::newRow("without a mark") << "kest-test-AbCdEf";
        QTest::newRow("another program's") << "other-MARK-AbCdEf";
        QTest::newRow("capitals") << "Other-test-MARK-AbCdEf";
        QTest::newRow("a longer name") << "kest-test-MARK-AbCdEf.kept";
        QTest::newRow("a shorter name") << "kest-test-MARK";
        QTest::newRow("no mark") << "kest-test-01234567-01234567-x-1-AbCdEf";
        QTest::newRow("another host's") << "kest-test-HOST-AbCdEf";
    }

    void whatIsNotSurelyOursStays()
    {
        QFETCH(QString, name);
        const QString mark = endedMark();
        name.replace(QStringLiteral("MARK"), mark);
        name.replace(QStringLiteral("HOST"), QStringLiteral("00000000") + mark.mid(8));
        QVERIFY(QDir().mkdir(path(name)));
        QVERIFY(::chmod(QFile::encodeName(path(name)).constData(), 0700) == 0);
        MarkedFolders::removeLeft();
        QCOMPARE(entries(), QStringList(name));
    }

    void folderThatOthersMayWriteStays()
    {
#ifdef Q_OS_WIN
        QSKIP("on Windows, temporary folders are the user's own");
#endif
        const QString name = leftName(endedMark());
        QVERIFY(QDir().mkdir(path(name)));
        QVERIFY(::chmod(QFile::encodeName(path(name)).constData(), 0777) == 0);
        MarkedFolders::removeLeft();
        QCOMPARE(entries(), QStringList(name));
    }

    void folderOfAnotherUserStays()
    {
#ifdef Q_OS_WIN
        QSKIP("on Windows, temporary folders are the user's own");
#else
        if (::geteuid() != 0) {
            QTest::qSkip("only the administrator can give folders away", __FILE__, __LINE__);
            return;
        }
        const QString name = leftName(endedMark());
        QVERIFY(QDir().mkdir(path(name)));
        QVERIFY(::chmod(QFile::encodeName(path(name)).constData(), 0700) == 0);
        QVERIFY(::chown(QFile::encodeName(path(name)).constData(), 65534, 65534) == 0);
        MarkedFolders::removeLeft();
        QCOMPARE(entries(), QStringList(name));
#endif
    }

    void linksAreNotFollowed()
    {
        SKIP_WITHOUT_SYMBOLIC_LINKS();
        const QString elsewhere = QStringLiteral("elsewhere");
        const QString file = path(elsewhere) + QStringLiteral("/file");
        QVERIFY(QDir().mkdir(path(elsewhere)));
        QVERIFY(QFile(file).open(QIODevice::WriteOnly));
        const QString name = leftName(endedMark());
        QVERIFY(QFile::link(path(elsewhere), path(name)));
        MarkedFolders::removeLeft();
        QCOMPARE(entries(), QStringList({elsewhere, name}));
        QVERIFY(QFile::exists(file));

        QVERIFY(QFile::remove(path(name)));
        QVERIFY(QDir().mkdir(path(name)));
        QVERIFY(::chmod(QFile::encodeName(path(name)).constData(), 0700) == 0);
        QVERIFY(QFile::link(path(elsewhere), path(name) + QStringLiteral("/link")));
        MarkedFolders::removeLeft();
        QCOMPARE(entries(), QStringList(elsewhere));
        QVERIFY(QFile::exists(file));
    }

private:
    static QString leftName(const QString& mark)
    {
        return QStringLiteral("kest-test-%1-AbCdEf").arg(mark);
    }

    QString leftPath(const QString& mark)
    {
        m_mark = mark;
        return path(leftName(mark));
    }

    QString m_mark;
};

QTEST_GUILESS_MAIN(tst_MarkedFolders)

#include "tst_MarkedFolders.moc"
