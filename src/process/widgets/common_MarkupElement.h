// SPDX-License-Identifier: MIT
#pragma once

class QString;

/// What the reader of rich text knows about one kind of tag.
struct common_MarkupElement
{
    enum class Kind {
        Inline,
        Break,    ///< a line break
        Image,    ///< an image
        Void,     ///< shows nothing and has no contents
        Hidden,   ///< its contents are not shown
        Block,    ///< begins and ends lines
        Rule,     ///< a line across
        List,     ///< begins and ends lines; counts its items
        ListItem, ///< the same, with a bullet or a number
        Table,    ///< begins and ends lines
        Row,      ///< the same
        Cell      ///< one part of a row
    };

    const char* name;
    Kind kind;

    /// The name of the tag that formats characters as this one does; empty when only attributes do.
    const char* formattedAs;

    /// The element of that name, in lower case; an inline element without a format for an unknown
    /// one.
    static const common_MarkupElement& named(const QString& name);

    bool isInline() const { return kind <= Kind::Void; }
    bool hasContents() const;
};
