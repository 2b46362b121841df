// SPDX-License-Identifier: MIT
#include "GermanTexts.h"
#include "ShownTexts.h"

#include <FakeServices.h>
#include <Text.h>

#include <MainWindow.h>
#include <RecentMenu.h>
#include <Translations.h>

#include <common_recent_file_settings.h>

#include <QTemporaryDir>
#include <QtTest>

// The window of the 3D view, its menus and what is drawn over the model have no English text left.
class tst_german_cadkest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_german.count() > 50);
        Translations::install();
    }

    void windowIsGerman()
    {
        const FakeApplicationInfo info(m_folder.path());
        MainWindow window;
        common_recent_file_settings recent(m_folder.filePath(text("recent.ini")));
        auto* const menu = new RecentMenu(&window, &recent);
        window.addRecentMenu(menu);
        Q_EMIT menu->aboutToShow();
        window.show();
        window.refuseHardware(text("OpenGL"));
        const QStringList shown = ShownTexts::of(window);
        QCOMPARE(m_german.untranslated(shown, allowed()).join(QLatin1Char('\n')), QString());
        QCOMPARE(ShownTexts::ambiguousMenus(window), QStringList());
        for (const char* const each : {"&Datei", "&Ansicht", "&Einstellungen", "&Zuletzt geöffnet",
                                       "&Einpassen\tPos1", "Software-Darstellung"}) {
            QVERIFY2(shown.contains(text(each)), each);
        }
    }

    void whatIsDrawnOverTheModelIsGerman_data()
    {
        QTest::addColumn<QByteArray>("cards");
        QTest::addColumn<QString>("shown");
        const QByteArray wire = "GW 1 1 0 0 0 1 0 0 0.001\n";
        const QByteArray other = "GW 2 9 0 0 1 1 0 1 0.001\n";
        const QByteArray patch = "SP 0 0 0.1 .05 .05 0 0 0.01\n";
        const QByteArray many = "GW 3 5000 0 0 2 1 0 2 0.00001\n";
        QTest::newRow("one") << wire << text("1 Draht, 1 Segment");
        QTest::newRow("several") << wire + other << text("2 Drähte, 10 Segmente");
        QTest::newRow("patch") << wire + patch
                               << text("1 Draht, 1 Segment|"
                                       "1 Karte mit Flächenelementen wird nicht gezeigt");
        QTest::newRow("patches") << wire + patch + patch
                                 << text("1 Draht, 1 Segment|"
                                         "2 Karten mit Flächenelementen werden nicht gezeigt");
        QTest::newRow("too many") << wire + many
                                  << text("1 Draht, 1 Segment|"
                                          "unvollständig: es gibt weitere Segmente");
    }

    void whatIsDrawnOverTheModelIsGerman()
    {
        QFETCH(QByteArray, cards);
        QFETCH(QString, shown);
        MainWindow window;
        window.openModel(write("CE\n" + cards + "GE 0\nFR 0 1 0 0 30 0\nXQ\nEN\n"));
        QCOMPARE(window.view()->overlay().lines.mid(1).join(QLatin1Char('|')), shown);
    }

    void mistakesHaveAGermanTitle()
    {
        MainWindow window;
        window.openModel(m_folder.filePath(text("none.nec")));
        const auto* const message = window.findChild<QLabel*>(text("modelMessage"));
        QVERIFY2(message->text().contains(text("none.nec kann nicht gezeigt werden:")),
                 qPrintable(message->text()));
        window.openModel(write("CE\nGW 1 5 0 0 0 1 0 0 0.01\n" + QByteArray("QX\n").repeated(50) +
                               "GE 0\nEN\n"));
        QVERIFY2(message->text().startsWith(
                     text("model.nec hat Fehler; gezeigt wird, was lesbar ist:\n")),
                 qPrintable(message->text()));
        QVERIFY(message->text().contains(QRegularExpression(text("\nund [0-9]+ weitere$"))));
    }

private:
    QString write(const QByteArray& deck) const
    {
        QFile file(m_folder.filePath(text("model.nec")));
        if (!file.open(QIODevice::WriteOnly) || file.write(deck) != deck.size()) {
            qFatal("no model");
        }
        return file.fileName();
    }

    static QStringList allowed() { return {text("cadkest|OpenGL")}; }

    const GermanTexts m_german{{text("base"), text("cadkest")}};
    const QTemporaryDir m_folder;
};

QTEST_MAIN(tst_german_cadkest)
#include "tst_german_cadkest.moc"
