// SPDX-License-Identifier: MIT
#include "common_MarkupFormats.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextDocumentFragment>

#include <algorithm>

namespace {

// The number of cached formats: enough for any log that uses colours, and little memory.
constexpr int mostKnown = 1000;
constexpr int longestKnown = 200;

constexpr double greatestPointSize = 72;
constexpr int greatestPixelSize = 96;

constexpr const char* const usedAttributes[] = {"style", "color", "face", "size", "href", "title"};

// The properties of characters that are copied. Those that could make the view unusable, such as
// the space between characters, are left out.
constexpr QTextFormat::Property usedProperties[] = {QTextFormat::ForegroundBrush,
                                                    QTextFormat::BackgroundBrush,
                                                    QTextFormat::FontFamily,
                                                    QTextFormat::FontFamilies,
                                                    QTextFormat::FontPointSize,
                                                    QTextFormat::FontPixelSize,
                                                    QTextFormat::FontSizeAdjustment,
                                                    QTextFormat::FontWeight,
                                                    QTextFormat::FontItalic,
                                                    QTextFormat::FontUnderline,
                                                    QTextFormat::FontOverline,
                                                    QTextFormat::FontStrikeOut,
                                                    QTextFormat::FontCapitalization,
                                                    QTextFormat::TextUnderlineStyle,
                                                    QTextFormat::TextVerticalAlignment,
                                                    QTextFormat::TextToolTip,
                                                    QTextFormat::IsAnchor,
                                                    QTextFormat::AnchorHref};

constexpr QLatin1String probe("x  y", 4);

QString tagText(const QString& tag, const common_MarkupFormats::Attributes& attributes)
{
    QString text = QLatin1Char('<') + tag;
    for (const auto& attribute : attributes) {
        const bool isUsed = std::any_of(
            std::begin(usedAttributes), std::end(usedAttributes),
            [&attribute](const char* name) { return attribute.first == QLatin1String(name); });
        if (isUsed) {
            text +=
                QStringLiteral(" %1=\"%2\"").arg(attribute.first, attribute.second.toHtmlEscaped());
        }
    }
    return text + QLatin1Char('>');
}

void dropOtherProperties(QTextCharFormat& format)
{
    const QList<int> properties = format.properties().keys();
    for (const int property : properties) {
        if (std::find(std::begin(usedProperties), std::end(usedProperties), property) ==
            std::end(usedProperties)) {
            format.clearProperty(property);
        }
    }
}

void limitSizes(QTextCharFormat& format)
{
    if (format.hasProperty(QTextFormat::FontPointSize)) {
        format.setFontPointSize(std::min(format.fontPointSize(), greatestPointSize));
    }
    if (format.hasProperty(QTextFormat::FontPixelSize)) {
        format.setProperty(
            QTextFormat::FontPixelSize,
            std::min(format.intProperty(QTextFormat::FontPixelSize), greatestPixelSize));
    }
}

common_MarkupFormats::Blanks blanksIn(const QString& text)
{
    if (text.contains(probe)) {
        return common_MarkupFormats::Blanks::Kept;
    }
    return text.contains(QChar::Nbsp) ? common_MarkupFormats::Blanks::Unbroken
                                      : common_MarkupFormats::Blanks::Inherited;
}

// As a fragment, which cannot read files.
common_MarkupFormats::TagFormat askQt(const QString& tag)
{
    QTextDocument document;
    document.setUndoRedoEnabled(false);
    QTextCursor(&document).insertFragment(QTextDocumentFragment::fromHtml(tag + probe));
    common_MarkupFormats::TagFormat result;
    const QTextBlock block = document.lastBlock();
    for (auto fragment = block.begin(); !fragment.atEnd(); ++fragment) {
        result.format = fragment.fragment().charFormat();
    }
    dropOtherProperties(result.format);
    limitSizes(result.format);
    result.blanks = blanksIn(block.text());
    return result;
}

} // namespace

common_MarkupFormats::TagFormat common_MarkupFormats::of(const QString& tag,
                                                         const Attributes& attributes)
{
    const QString text = tagText(tag, attributes);
    const auto known = m_known.constFind(text);
    if (known != m_known.cend()) {
        return *known;
    }
    TagFormat format = askQt(text);
    if (text.size() <= longestKnown) {
        if (m_known.size() >= mostKnown) {
            m_known.clear();
        }
        m_known.insert(text, format);
    }
    return format;
}
