// SPDX-License-Identifier: MIT
#include <Clause.h>

#include <QtTest>

// What the system says of a failure, within a sentence.
class tst_clause : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void periodOfASentenceGoes_data();
    void periodOfASentenceGoes();
};

void tst_clause::periodOfASentenceGoes_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("clause");
    const auto add = [](const char* name, const char* text, const char* clause) {
        QTest::newRow(name) << QString::fromUtf8(text) << QString::fromUtf8(clause);
    };
    add("of Unix", "No such file or directory", "No such file or directory");
    add("of Windows", "The system cannot find the file.", "The system cannot find the file");
    add("with a line break", "Access is denied.\r\n", "Access is denied");
    add("of several sentences", "One. Two.", "One. Two");
    add("in German", "Zugriff verweigert.", "Zugriff verweigert");
    add("empty", "", "");
    add("nothing else", ".", "");
}

void tst_clause::periodOfASentenceGoes()
{
    QFETCH(QString, text);
    QTEST(suite::clause(text), "clause");
}

QTEST_APPLESS_MAIN(tst_clause)
#include "tst_clause.moc"
