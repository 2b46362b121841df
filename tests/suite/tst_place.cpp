// SPDX-License-Identifier: MIT
#include "Place.h"
#include "PlainText.h"

#include <QtTest>

using suite::Place;

// Programs find the card in the text of a message, whatever the file's name is.
class tst_place : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textOfAPlace_data();
    void textOfAPlace();
    void everyNameMakesTheRoundTrip_data();
    void everyNameMakesTheRoundTrip();
    void otherTextsHaveNoPlace_data();
    void otherTextsHaveNoPlace();
    void withoutALineNothingIsAdded();
};

void tst_place::textOfAPlace_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("line");
    QTest::addColumn<int>("tag");
    QTest::addColumn<QString>("text");
    const auto add = [](const char* text, const char* file, int line, int tag) {
        QTest::newRow(text) << QString::fromUtf8(file) << line << tag << QString::fromUtf8(text);
    };
    add("(dipole.nec, line 12)", "dipole.nec", 12, 0);
    add("(dipole.nec, line 12, tag 3)", "dipole.nec", 12, 3);
    add("(line 12)", "", 12, 0);
    add("(line 12, tag 3)", "", 12, 3);
    add("(my dipole (copy 2).nec, line 1)", "my dipole (copy 2).nec", 1, 0);
    add("(Länge.nec, line 1)", "Länge.nec", 1, 0);
    add("(a%3Ab.nec, line 1)", "a:b.nec", 1, 0);
    add("(a%28b.nec, line 1)", "a(b.nec", 1, 0);
    add("(100%25.nec, line 1)", "100%.nec", 1, 0);
    add("(a%0Ab-%2A-.nec, line 1)", "a\nb-*-.nec", 1, 0);
}

void tst_place::textOfAPlace()
{
    QFETCH(QString, file);
    QFETCH(int, line);
    QFETCH(int, tag);
    QFETCH(QString, text);
    const Place place = {file, line, tag};
    QCOMPARE(place.text(), text);
    QVERIFY(Place::at(text) == place);
}

void tst_place::everyNameMakesTheRoundTrip_data()
{
    QTest::addColumn<QString>("name");
    for (const char* name : {"m.nec",
                             "two words.nec",
                             " blanks around ",
                             "a, line 3",
                             "a, line 3, tag 4",
                             "line 3",
                             "(a)",
                             "a)b(c",
                             "((",
                             "))",
                             "(a, line 1)",
                             "a (b, line 1",
                             "Ärger.nec",
                             "天线.nec",
                             "\xF0\x9F\x93\xA1.nec",
                             "%",
                             "%41",
                             "50%3A.nec",
                             "a:b:c.nec",
                             "tab\there",
                             "new\nline",
                             "-*-error-*-.nec",
                             "--**--",
                             "*",
                             "\xE2\x80\xAEnec.m",
                             "'quoted'",
                             "a\\b"}) {
        QTest::newRow(name) << QString::fromUtf8(name);
    }
}

// Through all that a printer does to a message.
void tst_place::everyNameMakesTheRoundTrip()
{
    QFETCH(QString, name);
    for (const int tag : {0, 7}) {
        const Place place = {name, 12, tag};
        for (const char* message :
             {"the wire has no length", "it is 3 m (not 2 m)", "odd ((", "odd ))", ""}) {
            const QString text = place.behind(QString::fromLatin1(message));
            QCOMPARE(suite::withoutColons(text), text);
            QVERIFY(!text.contains(QLatin1String("-*")));
            const std::optional<Place> found = Place::at(text);
            QVERIFY2(found && *found == place, qPrintable(text));
        }
    }
}

void tst_place::otherTextsHaveNoPlace_data()
{
    QTest::addColumn<QString>("text");
    for (const char* text :
         {"", ")", "(", "()", "no place", "a length (3 m)", "(m.nec)", "(m.nec, line 0)",
          "(m.nec, line -1)", "(m.nec, line x)", "(m.nec, line 3) and more", "m.nec, line 3)",
          "(m.nec line 3)", "(m.nec, line 3, tag 0)", "(m.nec, line 99999999999)"}) {
        QTest::newRow(text) << QString::fromLatin1(text);
    }
}

void tst_place::otherTextsHaveNoPlace()
{
    QFETCH(QString, text);
    const std::optional<Place> found = Place::at(text);
    QVERIFY2(!found, qPrintable(text));
}

void tst_place::withoutALineNothingIsAdded()
{
    const Place nowhere = {QStringLiteral("m.nec"), 0, 3};
    QCOMPARE(nowhere.text(), QString());
    QCOMPARE(nowhere.behind(QStringLiteral("stopped")), QStringLiteral("stopped"));
}

QTEST_GUILESS_MAIN(tst_place)
#include "tst_place.moc"
