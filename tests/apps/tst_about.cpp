// SPDX-License-Identifier: MIT
#include "../support/SystemSkips.h"

#include <AboutBox.h>
#include <ApplicationIdentity.h>
#include <BoxAnswerer.h>
#include <EngineVersion.h>
#include <Services.h>
#include <Text.h>
#include <Versions.h>

#include <QFile>
#include <QTemporaryDir>
#include <QWidget>
#include <QtTest>

// What an application says that it is made of.
class tst_about : public QObject
{
    Q_OBJECT

private:
    // A program that plays the engine.
    QString engine(const QByteArray& script) const
    {
        QString path = m_folder.filePath(text("engine"));
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write("#!/bin/sh\n" + script) < 0 ||
            !file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner)) {
            qFatal("no engine");
        }
        return path;
    }

    QTemporaryDir m_folder;

private Q_SLOTS:
    void cleanup() { qunsetenv("KEST_NEC2C"); }

    void engineSaysItsVersion_data()
    {
        QTest::addColumn<QByteArray>("script");
        QTest::addColumn<QString>("version");
        // clang-format off
        QTest::newRow("a version")     << QByteArray("test \"$*\" = -v && echo engine 9.9")  << "engine 9.9";
        QTest::newRow("several lines") << QByteArray("printf 'engine 9.9\\nmore\\n'")        << "engine 9.9";
        QTest::newRow("nothing")       << QByteArray("true")                                  << "unknown version";
        QTest::newRow("a failure")     << QByteArray("exit 3")                                << "unknown version";
        QTest::newRow("controls")      << QByteArray("printf 'a\\033[31mb\\n'")               << text("a") + QChar(0xfffd) + text("[31mb");
        QTest::newRow("never")         << QByteArray("exec sleep 600")                        << "unknown version";
        // clang-format on
    }

    void engineSaysItsVersion()
    {
        SKIP_WITHOUT_SHELL();
        QFETCH(QByteArray, script);
        QFETCH(QString, version);
        const QString program = engine(script);
        qputenv("KEST_NEC2C", QFile::encodeName(program));
        const QString line = QStringLiteral("%1 (%2)").arg(version, program);
        QCOMPARE(EngineVersion::ask(), line);
        EngineVersion later;
        QSignalSpy found(&later, &EngineVersion::found);
        later.start();
        QCOMPARE(later.text(), QString()); // it did not wait
        QTRY_COMPARE_WITH_TIMEOUT(found.size(), 1, 30000);
        QCOMPARE(later.text(), line);
    }

    void engineThatIsNotThereIsNamed()
    {
        qputenv("KEST_NEC2C", "no-such-engine");
        QCOMPARE(EngineVersion::ask(), text("no-such-engine is not in the search path"));
    }

    void programThatCannotBeStartedHasNoVersion()
    {
        SKIP_WITHOUT_SHELL();
        const QString program = engine("");
        QFile file(program);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("#!/no/such/shell\n") > 0);
        file.close();
        qputenv("KEST_NEC2C", QFile::encodeName(program));
        QCOMPARE(EngineVersion::ask(), text("unknown version (") + program + text(")"));
        EngineVersion later;
        QSignalSpy found(&later, &EngineVersion::found);
        later.start();
        QTRY_COMPARE_WITH_TIMEOUT(found.size(), 1, 1000); // at once, and not when its time is over
    }

    void librariesHaveVersionsAndLicences_data()
    {
        QTest::addColumn<QString>("application");
        QTest::addColumn<bool>("hasCharts");
        QTest::newRow("kestdesk") << "kestdesk" << false;
        QTest::newRow("postkest") << "postkest" << true;
    }

    void librariesHaveVersionsAndLicences()
    {
        QFETCH(QString, application);
        QFETCH(bool, hasCharts);
        const QString name = QCoreApplication::applicationName();
        QCoreApplication::setApplicationName(application);
        QStringList lines = {text("Engine: e 1"),
                             text("Qt ") + text(qVersion()) + text(", LGPL version 3")};
        if (hasCharts) {
            lines.append(text("Qt Charts ") + text(qVersion()) + text(", GPL version 3"));
        }
        QCOMPARE(Versions::parts(text("e 1")), lines.join(QLatin1Char('\n')));
        QCoreApplication::setApplicationName(name);
    }

    void boxIsThereBeforeTheEngineAnswers()
    {
        SKIP_WITHOUT_SHELL();
        const QString program = engine("sleep 0.5; echo engine 9.9");
        qputenv("KEST_NEC2C", QFile::encodeName(program));
        const Services services(ApplicationIdentity{text("viewer"), QString()}, false);
        QWidget window;
        QString later;
        BoxAnswerer reader([&later](QMessageBox& box) {
            QTRY_VERIFY_WITH_TIMEOUT(box.text().contains(text("engine 9.9")), 30000);
            later = box.text();
            box.reject();
        });
        AboutBox::show(window, text("Views."));
        QCOMPARE(reader.texts.size(), 1);
        QVERIFY2(reader.texts.constFirst().contains(text("\nEngine: ...\n")),
                 qPrintable(reader.texts.constFirst()));
        QCOMPARE(later, QString(reader.texts.constFirst())
                            .replace(text("..."), text("engine 9.9 (") + program + text(")")));
    }

    void boxMayBeClosedBeforeTheEngineAnswers()
    {
        SKIP_WITHOUT_SHELL();
        qputenv("KEST_NEC2C", QFile::encodeName(engine("exec sleep 600")));
        const Services services(ApplicationIdentity{text("viewer"), QString()}, false);
        QWidget window;
        const BoxAnswerer reader([](QMessageBox& box) { box.reject(); });
        QElapsedTimer clock;
        clock.start();
        AboutBox::show(window, text("Views."));
        QCOMPARE(reader.texts.size(), 1);
        QVERIFY(clock.elapsed() < 15000); // the engine would take ten minutes
    }
};

QTEST_MAIN(tst_about)

#include "tst_about.moc"
