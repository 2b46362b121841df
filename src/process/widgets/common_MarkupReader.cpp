// SPDX-License-Identifier: MIT
#include "common_MarkupReader.h"

#include "common_LineStyle.h"
#include "common_MarkupElement.h"
#include "common_MarkupLines.h"
#include "common_MarkupScanner.h"

#include <QBrush>
#include <QFileInfo>
#include <QFont>
#include <QHash>
#include <QString>

#include <algorithm>
#include <utility>
#include <vector>

namespace {

using Kind = common_MarkupElement::Kind;
using Blanks = common_MarkupFormats::Blanks;
using Line = common_MarkupReader::Line;

constexpr int ruleLength = 40;

/// Reads one text: keeps the open tags and collects the lines.
class Reading
{
public:
    Reading(common_MarkupFormats& formats, const common_LineStyle& style) : m_formats(formats)
    {
        m_open.push_back({});
        if (style.colour.isValid()) {
            QTextCharFormat colour;
            colour.setForeground(style.colour);
            push(QStringLiteral("font"), colour, Blanks::Inherited);
        }
        if (style.isBold) {
            QTextCharFormat bold;
            bold.setFontWeight(QFont::Bold);
            push(QStringLiteral("b"), bold, Blanks::Inherited);
        }
    }

    QVector<Line> read(const QString& text)
    {
        const bool isStyled = m_open.size() > 1;
        common_MarkupScanner scanner(text, isStyled ? common_MarkupScanner::End::OfPart
                                                    : common_MarkupScanner::End::OfAll);
        while (!scanner.atEnd()) {
            const common_MarkupScanner::Token token = scanner.next();
            switch (token.kind) {
            case common_MarkupScanner::Kind::Text:
                addText(token.text);
                break;
            case common_MarkupScanner::Kind::OpeningTag:
                openTag(token);
                break;
            case common_MarkupScanner::Kind::ClosingTag:
                closeTag(token.text);
                break;
            case common_MarkupScanner::Kind::Comment:
                if (current().blanks != Blanks::Kept) {
                    scanner.skipBlanks();
                }
            }
        }
        return m_lines.take();
    }

private:
    struct OpenTag
    {
        QString name;
        const common_MarkupElement* element = &common_MarkupElement::named(QString());
        QTextCharFormat format;
        Blanks blanks = Blanks::Inherited;
        bool isHidden = false;
        int items = 0;  ///< of a list, or cells of a row
        int block = -1; ///< index of the innermost open block, which may be this tag
        int list = -1;
        int row = -1;
        int listDepth = 0;
    };

    OpenTag& current() { return m_open.back(); }

    void addText(const QString& text)
    {
        if (!current().isHidden) {
            m_lines.addText(text, current().blanks);
        }
    }

    void openTag(const common_MarkupScanner::Token& tag)
    {
        const common_MarkupElement& element = common_MarkupElement::named(tag.text);
        closeWhatEndsBefore(tag.text, element);
        const bool isShown = !current().isHidden;
        if (tag.text.isEmpty()) {
            return;
        }
        if (!element.hasContents()) {
            if (isShown) {
                addWithoutContents(element, tag);
            }
            return;
        }
        if (element.kind == Kind::Cell && current().row < 0) {
            push(QStringLiteral("tr"), QTextCharFormat(), Blanks::Inherited);
        }
        const common_MarkupFormats::TagFormat format = formatOf(element, tag);
        if (isShown) {
            beginElement(element);
        }
        push(tag.text, format.format, format.blanks);
        if (isShown && element.kind == Kind::ListItem) {
            addBullet();
        }
        if (tag.isClosed) {
            pop();
        }
    }

    // Blocks have no background.
    common_MarkupFormats::TagFormat formatOf(const common_MarkupElement& element,
                                             const common_MarkupScanner::Token& tag)
    {
        const QLatin1String name(element.formattedAs);
        if (name.isEmpty() && tag.attributes.isEmpty()) {
            return {};
        }
        common_MarkupFormats::TagFormat result =
            m_formats.of(name.isEmpty() ? QStringLiteral("span") : QString(name), tag.attributes);
        if (!element.isInline()) {
            result.format.clearBackground();
        }
        return result;
    }

    // Some tags close others that were left open, because they cannot be inside of them.
    void closeWhatEndsBefore(const QString& name, const common_MarkupElement& element)
    {
        if (name == QLatin1String("p")) {
            const int block = current().block;
            if (block >= 0 && m_open[static_cast<std::size_t>(block)].name == name) {
                closeTag(name);
            }
        } else if (element.kind == Kind::ListItem && current().name == name) {
            closeTag(name);
        } else if (element.kind == Kind::Cell && current().row >= 0) {
            popTo(current().row);
        } else if (element.kind == Kind::Row && m_openTables > 0) {
            while (current().element->kind != Kind::Table) {
                pop();
            }
        }
    }

    void beginElement(const common_MarkupElement& element)
    {
        if (element.kind == Kind::Cell) {
            beginCell();
        } else if (!element.isInline() && element.kind != Kind::Hidden) {
            m_lines.breakLineBefore();
        }
    }

    // After a cell that contains a paragraph, the next cell is in the same line nevertheless.
    void beginCell()
    {
        const int row = current().row;
        if (row >= 0 && m_open[static_cast<std::size_t>(row)].items++ > 0) {
            m_lines.continueLine();
            m_lines.addVerbatim(QStringLiteral("\t"));
        }
        m_lines.beginContents();
    }

    void addBullet()
    {
        const OpenTag& item = current();
        QString bullet = QStringLiteral("\u2022 ");
        if (item.list >= 0) {
            OpenTag& list = m_open[static_cast<std::size_t>(item.list)];
            ++list.items;
            if (list.name == QLatin1String("ol")) {
                bullet = QStringLiteral("%1. ").arg(list.items);
            }
        }
        constexpr int indent = 2;
        const int depth = std::min(std::max(item.listDepth - 1, 0), ruleLength);
        m_lines.addVerbatim(QString(indent * depth, QLatin1Char(' ')) + bullet);
        m_lines.beginContents();
    }

    void addWithoutContents(const common_MarkupElement& element,
                            const common_MarkupScanner::Token& tag)
    {
        switch (element.kind) {
        case Kind::Break:
            m_lines.addVerbatim(QString(QChar::LineSeparator));
            m_lines.dropBlanks();
            break;
        case Kind::Image:
            m_lines.addVerbatim(imageText(tag.attributes));
            break;
        case Kind::Rule:
            m_lines.breakLineBefore();
            m_lines.addVerbatim(QString(ruleLength, QLatin1Char('-')));
            m_lines.breakLineBehind();
            break;
        default:
            break;
        }
    }

    static QString imageText(const common_MarkupFormats::Attributes& attributes)
    {
        QString text = QStringLiteral("image");
        for (const auto& attribute : attributes) {
            if (attribute.first == QLatin1String("alt")) {
                return QStringLiteral("[%1]").arg(attribute.second);
            }
            if (attribute.first == QLatin1String("src")) {
                text = attribute.second;
            }
        }
        return QStringLiteral("[%1]").arg(text);
    }

    // Ignores the closing of a tag that is not open.
    void closeTag(const QString& name)
    {
        if (m_openNames.value(name) == 0) {
            return;
        }
        bool isClosed = false;
        while (!isClosed) {
            isClosed = current().name == name;
            pop();
        }
    }

    void push(const QString& name, const QTextCharFormat& format, Blanks blanks)
    {
        OpenTag tag = current();
        const bool wasInline = tag.element->isInline();
        const int index = static_cast<int>(m_open.size());
        tag.name = name;
        tag.element = &common_MarkupElement::named(name);
        tag.isHidden = tag.isHidden || tag.element->kind == Kind::Hidden;
        tag.items = 0;
        tag.blanks = blanks == Blanks::Inherited ? tag.blanks : blanks;
        if (!wasInline || !tag.element->isInline()) {
            tag.format.clearBackground();
        }
        if (!format.isEmpty()) {
            tag.format.merge(format);
        }
        if (!tag.element->isInline()) {
            tag.block = index;
        }
        if (tag.element->kind == Kind::List) {
            tag.list = index;
            ++tag.listDepth;
        } else if (tag.element->kind == Kind::Row) {
            tag.row = index;
        } else if (tag.element->kind == Kind::Table) {
            tag.row = -1;
        }
        ++m_openNames[name];
        m_openTables += tag.element->kind == Kind::Table ? 1 : 0;
        m_open.push_back(std::move(tag));
        m_lines.setFormat(current().format);
    }

    void pop()
    {
        const OpenTag tag = std::move(current());
        m_open.pop_back();
        --m_openNames[tag.name];
        m_openTables -= tag.element->kind == Kind::Table ? 1 : 0;
        m_lines.setFormat(current().format);
        if (tag.isHidden || tag.element->isInline()) {
            return;
        }
        if (tag.element->kind == Kind::Cell) {
            m_lines.dropBlanks();
        } else {
            m_lines.breakLineBehind();
        }
    }

    // Closes what was opened after that one.
    void popTo(int index)
    {
        while (static_cast<int>(m_open.size()) - 1 > index) {
            pop();
        }
    }

    common_MarkupFormats& m_formats;
    common_MarkupLines m_lines;
    std::vector<OpenTag> m_open; ///< the first element is not a tag
    QHash<QString, int> m_openNames;
    int m_openTables = 0;
};

} // namespace

QVector<Line> common_MarkupReader::read(const QString& text, const common_LineStyle& style)
{
    return Reading(m_formats, style).read(text);
}
