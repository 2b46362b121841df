// SPDX-License-Identifier: MIT
#include "ScriptedSettings.h"
#include "UnixSettings.h"

#include <FileSizeLimit.h>
#include <SettingsObjects.h>
#include <SettingsProcess.h>
#include <Stopwatch.h>
#include <SystemSkips.h>

#include <QDir>
#include <QFile>
#include <QtTest>

#include <memory>
#include <stdexcept>
#include <vector>

class tst_common_settings_nested : public QObject, protected SettingsStage
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }

    void aWriteWithinAWriteKeepsBothGroups_data()
    {
        QTest::addColumn<QByteArray>("before");
        QTest::addColumn<QString>("innerPath");
        const QByteArray old =
            "[group]\nlast=0\nother=1\n\n[others]\na=1\n\n[texts]\nelse=2\ntext=old\n";
        // clang-format off
        QTest::newRow("no file yet")        << QByteArray() << QStringLiteral("kest.ini");
        QTest::newRow("file")               << old          << QStringLiteral("kest.ini");
        QTest::newRow("another spelling")   << old          << QStringLiteral("./defaults/..//kest.ini");
        QTest::newRow("link to the file")   << old          << QStringLiteral("link.ini");
        QTest::newRow("link to nothing yet") << QByteArray() << QStringLiteral("link.ini");
        QTest::newRow("linked folder")      << old          << QStringLiteral("here/kest.ini");
        QTest::newRow("linked folder, no file yet") << QByteArray() << QStringLiteral("here/kest.ini");
        // clang-format on
    }

    void aWriteWithinAWriteKeepsBothGroups()
    {
        QFETCH(QByteArray, before);
        QFETCH(QString, innerPath);
        QStringList files = {QStringLiteral("kest.ini")};
        if (QByteArray(QTest::currentDataTag()).startsWith("link")) {
            SKIP_WITHOUT_SYMBOLIC_LINKS();
            QVERIFY(QFile::link(m_file, path("link.ini")));
            QVERIFY(QFile::link(m_directory->path(), path("here")));
            files.append(QStringLiteral("link.ini"));
        }
        QVERIFY(before.isEmpty() || write(m_file, before));
        const LogCatcher log;
        ScriptedSettings settings(m_file);
        QByteArray afterInner;
        settings.onWrite = [&](QSettings& open) {
            open.setValue(QStringLiteral("first"), 1);
            writeText(m_directory->filePath(innerPath), QStringLiteral("inner"));
            afterInner = contentOf(m_file);
            open.setValue(QStringLiteral("last"), 2);
        };
        const Stopwatch timer;
        settings.writeSettings();
        QVERIFY(timer.elapsed() < atOnce);
        QCOMPARE(LogCatcher::lines(), QStringList());
        QVERIFY(afterInner.contains("text=inner")); // whoever returns has written
        QVERIFY(!afterInner.contains("first=1"));   // and only its own
        const QByteArray after = unixSettings(contentOf(m_file));
        QCOMPARE(after, before.isEmpty()
                            ? QByteArray("[group]\nfirst=1\nlast=2\n\n[texts]\ntext=inner\n")
                            : QByteArray("[group]\nfirst=1\nlast=2\nother=1\n\n[others]\na=1\n\n"
                                         "[texts]\nelse=2\ntext=inner\n"));
        QCOMPARE(QDir(m_directory->path()).entryList(QDir::Files | QDir::Hidden), files);
    }

    void aWriteWithinAWriteByARelativePathKeepsBothGroups()
    {
        const QString folder = QDir::currentPath();
        QVERIFY(QDir::setCurrent(m_directory->path()));
        ScriptedSettings settings(QStringLiteral("kest.ini"));
        settings.onWrite = [this](QSettings& open) {
            writeText(m_file, QStringLiteral("inner"));
            open.setValue(QStringLiteral("key"), 1);
        };
        settings.writeSettings();
        QVERIFY(QDir::setCurrent(folder));
        QCOMPARE(unixSettings(contentOf(m_file)),
                 QByteArray("[group]\nkey=1\n\n[texts]\ntext=inner\n"));
    }

    void writesMayBeWithinEachOtherToAnyDepth()
    {
        constexpr int depth = 20;
        std::vector<std::unique_ptr<ScriptedSettings>> objects;
        QByteArray expected;
        for (int level = 0; level < depth; ++level) {
            const QString group = QStringLiteral("group%1").arg(level, 2, 10, QLatin1Char('0'));
            objects.push_back(std::make_unique<ScriptedSettings>(m_file, group));
            objects.back()->onWrite = [&objects, level](QSettings& open) {
                open.setValue(QStringLiteral("before"), level);
                if (level + 1 < depth) {
                    objects[size_t(level) + 1]->writeSettings();
                }
                open.setValue(QStringLiteral("behind"), level);
            };
            const QByteArray number = QByteArray::number(level);
            expected += (level > 0 ? "\n[" : "[") + group.toLatin1() + "]\nbefore=" + number +
                        "\nbehind=" + number + '\n';
        }
        const LogCatcher log;
        objects.front()->writeSettings();
        QCOMPARE(LogCatcher::lines(), QStringList());
        QCOMPARE(unixSettings(contentOf(m_file)), expected);
    }

    void severalWritesWithinOneAreAllKept()
    {
        ScriptedSettings settings(m_file);
        settings.onWrite = [this](QSettings& open) {
            for (int number = 0; number < 5; ++number) {
                CountSettings counts(m_file, QStringLiteral("key%1").arg(number));
                counts.count = number;
                counts.writeSettings();
            }
            open.setValue(QStringLiteral("key"), 1);
        };
        settings.writeSettings();
        for (int number = 0; number < 5; ++number) {
            QCOMPARE(storedValue(m_file, QStringLiteral("counts/key%1").arg(number)).toInt(),
                     number);
        }
        QCOMPARE(storedValue(m_file, QStringLiteral("group/key")).toInt(), 1);
    }

    void anObjectMayWriteItselfWithinItsWrite()
    {
        ScriptedSettings settings(m_file);
        int depth = 0;
        QByteArray afterInner;
        settings.onWrite = [&](QSettings& open) {
            open.setValue(QStringLiteral("first"), depth);
            if (++depth == 1) {
                settings.writeSettings();
                afterInner = contentOf(m_file);
            }
            open.setValue(QStringLiteral("last"), depth);
        };
        settings.writeSettings();
        QCOMPARE(afterInner, QByteArray("[group]\nfirst=1\nlast=2\n"));
        QCOMPARE(contentOf(m_file), QByteArray("[group]\nfirst=1\nlast=2\n"));
        QCOMPARE(depth, 2);
    }

    void whatTheInnerWriteRemovesIsGone()
    {
        QVERIFY(write(m_file, "[group]\na=1\n\n[inner]\nb=2\nc=3\n"));
        ScriptedSettings inner(m_file, QStringLiteral("inner"));
        inner.onWrite = [](QSettings& open) { open.remove(QStringLiteral("b")); };
        ScriptedSettings settings(m_file);
        settings.onWrite = [&](QSettings& open) {
            open.setValue(QStringLiteral("key"), 1);
            inner.writeSettings();
        };
        settings.writeSettings();
        QCOMPARE(unixSettings(contentOf(m_file)),
                 QByteArray("[group]\na=1\nkey=1\n\n[inner]\nc=3\n"));
    }

    void anotherFileMayBeWrittenWithinAWrite()
    {
        const QString other = path("other.ini");
        ScriptedSettings within(other);
        within.onWrite = [this](QSettings& open) {
            writeText(m_file, QStringLiteral("back in the first"));
            open.setValue(QStringLiteral("key"), 2);
        };
        ScriptedSettings settings(m_file);
        settings.onWrite = [&within](QSettings& open) {
            within.writeSettings();
            open.setValue(QStringLiteral("key"), 1);
        };
        const LogCatcher log;
        settings.writeSettings();
        QCOMPARE(LogCatcher::lines(), QStringList());
        QCOMPARE(contentOf(other), QByteArray("[group]\nkey=2\n"));
        QCOMPARE(unixSettings(contentOf(m_file)),
                 QByteArray("[group]\nkey=1\n\n[texts]\ntext=back in the first\n"));
    }

    // As with all objects that share a settings file in one process.
    void aReadWithinAWriteSeesWhatIsBeingWritten_data()
    {
        QTest::addColumn<bool>("byALink");
        QTest::newRow("by the same path") << false;
        QTest::newRow("by a link") << true;
    }

    void aReadWithinAWriteSeesWhatIsBeingWritten()
    {
        QFETCH(bool, byALink);
        if (byALink) {
            SKIP_WITHOUT_SYMBOLIC_LINKS();
        }
        QVERIFY(QFile::link(m_file, path("link.ini")));
        QVERIFY(write(m_file, "[texts]\ntext=old\n\n[group]\nold=1\n"));
        const QString file = byALink ? path("link.ini") : m_file;
        ScriptedSettings reader(file);
        QStringList read;
        reader.onRead = [&read](QSettings& open) {
            read.append(open.value(QStringLiteral("old")).toString() +
                        open.value(QStringLiteral("new")).toString());
        };
        ScriptedSettings settings(m_file);
        settings.onWrite = [&](QSettings& open) {
            reader.readSettings();
            open.setValue(QStringLiteral("new"), 2);
            reader.readSettings();
            read.append(textIn(file));
            writeText(m_file, QStringLiteral("inner"));
            read.append(textIn(file));
            open.setValue(QStringLiteral("new"), 3);
            reader.readSettings();
        };
        settings.writeSettings();
        QCOMPARE(read,
                 (QStringList{QStringLiteral("1"), QStringLiteral("12"), QStringLiteral("old"),
                              QStringLiteral("inner"), QStringLiteral("13")}));
        QCOMPARE(unixSettings(contentOf(m_file)),
                 QByteArray("[group]\nnew=3\nold=1\n\n[texts]\ntext=inner\n"));
    }

    void aReadWithinTheFirstWriteReadsDefaultIni()
    {
        QVERIFY(write(m_defaults, "[texts]\ntext=installed\n"));
        ScriptedSettings settings(m_file);
        QStringList read;
        settings.onWrite = [&](QSettings& open) {
            open.setValue(QStringLiteral("key"), 1);
            read.append(textIn(m_file));
            writeText(m_file, QStringLiteral("inner"));
            read.append(textIn(m_file));
        };
        settings.writeSettings();
        QCOMPARE(read, (QStringList{QStringLiteral("installed"), QStringLiteral("inner")}));
        QCOMPARE(textIn(m_file), QStringLiteral("inner"));
    }

    void aReadWithinTheFirstWriteSeesItWhereThereIsNoDefaultIni()
    {
        ScriptedSettings settings(m_file, QStringLiteral("texts"));
        QString read;
        settings.onWrite = [&](QSettings& open) {
            open.setValue(QStringLiteral("text"), QStringLiteral("mine"));
            read = textIn(m_file);
        };
        settings.writeSettings();
        QCOMPARE(read, QStringLiteral("mine"));
    }

    void anExceptionLeavesWhatWasWrittenWithin()
    {
        QVERIFY(write(m_file, "[group]\nkey=old\n"));
        ScriptedSettings settings(m_file);
        settings.onWrite = [this](QSettings& open) {
            open.setValue(QStringLiteral("key"), 1);
            writeText(m_file, QStringLiteral("inner"));
            open.setValue(QStringLiteral("more"), 2);
            throw std::runtime_error("none of mine");
        };
        QVERIFY_EXCEPTION_THROWN(settings.writeSettings(), std::runtime_error);
        QCOMPARE(unixSettings(contentOf(m_file)),
                 QByteArray("[group]\nkey=old\n\n[texts]\ntext=inner\n"));
        writeText(m_file, QStringLiteral("next")); // nothing is left open
        QCOMPARE(unixSettings(contentOf(m_file)),
                 QByteArray("[group]\nkey=old\n\n[texts]\ntext=next\n"));
        QCOMPARE(QDir(m_directory->path()).entryList(QDir::Files | QDir::Hidden),
                 QStringList(QStringLiteral("kest.ini")));
    }

    void anExceptionWithinLeavesWhatIsWrittenAround()
    {
        QVERIFY(write(m_file, "[inner]\na=old\nb=old\n"));
        ScriptedSettings inner(m_file, QStringLiteral("inner"));
        inner.onWrite = [](QSettings& open) {
            open.setValue(QStringLiteral("a"), 1);
            open.setValue(QStringLiteral("c"), 1);
            open.remove(QStringLiteral("b"));
            throw std::runtime_error("none of mine");
        };
        ScriptedSettings settings(m_file);
        settings.onWrite = [&inner](QSettings& open) {
            open.setValue(QStringLiteral("before"), 1);
            QVERIFY_EXCEPTION_THROWN(inner.writeSettings(), std::runtime_error);
            open.setValue(QStringLiteral("behind"), 2);
        };
        settings.writeSettings();
        QCOMPARE(unixSettings(contentOf(m_file)),
                 QByteArray("[group]\nbefore=1\nbehind=2\n\n[inner]\na=old\nb=old\n"));
    }

    void writesWithinEachOtherLeaveTheFileAsItWasOnAFullDisk_data()
    {
        QTest::addColumn<int>("limit");
        QTest::addColumn<int>("failures");
        QTest::newRow("no room at all") << 0 << 1; // nothing begins that others could be within
        QTest::newRow("up to a value") << 200 << 2;
        QTest::newRow("one block") << 4096 << 2;
    }

    void writesWithinEachOtherLeaveTheFileAsItWasOnAFullDisk()
    {
        SKIP_WITHOUT_FILE_SIZE_LIMITS();
        QFETCH(int, limit);
        QFETCH(int, failures);
        const QByteArray before = "[texts]\ntext=old\n";
        QVERIFY(write(m_file, before));
        SettingsProcess writer({QStringLiteral("write-within-limited"), m_file,
                                QString::number(limit), QStringLiteral("60000")});
        QVERIFY(writer.hasEndedWell());
        QCOMPARE(contentOf(m_file), before);
        const QString log = QString::fromUtf8(writer.readAllStandardError());
        QCOMPARE(log.count(QLatin1Char('\n')), failures);
        QCOMPARE(log.count(m_file + QStringLiteral(" was not written")), failures);
        QCOMPARE(QDir(m_directory->path()).entryList(QDir::Files | QDir::Hidden),
                 QStringList(QStringLiteral("kest.ini")));
    }

    void aDamagedFileIsKeptOnceWhateverIsWrittenWithin()
    {
        const QByteArray content = "[texts]\njunk\nelse=1\n";
        QVERIFY(write(m_file, content));
        const LogCatcher log;
        ScriptedSettings settings(m_file);
        settings.onWrite = [this](QSettings& open) {
            writeText(m_file, QStringLiteral("inner"));
            open.setValue(QStringLiteral("key"), 1);
        };
        settings.writeSettings();
        QCOMPARE(LogCatcher::lines().size(), 1);
        QCOMPARE(contentOf(m_file + QStringLiteral(".damaged")), content);
        QCOMPARE(unixSettings(contentOf(m_file)),
                 QByteArray("[group]\nkey=1\n\n[texts]\nelse=1\ntext=inner\n"));
    }
};

QTEST_GUILESS_MAIN(tst_common_settings_nested)
#include "tst_common_settings_nested.moc"
