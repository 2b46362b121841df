// SPDX-License-Identifier: MIT
#include "FileName.h"
#include "VisibleText.h"

#include <LatinLocale.h>
#include <NativeRun.h>
#include <Text.h>

#include <QFile>
#include <QTemporaryDir>
#include <QUrl>
#include <QtTest>

namespace FileName = suite::FileName;

// Names that Qt cannot give to the system are known, and keep their bytes.
class tst_file_name : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textIsText_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::newRow("letters") << QByteArrayLiteral("/tmp/a b.nec");
        QTest::newRow("accents") << QByteArray("caf\xc3\xa9.nec");
        QTest::newRow("beyond sixteen bits") << QByteArray("\xf0\x9f\x98\x80");
        QTest::newRow("the replacement character itself") << QByteArray("a\xef\xbf\xbd");
        QTest::newRow("backslash") << QByteArrayLiteral("\\xE9");
    }

    void textIsText()
    {
        QFETCH(QByteArray, name);
        QCOMPARE(FileName::fromNative(name), QString::fromUtf8(name));
    }

    void otherBytesAreKept_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<QString>("seen");
        QTest::newRow("Latin-1") << QByteArray("caf\xe9.nec") << text("caf\\xE9.nec");
        QTest::newRow("both") << QByteArray("\xc3\xa9\xe9") << text("é\\xE9");
        QTest::newRow("cut") << QByteArray("a\xf0\x9f\x98") << text(R"(a\xF0\x9F\x98)");
        QTest::newRow("overlong") << QByteArray("\xc0\xaf") << text(R"(\xC0\xAF)");
        QTest::newRow("surrogate") << QByteArray("\xed\xb3\xbf") << text(R"(\xED\xB3\xBF)");
    }

    void otherBytesAreKept()
    {
#ifdef Q_OS_WIN
        QSKIP("on Windows, all names are text");
#endif
        QFETCH(QByteArray, name);
        QFETCH(QString, seen);
        const QString kept = FileName::fromNative(name);
        QCOMPARE(suite::visibleText(kept), seen);
        QVERIFY(FileName::problem(kept).contains(text("is not UTF-8")));
        QVERIFY(
            FileName::problem(text("/tmp/") + kept + text("/x.nec")).contains(text("rename it")));
    }

    void goodNamesHaveNoProblem()
    {
        for (const char* const name : {"/tmp/a b.nec", "café.nec", "\U0001f600.nec", "", "\\xE9"}) {
            QCOMPARE(FileName::problem(text(name)), QString());
        }
    }

    // A dialog that cannot read a name gives this character in place of its bytes; a file may have
    // it in its name all the same.
    void replacedCharactersAreAProblemUnlessTheFileIsThere()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(text("a\ufffd.nec"));
        QVERIFY(!FileName::problem(path).isEmpty());
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(FileName::problem(path), QString());
    }

    // What the session cannot say is no mistake of the name.
    void sessionWithoutUtf8IsTold()
    {
#ifdef Q_OS_WIN
        QSKIP("on Windows, all names are text");
#endif
        const LatinLocale locale;
        const QString western = FileName::problem(text("café.nec"));
        const QString eastern = FileName::problem(text("模型.nec"));
        QCOMPARE(western, QString());
        if (!LatinLocale::isPossible) {
            QCOMPARE(eastern, QString());
            return;
        }
        QVERIFY2(eastern.contains(text("LC_ALL=C.UTF-8")) && !eastern.contains(text("rename")),
                 qPrintable(eastern));
    }

    void relativePathsBecomeAbsolute()
    {
        const QDir folder = QDir::current();
        QCOMPARE(FileName::absolute(text("a/../b.nec")), folder.absoluteFilePath(text("b.nec")));
        QCOMPARE(FileName::absolute(text("/a//b.nec")),
                 QFileInfo(text("/a/b.nec")).absoluteFilePath());
        const QString kept = FileName::fromNative("caf\xe9.nec");
        QCOMPARE(FileName::absolute(kept), folder.absoluteFilePath(kept));
    }

    void filesOfAFolderThatCannotBeOpenedAreFound()
    {
#ifdef Q_OS_WIN
        QSKIP("on Windows, all names are text");
#endif
        const QTemporaryDir folder;
        const NativeRun made =
            NativeRun::of(text("/usr/bin/touch"), {"caf\xe9.nec", "caf\xc3\xa9.nec", "\xff.csv"},
                          folder.path(), QProcessEnvironment::systemEnvironment());
        QCOMPARE(made.exitCode, 0);
        QStringList seen;
        const QStringList names = FileName::unusableIn(folder.path());
        for (const QString& name : names) {
            seen.append(suite::visibleText(name));
        }
        QCOMPARE(seen, QStringList({text("caf\\xE9.nec"), text("\\xFF.csv")}));
        QCOMPARE(FileName::unusableIn(text("/no such folder")), QStringList());
    }

    void addressesKeepTheBytes()
    {
#ifdef Q_OS_WIN
        QSKIP("on Windows, all names are text");
#endif
        const QUrl bad = QUrl::fromEncoded("file:///tmp/caf%E9%20%C3%A9.nec");
        QCOMPARE(suite::visibleText(FileName::fromUrl(bad)), text("/tmp/caf\\xE9 é.nec"));
        const QString path = text("/tmp/a b%20é#?.nec");
        QCOMPARE(FileName::fromUrl(QUrl::fromLocalFile(path)), path);
        QCOMPARE(FileName::fromUrl(QUrl(text("http://host/a.nec"))), QString());
    }
};

QTEST_GUILESS_MAIN(tst_file_name)
#include "tst_file_name.moc"
