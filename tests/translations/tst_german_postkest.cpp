// SPDX-License-Identifier: MIT
#include "GermanTexts.h"
#include "ShownTexts.h"

#include <ApplicationIdentity.h>
#include <BoxAnswerer.h>
#include <Export.h>
#include <QuantityChart.h>
#include <ResultView.h>
#include <Services.h>
#include <Text.h>
#include <Translations.h>
#include <ViewerWindow.h>
#include <pathPattern.h>

#include <QTemporaryDir>
#include <QtTest>

#include <memory>

// The window of results, its menus, charts and boxes have no English text left.
class tst_german_postkest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY(m_german.count() > 50);
        Translations::install();
    }

    void init()
    {
        qputenv("KEST_USER_HOME", m_folder.path().toLocal8Bit());
        qputenv("KEST_HOME", KEST_SUITE);
        m_services =
            std::make_unique<Services>(ApplicationIdentity{text("postkest"), QString()}, false);
    }

    void cleanup() { m_services.reset(); }

    void emptyWindowIsGerman()
    {
        ViewerWindow window({});
        window.show();
        showMenus(window);
        const QStringList shown = ShownTexts::of(window);
        QCOMPARE(m_german.untranslated(shown, allowed()).join(QLatin1Char('\n')), QString());
        QCOMPARE(ShownTexts::ambiguousMenus(window), QStringList());
        for (const char* const each :
             {"&Datei", "&Ansicht", "&Hilfe", "Ergebnisse",
              // NOLINTNEXTLINE(bugprone-suspicious-missing-comma): one text
              "Öffnen Sie Ergebnisse von Läufen (Strg+O) oder legen Sie sie auf diesem Fenster "
              "ab."}) {
            QVERIFY2(shown.contains(text(each)), each);
        }
    }

    void windowWithResultsIsGerman()
    {
        const QString good =
            write("good.csv", "frequency_MHz,resistance_ohm,reactance_ohm,swr\n100,10,-50,5\n"
                              "200,70,0,1.4\n");
        const QString bad = write("bad.csv", "nothing\n");
        ViewerWindow window({good, bad});
        window.show();
        const QStringList shown = ShownTexts::of(window);
        QCOMPARE(m_german.untranslated(shown, allowed()).join(QLatin1Char('\n')), QString());
        const QString tip = text("bad.csv\nNicht gezeigt: ");
        QVERIFY(shown.join(QLatin1Char('|')).contains(tip));
        QStringList titles;
        const auto charts = window.findChildren<QuantityChart*>();
        for (QuantityChart* const chart : charts) {
            const auto axes = chart->chart()->axes();
            for (const auto* const axis : axes) {
                titles.append(axis->titleText());
            }
            titles.append(chart->chart()->title());
        }
        titles.removeAll(QString());
        QVERIFY2(titles.contains(text("Frequenz / MHz")), qPrintable(titles.join(u'|')));
        QVERIFY2(titles.contains(text("Wirkwiderstand / Ω")), qPrintable(titles.join(u'|')));
        QCOMPARE(m_german.untranslated(titles, allowed()).join(QLatin1Char('\n')), QString());
    }

    void refusedExportsAreGerman()
    {
        ResultView view;
        const QStringList errors = {
            Export::write(m_folder.filePath(text("chart.bmp")), view, {}, {}),
            Export::write(m_folder.filePath(text("none/chart.png")), view, {}, {})};
        QCOMPARE(errors.at(0), m_folder.filePath(text("chart.bmp")) +
                                   text(" ist weder .png noch .svg noch .csv"));
        QVERIFY2(errors.at(1).contains(text(" kann nicht geschrieben werden: ")),
                 qPrintable(errors.at(1)));
    }

private:
    QString write(const char* name, const QByteArray& content) const
    {
        QFile file(m_folder.filePath(text(name)));
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
            qFatal("no result");
        }
        return file.fileName();
    }

    static void showMenus(const QWidget& window)
    {
        const QList<QMenu*> menus = window.findChildren<QMenu*>();
        for (QMenu* const menu : menus) {
            Q_EMIT menu->aboutToShow();
        }
    }

    // Names, values with their units, and what the suite says about a file.
    static QStringList allowed()
    {
        return {text("(■ )?good|bad"),
                pathPattern(text("/[^ ]*/bad.csv")),
                text("it is no table of results.*"),
                text("postkest"),
                text(".*good \\(.*postkest"),
                text(".*good.csv \\(.*postkest"),
                pathPattern(text(".*/good.csv")),
                text("<table>.*MHz.*"),
                text("<font .*good.*"),
                text("[0-9]+ .*\\.csv")};
    }

    const GermanTexts m_german{{text("base"), text("postkest")}};
    const QTemporaryDir m_folder;
    std::unique_ptr<Services> m_services;
};

QTEST_MAIN(tst_german_postkest)
#include "tst_german_postkest.moc"
