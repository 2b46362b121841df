// SPDX-License-Identifier: MIT
#include "common_MarkupElement.h"

#include <QString>

#include <algorithm>
#include <iterator>

namespace {

using Kind = common_MarkupElement::Kind;

// In the order of their names.
// clang-format off
constexpr common_MarkupElement elements[] = {
    {"a",          Kind::Inline,   "a"},
    {"address",    Kind::Inline,   "i"},
    {"b",          Kind::Inline,   "b"},
    {"big",        Kind::Inline,   "big"},
    {"blockquote", Kind::Block,    ""},
    {"body",       Kind::Block,    ""},
    {"br",         Kind::Break,    ""},
    {"caption",    Kind::Block,    ""},
    {"center",     Kind::Block,    ""},
    {"cite",       Kind::Inline,   "i"},
    {"code",       Kind::Inline,   "code"},
    {"dd",         Kind::Block,    ""},
    {"dfn",        Kind::Inline,   "i"},
    {"div",        Kind::Block,    ""},
    {"dl",         Kind::Block,    ""},
    {"dt",         Kind::Block,    ""},
    {"em",         Kind::Inline,   "i"},
    {"font",       Kind::Inline,   "font"},
    {"h1",         Kind::Block,    "h1"},
    {"h2",         Kind::Block,    "h2"},
    {"h3",         Kind::Block,    "h3"},
    {"h4",         Kind::Block,    "h4"},
    {"h5",         Kind::Block,    "h5"},
    {"h6",         Kind::Block,    ""},
    {"head",       Kind::Hidden,   ""},
    {"hr",         Kind::Rule,     ""},
    {"i",          Kind::Inline,   "i"},
    {"img",        Kind::Image,    ""},
    {"kbd",        Kind::Inline,   "code"},
    {"li",         Kind::ListItem, ""},
    {"link",       Kind::Void,     ""},
    {"meta",       Kind::Void,     ""},
    {"nobr",       Kind::Inline,   "nobr"},
    {"ol",         Kind::List,     ""},
    {"p",          Kind::Block,    ""},
    {"pre",        Kind::Block,    "pre"},
    {"qt",         Kind::Block,    ""},
    {"s",          Kind::Inline,   "s"},
    {"samp",       Kind::Inline,   "code"},
    {"script",     Kind::Hidden,   ""},
    {"small",      Kind::Inline,   "small"},
    {"span",       Kind::Inline,   ""},
    {"strong",     Kind::Inline,   "b"},
    {"style",      Kind::Hidden,   ""},
    {"sub",        Kind::Inline,   "sub"},
    {"sup",        Kind::Inline,   "sup"},
    {"table",      Kind::Table,    ""},
    {"tbody",      Kind::Table,    ""},
    {"td",         Kind::Cell,     ""},
    {"tfoot",      Kind::Table,    ""},
    {"th",         Kind::Cell,     "b"},
    {"thead",      Kind::Table,    ""},
    {"title",      Kind::Hidden,   ""},
    {"tr",         Kind::Row,      ""},
    {"tt",         Kind::Inline,   "code"},
    {"u",          Kind::Inline,   "u"},
    {"ul",         Kind::List,     ""},
    {"var",        Kind::Inline,   "i"},
};
// clang-format on

constexpr common_MarkupElement unknownElement = {"", Kind::Inline, ""};

} // namespace

const common_MarkupElement& common_MarkupElement::named(const QString& name)
{
    const auto isBefore = [](const common_MarkupElement& element, const QString& other) {
        return QLatin1String(element.name) < other;
    };
    const auto* const found =
        std::lower_bound(std::begin(elements), std::end(elements), name, isBefore);
    const bool isFound = found != std::end(elements) && QLatin1String(found->name) == name;
    return isFound ? *found : unknownElement;
}

bool common_MarkupElement::hasContents() const
{
    return kind != Kind::Break && kind != Kind::Image && kind != Kind::Rule && kind != Kind::Void;
}
