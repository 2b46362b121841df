// SPDX-License-Identifier: MIT
#include "DeckHighlighter.h"

#include <common_Contrast.h>

#include <CardRules.h>

#include <QRegularExpression>
#include <QTextCharFormat>

namespace {

constexpr int mnemonicLength = 2;

// clang-format off
const struct { const char* light; const char* dark; bool isBold; } styles[] = {
    {"#6a737d", "#9aa4ae", false}, // comment
    {"#0b5cad", "#6cb2ff", true},  // geometry
    {"#7a3e9d", "#d19af0", true},  // control
    {"#1a7f37", "#6fce85", true},  // end
    {"#c62828", "#ff8a80", true},  // unknown
    {"#24292e", "#e6e6e6", false}, // number
    {"#6a737d", "#9aa4ae", false}, // remark
};
// clang-format on

const QRegularExpression& remarkPattern()
{
    static const QRegularExpression pattern(QStringLiteral("[!#'].*$"));
    return pattern;
}

} // namespace

DeckHighlighter::DeckHighlighter(QTextDocument* document, const QPalette& palette)
    : QSyntaxHighlighter(document)
    , m_base(palette.color(QPalette::Base))
    , m_currentBase(palette.color(QPalette::AlternateBase))
{}

void DeckHighlighter::setPalette(const QPalette& palette)
{
    m_base = palette.color(QPalette::Base);
    m_currentBase = palette.color(QPalette::AlternateBase);
    rehighlight();
}

void DeckHighlighter::highlightBlock(const QString& text)
{
    if (text.startsWith(QLatin1Char('#'))) {
        colour(0, text.size(), Part::Remark);
        return;
    }
    const QString mnemonic = text.left(mnemonicLength).toUpper();
    if (mnemonic.trimmed().isEmpty()) {
        return;
    }
    const Part card = partOfCard(mnemonic);
    if (card == Part::Comment) {
        colour(0, text.size(), Part::Comment);
        return;
    }
    colour(0, mnemonicLength, card);
    const int remark = remarkPattern().match(text, mnemonicLength).capturedStart();
    const int end = remark < 0 ? text.size() : remark;
    colour(mnemonicLength, end - mnemonicLength, Part::Number);
    colour(end, text.size() - end, Part::Remark);
}

void DeckHighlighter::colour(int start, int length, Part part)
{
    const auto& style = styles[static_cast<int>(part)];
    QTextCharFormat format;
    format.setForeground(readable(style.light, style.dark));
    format.setFontWeight(style.isBold ? QFont::Bold : QFont::Normal);
    format.setFontItalic(part == Part::Comment || part == Part::Remark);
    setFormat(start, length, format);
}

QColor DeckHighlighter::readable(const char* light, const char* dark) const
{
    const bool isDark = m_base.lightnessF() < 0.5;
    const QColor colour = common_Contrast::readable(QLatin1String(isDark ? dark : light), m_base);
    return common_Contrast::readable(colour, m_currentBase);
}

DeckHighlighter::Part DeckHighlighter::partOfCard(const QString& mnemonic)
{
    const suite::CardRule* rule = suite::cardRule(mnemonic);
    if (rule == nullptr) {
        return Part::Unknown;
    }
    switch (rule->section) {
    case suite::Section::Comment:
        return Part::Comment;
    case suite::Section::Geometry:
        return Part::Geometry;
    case suite::Section::Control:
        return Part::Control;
    case suite::Section::End:
        return Part::End;
    default:
        return Part::Unknown;
    }
}
