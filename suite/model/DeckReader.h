// SPDX-License-Identifier: MIT
#pragma once

#include "Deck.h"
#include "DefinitionReader.h"
#include "Finding.h"

namespace suite {

class InputFile;
class ModelFile;

/// Reads a deck. Errors in the file, a line or a field become findings; the deck contains all
/// readable cards, so that one error does not hide the next.
class DeckReader
{
public:
    explicit DeckReader(FindingList& findings);

    /// Reads a model's file.
    Deck readFile(const ModelFile& model);

    /// Reads a deck's bytes.
    Deck readBytes(const QByteArray& bytes);

private:
    void reportProblem(const InputFile& file);
    void reportTooLarge();
    bool isText(const QByteArray& bytes);
    void readLine(const QByteArray& line);
    void readComment(const QByteArray& line, const QString& mnemonic);
    void readCard(const QByteArray& line, Card card);
    bool checkLine(const QByteArray& line, const QString& mnemonic);

    FindingList& m_findings;
    Deck m_deck;
    DefinitionReader m_definitions;
    bool m_hasNames = false;
    int m_line = 0;
    bool m_commentsEnded = false;
    bool m_ended = false;
    bool m_ignoredTold = false;
};

} // namespace suite
