// SPDX-License-Identifier: MIT
#include <LanguageChoice.h>
#include <Text.h>

#include <QtTest>

// Which language the applications have, in which environment.
class tst_language_choice : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        for (const char* const variable :
             {"KEST_LANGUAGE", "LANGUAGE", "LC_ALL", "LC_MESSAGES", "LANG"}) {
            qunsetenv(variable);
        }
    }

    void choosesTheFirstAvailableLanguage_data()
    {
        QTest::addColumn<QStringList>("wanted");
        QTest::addColumn<QString>("chosen");
        QTest::newRow("nothing is wanted") << QStringList() << QString();
        QTest::newRow("a language") << QStringList{text("de")} << text("de");
        QTest::newRow("a country") << QStringList{text("de-AT")} << text("de");
        QTest::newRow("a locale") << QStringList{text("de_CH.UTF-8")} << text("de");
        QTest::newRow("capitals") << QStringList{text("DE")} << text("de");
        QTest::newRow("another language") << QStringList{text("fr")} << QString();
        QTest::newRow("one of three letters") << QStringList{text("deu")} << QString();
        QTest::newRow("the second wish") << QStringList{text("fr"), text("de")} << text("de");
        QTest::newRow("English before") << QStringList{text("en-GB"), text("de")} << text("en");
        QTest::newRow("English behind") << QStringList{text("de"), text("en")} << text("de");
        QTest::newRow("no language") << QStringList{text("C"), text("de")} << text("en");
        QTest::newRow("POSIX") << QStringList{text("POSIX")} << text("en");
        QTest::newRow("nonsense") << QStringList{text("../de"), QString()} << QString();
    }

    void choosesTheFirstAvailableLanguage()
    {
        QFETCH(QStringList, wanted);
        QFETCH(QString, chosen);
        QCOMPARE(LanguageChoice::of(wanted, {text("de"), text("it")}), chosen);
    }

    void followsTheEnvironment_data()
    {
        QTest::addColumn<QStringList>("variables"); // name and value
        QTest::addColumn<QString>("chosen");
        const QStringList german = {text("LANG"), text("de_DE.UTF-8")};
        QTest::newRow("nothing is set") << QStringList() << text("en");
        QTest::newRow("containers") << QStringList{text("LANG"), text("C.UTF-8")} << text("en");
        QTest::newRow("the system") << german << text("de");
        QTest::newRow("messages alone")
            << QStringList{text("LC_MESSAGES"), text("de_DE.UTF-8"), text("LANG"), text("C.UTF-8")}
            << text("de");
        QTest::newRow("English messages")
            << german + QStringList{text("LC_MESSAGES"), text("en_US.UTF-8")} << text("en");
        QTest::newRow("a list of languages")
            << QStringList{text("LANGUAGE"), text("fr:de"), text("LANG"), text("fr_FR.UTF-8")}
            << text("de");
        QTest::newRow("scripts") << german + QStringList{text("LC_ALL"), text("C")} << QString();
        QTest::newRow("scripts and a list of languages")
            << german + QStringList{text("LANGUAGE"), text("de"), text("LC_ALL"), text("POSIX")}
            << QString();
        QTest::newRow("the user's choice")
            << QStringList{text("KEST_LANGUAGE"), text("de"), text("LC_ALL"), text("C")}
            << text("de");
        QTest::newRow("the user's English")
            << german + QStringList{text("KEST_LANGUAGE"), text("en")} << text("en");
        QTest::newRow("an unknown choice is not replaced by the system's")
            << german + QStringList{text("KEST_LANGUAGE"), text("fr")} << QString();
        QTest::newRow("an empty choice")
            << german + QStringList{text("KEST_LANGUAGE"), QString()} << text("de");
    }

    void followsTheEnvironment()
    {
#ifdef Q_OS_WIN
        QSKIP("The languages of this system are not in the environment.");
#endif
        QFETCH(QStringList, variables);
        QFETCH(QString, chosen);
        for (int i = 0; i < variables.size(); i += 2) {
            qputenv(qPrintable(variables.at(i)), variables.at(i + 1).toUtf8());
        }
        const QString language = LanguageChoice::of(LanguageChoice::wanted(), {text("de")});
        QCOMPARE(language.isEmpty() ? QString() : language, chosen);
    }
};

QTEST_GUILESS_MAIN(tst_language_choice)
#include "tst_language_choice.moc"
