// SPDX-License-Identifier: MIT
#pragma once

#include <Decks.h>

#include <QtTest>

inline QString utf8(const char* text)
{
    return QString::fromUtf8(text);
}

/// A mistake in a deck and how it is reported: a row of the tables that tests of bad decks walk.
struct DeckMistake
{
    const char* name;
    int line;         ///< that is reported, from 1
    const char* text; ///< what makes the deck a bad one; the test says where it goes
    int number;       ///< of the message
    const char* reason;

    static void addColumns()
    {
        QTest::addColumn<QByteArray>("deck");
        QTest::addColumn<int>("number");
        QTest::addColumn<int>("line");
        QTest::addColumn<QString>("reason");
    }

    /// Adds a row for the deck that has the mistake.
    void add(const QByteArray& deck) const
    {
        QTest::newRow(name) << deck << number << line << QString::fromLatin1(reason);
    }

    /// Adds a row for a mistake that no table has.
    static void add(const char* name, const QByteArray& deck, int number, int line,
                    const char* reason)
    {
        DeckMistake{name, line, "", number, reason}.add(deck);
    }
};

/// The current row of such a test: a deck, and the report that it must lead to.
struct ReportedDeck
{
    QByteArray deck;
    int number = 0;
    int line = 0;
    QString reason;

    static ReportedDeck ofRow()
    {
        QFETCH(QByteArray, deck);
        QFETCH(int, number);
        QFETCH(int, line);
        QFETCH(QString, reason);
        return {deck, number, line, reason};
    }
};

/// The good dipole with one line replaced. Several cards may stand in for one, and none.
inline QByteArray changed(int line, const QString& card)
{
    QStringList cards = dipoleCards();
    if (card.isNull()) {
        cards.removeAt(line - 1);
    } else {
        cards[line - 1] = card;
    }
    return deckOf(cards);
}
