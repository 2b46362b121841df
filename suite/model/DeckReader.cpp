// SPDX-License-Identifier: MIT
#include "DeckReader.h"

#include "CardParser.h"
#include "CardRules.h"
#include "ModelFile.h"
#include "Optimisation.h"
#include "PlainText.h"

#include <InputFile.h>

#include <algorithm>

namespace suite {

namespace {

constexpr qint64 megabyte = 1 << 20;
constexpr qint64 largestDeck = 16 * megabyte;

// The engine reads this many bytes of a line and takes the rest for the next card.
constexpr int longestLine = 132;

// The engine never sees cards that give values names.
constexpr int longestDefinition = 1000;

bool isBlank(char character)
{
    return character == ' ' || character == '\t';
}

bool isAscii(const QByteArray& line)
{
    return std::all_of(line.begin(), line.end(),
                       [](char each) { return static_cast<unsigned char>(each) < 0x80; });
}

bool isControl(char character)
{
    const auto code = static_cast<unsigned char>(character);
    return (code < 0x20 && character != '\t' && character != '\n' && character != '\r') ||
           code == 0x7f;
}

bool isDefinition(const QByteArray& line)
{
    const QByteArray mnemonic = line.trimmed().left(2);
    return qstricmp(mnemonic.constData(), "SY") == 0;
}

} // namespace

DeckReader::DeckReader(FindingList& findings)
    : m_findings(findings), m_definitions(m_deck.names, findings)
{}

Deck DeckReader::readFile(const ModelFile& model)
{
    InputFile file(model.path());
    const std::optional<QByteArray> bytes = file.read(largestDeck);
    if (!bytes) {
        reportProblem(file);
        return {};
    }
    return readBytes(*bytes);
}

void DeckReader::reportProblem(const InputFile& file)
{
    switch (file.problem()) {
    case InputFile::Problem::Missing:
        m_findings.add(FindingKind::ModelMissing);
        break;
    case InputFile::Problem::Folder:
        m_findings.add(FindingKind::ModelIsDirectory);
        break;
    case InputFile::Problem::TooLarge:
        reportTooLarge();
        break;
    default:
        m_findings.add(FindingKind::ModelUnreadable, 0, {file.reason()});
    }
}

void DeckReader::reportTooLarge()
{
    m_findings.add(FindingKind::ModelTooLarge, 0, {QString::number(largestDeck / megabyte)});
}

Deck DeckReader::readBytes(const QByteArray& bytes)
{
    m_deck = Deck();
    if (!isText(bytes)) {
        return m_deck;
    }
    const QList<QByteArray> lines = bytes.split('\n');
    m_deck.bytes = bytes;
    m_hasNames = std::any_of(lines.begin(), lines.end(), isDefinition);
    for (const QByteArray& line : lines) {
        ++m_line;
        readLine(line.endsWith('\r') ? line.left(line.size() - 1) : line);
    }
    m_deck.lastLine = bytes.endsWith('\n') ? m_line - 1 : m_line;
    if (m_deck.cards.isEmpty() && m_deck.comments.isEmpty() && !m_findings.hasErrors()) {
        m_findings.add(FindingKind::ModelEmpty);
    }
    return m_deck;
}

bool DeckReader::isText(const QByteArray& bytes)
{
    if (bytes.trimmed().isEmpty()) {
        m_findings.add(FindingKind::ModelEmpty);
    } else if (bytes.size() > largestDeck) {
        reportTooLarge();
    } else if (std::any_of(bytes.begin(), bytes.end(), isControl)) {
        m_findings.add(FindingKind::ModelBinary);
    } else {
        return true;
    }
    return false;
}

void DeckReader::readLine(const QByteArray& line)
{
    const QByteArray content = line.trimmed();
    if (content.isEmpty() || content.startsWith('#')) {
        return;
    }
    if (m_ended) {
        if (!m_ignoredTold) {
            m_findings.add(FindingKind::IgnoredAfterEnd, m_line);
        }
        m_ignoredTold = true;
        return;
    }
    Card card;
    card.line = m_line;
    card.mnemonic = QString::fromLatin1(content.left(2)).toUpper();
    if (card.mnemonic == QLatin1String("CM") || card.mnemonic == QLatin1String("CE")) {
        readComment(line, card.mnemonic);
    } else if (checkLine(line, card.mnemonic)) {
        readCard(line, card);
    }
    m_ended = card.mnemonic == QLatin1String("EN");
}

void DeckReader::readComment(const QByteArray& line, const QString& mnemonic)
{
    if (m_commentsEnded || !m_deck.cards.isEmpty()) {
        m_findings.add(FindingKind::CommentAfterEnd, m_line, {mnemonic});
        return;
    }
    if (isBlank(line.at(0))) {
        m_findings.add(FindingKind::LeadingBlank, m_line);
    }
    if (line.size() > longestLine) {
        m_findings.add(FindingKind::LineTooLong, m_line,
                       {QString::number(line.size()), QString::number(longestLine)});
    }
    m_deck.comments.append(line.trimmed().left(longestLine));
    if (isOptimisation(m_deck.comments.last())) {
        m_deck.instructions.append({m_line, m_deck.comments.last()});
    }
    m_deck.commentLines.append(m_line);
    m_commentsEnded = mnemonic == QLatin1String("CE");
}

// True when the line's fields are worth reading.
bool DeckReader::checkLine(const QByteArray& line, const QString& mnemonic)
{
    if (line.startsWith("\xef\xbb\xbf")) {
        m_findings.add(FindingKind::ByteOrderMark, m_line);
        return false;
    }
    if (!isAscii(line)) {
        m_findings.add(FindingKind::NotAscii, m_line);
        return false;
    }
    if (isBlank(line.at(0))) {
        m_findings.add(FindingKind::LeadingBlank, m_line);
    }
    const int longest = mnemonic == QLatin1String("SY") ? longestDefinition : longestLine;
    if (line.size() > longest) {
        m_findings.add(FindingKind::LineTooLong, m_line,
                       {QString::number(line.size()), QString::number(longest)});
        return false;
    }
    return true;
}

void DeckReader::readCard(const QByteArray& line, Card card)
{
    const QByteArray content = line.trimmed();
    if (!m_deck.comments.isEmpty() && !m_commentsEnded) {
        m_findings.add(FindingKind::CommentsNotEnded, m_line);
        m_commentsEnded = true;
    }
    const CardRule* rule = cardRule(card.mnemonic);
    if (rule == nullptr) {
        const int blank = content.indexOf(' ');
        const QByteArray word = blank < 0 ? content : content.left(blank);
        m_findings.add(FindingKind::UnknownCard, m_line, {excerpt(QString::fromLatin1(word))});
        return;
    }
    if (rule->section == Section::Unsupported) {
        m_findings.add(FindingKind::UnsupportedCard, m_line, {card.mnemonic});
        return;
    }
    if (rule->section == Section::Definition) {
        m_definitions.read(line, m_line);
        return;
    }
    CardParser parser(m_findings, m_hasNames ? &m_deck.names : nullptr);
    parser.parse(*rule, QString::fromLatin1(content.mid(2)), card);
    m_deck.cards.append(card);
}

} // namespace suite
