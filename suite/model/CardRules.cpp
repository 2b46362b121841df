// SPDX-License-Identifier: MIT
#include "CardRules.h"

#include <algorithm>

namespace suite {

namespace {

// clang-format off
constexpr CardRule cardTable[] = {
    {"CM", Section::Comment,     0}, // comment
    {"CE", Section::Comment,     0}, // last comment
    {"GA", Section::Geometry,    6}, // arc of wires
    {"GC", Section::Geometry,    5}, // taper of the wire before it
    {"GE", Section::Geometry,    0}, // end of the geometry
    {"GH", Section::Geometry,    9}, // helix
    {"GM", Section::Geometry,    2}, // move or copy
    {"GR", Section::Geometry,    2}, // copies around the z axis
    {"GS", Section::Geometry,    3}, // scale
    {"GW", Section::Geometry,    9}, // straight wire
    {"GX", Section::Geometry,    2}, // mirror
    {"SC", Section::Geometry,    5}, // continuation of a patch
    {"SM", Section::Geometry,    8}, // surface of several patches
    {"SP", Section::Geometry,    8}, // surface patch
    {"CP", Section::Control,     4}, // coupling
    {"EK", Section::Control,     0}, // extended kernel
    {"EX", Section::Control,     1}, // excitation
    {"FR", Section::Control,     5}, // frequency
    {"GD", Section::Control,     6}, // second ground medium
    {"GN", Section::Control,     1}, // ground
    {"KH", Section::Control,     5}, // range of approximate integration
    {"LD", Section::Control,     1}, // load
    {"NE", Section::Control,    10}, // near electric field
    {"NH", Section::Control,    10}, // near magnetic field
    {"NT", Section::Control,     5}, // network
    {"PL", Section::Control,     1}, // plot file
    {"PQ", Section::Control,     1}, // print charges
    {"PT", Section::Control,     1}, // print currents
    {"RP", Section::Control,     4}, // radiation pattern
    {"TL", Section::Control,     5}, // transmission line
    {"XQ", Section::Control,     0}, // execute
    {"SY", Section::Definition,  1}, // named values
    {"EN", Section::End,         0}, // end of the deck
    {"GF", Section::Unsupported, 0}, // read a Green's function
    {"NX", Section::Unsupported, 0}, // next structure
    {"WG", Section::Unsupported, 0}, // write a Green's function
};
// clang-format on

} // namespace

const CardRule* cardRule(const QString& mnemonic)
{
    const auto* rule =
        std::find_if(std::begin(cardTable), std::end(cardTable), [&](const CardRule& each) {
            return mnemonic == QLatin1String(each.mnemonic);
        });
    return rule == std::end(cardTable) ? nullptr : rule;
}

int integerFieldCount(Section section)
{
    return section == Section::Geometry ? 2 : 4;
}

int fieldCount(Section section)
{
    return section == Section::Geometry ? 9 : 10;
}

} // namespace suite
