// SPDX-License-Identifier: MIT
#include <WindowTitle.h>

#include <QDir>
#include <QFileInfo>
#include <QtTest>

class tst_window_title : public QObject
{
    Q_OBJECT

private:
    static QString text(const char* utf8) { return QString::fromUtf8(utf8); }

    // As the system writes a folder; where there are drives, that of the working directory.
    static QString native(const char* folder)
    {
        return QDir::toNativeSeparators(QFileInfo(text(folder)).absoluteFilePath());
    }

private Q_SLOTS:
    void titleHasNameAndFolder_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("title");
        const QString home = QDir::homePath();
        // clang-format off
        QTest::newRow("folder")           << text("/data/a/m.nec")               << text("m.nec (") + native("/data/a") + text(") - kest");
        QTest::newRow("home")             << home + text("/m.nec")               << text("m.nec (~) - kest");
        QTest::newRow("below home")       << home + text("/models/m.nec")        << QDir::toNativeSeparators(text("m.nec (~/models) - kest"));
        QTest::newRow("only like home")   << home + text("s/m.nec")              << text("m.nec (") + QDir::toNativeSeparators(home) + text("s) - kest");
        QTest::newRow("root")             << text("/m.nec")                      << text("m.nec (") + native("/") + text(") - kest");
        QTest::newRow("sign for changes") << text("/a[*]/m[*].nec")              << text("m[*][*].nec (") + native("/a") + text("[*][*]) - kest");
        QTest::newRow("number sign")      << text("/a%2/m%1.nec")                << text("m%1.nec (") + native("/a%2") + text(") - kest");
        QTest::newRow("direction")        << text("/a/left\u202egnp.nec")        << text("left<U+202E>gnp.nec (") + native("/a") + text(") - kest");
        QTest::newRow("long folder")      << text("/data/0123456789/0123456789/0123456789/0123456789/last/m.nec")
            << QDir::toNativeSeparators(text("m.nec (\u2026123456789/0123456789/0123456789/0123456789/last) - kest"));
        // clang-format on
    }

    void titleHasNameAndFolder()
    {
        QFETCH(QString, path);
        QFETCH(QString, title);
        QCOMPARE(WindowTitle::of(path, text(" - kest")), title);
    }

    void filesOfOneNameHaveTitlesOfTheirOwn()
    {
        QVERIFY(WindowTitle::of(text("/a/m.nec"), QString()) !=
                WindowTitle::of(text("/b/m.nec"), QString()));
    }
};

QTEST_GUILESS_MAIN(tst_window_title)

#include "tst_window_title.moc"
