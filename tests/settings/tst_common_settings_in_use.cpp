// SPDX-License-Identifier: MIT
#include "ScriptedSettings.h"

#include <Stopwatch.h>

#include <SettingsKeys.h>

#include <QElapsedTimer>
#include <QScopeGuard>
#include <QThread>

#include <atomic>
#include <memory>

/// What other programs and people do with a settings file: they have it open, and write keys in
/// their own way.
class tst_common_settings_in_use : public QObject, protected SettingsStage
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }

    void isWrittenWhileAnotherProgramReadsIt()
    {
        QVERIFY(write(m_file, "[texts]\ntext=old\n"));
        QFile reader(m_file);
        QVERIFY(reader.open(QIODevice::ReadOnly));
        std::unique_ptr<QThread> reading(QThread::create([&reader] {
            QThread::msleep(200);
            reader.close();
        }));
        reading->start();
        const LogCatcher log;
        writeText(m_file, QStringLiteral("new"));
        reading->wait();
        QCOMPARE(LogCatcher::lines(), QStringList());
        QCOMPARE(textIn(m_file), QStringLiteral("new"));
    }

    void noWriteIsLostToAProgramThatReadsAgainAndAgain()
    {
        QVERIFY(write(m_file, "[texts]\ntext=old\n"));
        std::atomic<bool> isOver{false};
        std::unique_ptr<QThread> reading(QThread::create([&isOver, this] {
            while (!isOver) {
                QFile reader(m_file);
                if (reader.open(QIODevice::ReadOnly)) { // it may just be replaced
                    reader.readAll();
                }
                QThread::msleep(5);
                reader.close();
                QThread::msleep(1);
            }
        }));
        const LogCatcher log;
        reading->start();
        const auto end = qScopeGuard([&] {
            isOver = true;
            reading->wait();
        });
        for (int number = 0; number < 40; ++number) {
            const QString text = QString::number(number);
            writeText(m_file, text);
            QCOMPARE(textIn(m_file), text);
        }
        QCOMPARE(LogCatcher::lines(), QStringList());
    }

    void keysInAnotherCaseDoNotPreventWriting_data()
    {
        QTest::addColumn<QByteArray>("before");
        QTest::newRow("key") << QByteArray("[texts]\nTEXT=old\nother=1\n");
        QTest::newRow("group") << QByteArray("[Texts]\ntext=old\nother=1\n");
        QTest::newRow("both") << QByteArray("[TEXTS]\nText=old\nother=1\n");
        QTest::newRow("another group's") << QByteArray("[texts]\ntext=old\n[Geometry]\nX_pos=1\n");
        QTest::newRow("twice") << QByteArray("[texts]\ntext=old\nText=older\n");
    }

    void keysInAnotherCaseDoNotPreventWriting()
    {
        QFETCH(QByteArray, before);
        QVERIFY(write(m_file, before));
        const LogCatcher log;
        writeText(m_file, QStringLiteral("new"));
        QCOMPARE(LogCatcher::lines(), QStringList());
        QCOMPARE(textIn(m_file), QStringLiteral("new"));
        const QSettings stored(m_file, QSettings::IniFormat);
        const QStringList keys = stored.allKeys();
        const auto isText = [](const QString& key) {
            return SettingsKeys::comparable(key) == QStringLiteral("texts/text");
        };
        QCOMPARE(std::count_if(keys.cbegin(), keys.cend(), isText), std::ptrdiff_t(1));
    }

    void valuesInAnotherCaseStay()
    {
        QVERIFY(write(m_file, "[texts]\ntext=old\n[Geometry]\nX_pos=1\nWIDTH=7\n"));
        writeText(m_file, QStringLiteral("new"));
        QCOMPARE(storedValue(m_file, QStringLiteral("Geometry/X_pos")).toInt(), 1);
        QCOMPARE(storedValue(m_file, QStringLiteral("Geometry/WIDTH")).toInt(), 7);
        QVERIFY(contentOf(m_file).contains("X_pos=1"));
    }
};

QTEST_MAIN(tst_common_settings_in_use)
#include "tst_common_settings_in_use.moc"
