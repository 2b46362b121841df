// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QVector>

/// A list of hosts in Slurm's notation, and its names.
struct HostListCase
{
    const char* name;
    const char* list;
    const char* hosts; ///< with blanks between them
};

/// Lists that Slurm's own program reads in the same way.
inline const QVector<HostListCase>& hostListCases()
{
    // clang-format off
    static const QVector<HostListCase> cases = {
        {"one host",              "node1",                     "node1"},
        {"several hosts",         "node1,gpu1,login",          "node1 gpu1 login"},
        {"a domain",              "node1.example.org",         "node1.example.org"},
        {"a hyphen",              "big-mem1,x_y",              "big-mem1 x_y"},
        {"a range",               "node[1-3]",                 "node1 node2 node3"},
        {"a range of one",        "node[2-2]",                 "node2"},
        {"a number",              "node[7]",                   "node7"},
        {"ranges and numbers",    "node[01-03,07],gpu1",       "node01 node02 node03 node07 gpu1"},
        {"numbers before ranges", "node[7,1-2,9]",             "node7 node1 node2 node9"},
        {"padding",               "n[001-3]",                  "n001 n002 n003"},
        {"padding is outgrown",   "n[09-11]",                  "n09 n10 n11"},
        {"no padding",            "n[9-11]",                   "n9 n10 n11"},
        {"the first one pads",    "n[1-03]",                   "n1 n2 n3"},
        {"the last one does not", "n[9-011]",                  "n9 n10 n11"},
        {"zeros",                 "n[0,00,000]",               "n0 n00 n000"},
        {"two pairs of brackets", "rack[0-1]n[01-02]",         "rack0n01 rack0n02 rack1n01 rack1n02"},
        {"brackets side by side", "a[1-2][3-4]",               "a13 a14 a23 a24"},
        {"brackets alone",        "[1-2]",                     "1 2"},
        {"lists one by one",      "a[1-2],b[3,4],c",           "a1 a2 b3 b4 c"},
        {"a host twice",          "a[1,2],a1",                 "a1 a2 a1"},
    };
    // clang-format on
    return cases;
}
