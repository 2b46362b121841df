// SPDX-License-Identifier: MIT
#include "OptionTable.h"

#include <algorithm>

namespace suite {

namespace {

using G = OptionGroup;
using V = ValueKind;

constexpr int mostProcesses = 4096;
constexpr int mostRestarts = 1000000;

// clang-format off
constexpr OptionRow optionTable[] = {
    {G::Common,    V::None,          "--help",                           0, 0, "", G::Common, "print this help and end"},
    {G::Common,    V::None,          "--version",                        0, 0, "", G::Common, "print the version and end"},
    {G::Common,    V::None,          "--run-from-gui",                   0, 0, "", G::Common, "started by a graphical front end"},

    {G::Prekest,   V::None,          "--ignore-errors",                  0, 0, "", G::Common, "go on in spite of errors in the model"},
    {G::Prekest,   V::None,          "--print-variables",                0, 0, "", G::Common, "print the model's variables"},
    {G::Prekest,   V::None,          "--print-variables-to-out",        0, 0, "", G::Common, "write the model's variables to MODEL.pre"},

    {G::Runkest,   V::Integer,       "--priority",                    0, 4, "", G::Common, "priority from 0 (lowest) to 4 (highest)"},
    {G::Runkest,   V::ProcessCount,  "-np",                      1, mostProcesses, "", G::Common, "how many frequencies to solve at once, or all"},
    {G::Runkest,   V::ProcessCount,  "-NP",                      1, mostProcesses, "", G::Common, "the same as -np"},
    {G::Runkest,   V::Text,          "--machines-file",                  0, 0, "", G::Common, "file of host:count lines"},
    {G::Runkest,   V::Word,          "--parallel-authenticate",          0, 0, "localonly sspi default", G::Common, "how parallel processes identify themselves"},
    {G::Runkest,   V::None,          "--remote-use-mpi",                 0, 0, "", G::Common, "reach the remote host through the parallel runtime"},
    {G::Runkest,   V::Hosts,         "--remote-host",                   0, 0, "", G::Common, "host to run on"},
    {G::Runkest,   V::None,          "--resume",                         0, 0, "", G::Common, "compute only what an earlier run has not kept in MODEL.partial"},
    {G::Runkest,   V::OptionalGpus,  "--use-gpu",                0, 0, "", G::Common, "graphics processors as COUNT, :LIST or COUNT:LIST"},
    {G::Runkest,   V::Switch,        "--kest-options",                 0, 0, "", G::Kest, "options of the solver follow"},
    {G::Runkest,   V::Switch,        "--prekest-options",              0, 0, "", G::Prekest, "options of the pre-processing follow"},
    {G::Runkest,   V::Switch,        "--adaptkest-options",            0, 0, "", G::Adaptkest, "options of the adaptive sampling follow"},

    {G::Kest,      V::None,          "--check-only",                     0, 0, "", G::Common, "check the model and solve nothing"},
    {G::Kest,      V::None,          "--mtl-circuit-export",             0, 0, "", G::Common, "export transmission line circuits"},

    {G::Adaptkest, V::Integer,       "--restart",                     0, mostRestarts, "", G::Common, "go on from this analysis"},
    {G::Adaptkest, V::None,          "--resume",                         0, 0, "", G::Common, "go on behind the last analysis that an earlier run has kept"},
    {G::Adaptkest, V::None,          "--keep-files",                     0, 0, "", G::Common, "keep temporary files"},

    {G::Optkest,   V::ProcessCount,  "-np",                      1, mostProcesses, "", G::Common, "how many evaluations at once, or all"},
    {G::Optkest,   V::ProcessCount,  "-NP",                      1, mostProcesses, "", G::Common, "the same as -np"},
    {G::Optkest,   V::Text,          "--machines-file",                  0, 0, "", G::Common, "file of host:count lines to farm evaluations out to"},
    {G::Optkest,   V::Integer,       "--restart",                     0, mostRestarts, "", G::Common, "take over the runs up to this one"},
    {G::Optkest,   V::None,          "-r",                               0, 0, "", G::Common, "delete all files of earlier runs first"},
    {G::Optkest,   V::Switch,        "--runkest-options",              0, 0, "", G::Runkest, "options of runkest follow"},

    {G::Adaptkest, V::None,          "--run-from-runkest",               0, 0, "", G::Common, "started by runkest, which has told what it found"},
    {G::Adaptkest, V::ProcessCount,  "-np",                      1, mostProcesses, "", G::Common, "how many frequencies to solve at once, or all"},
    {G::Adaptkest, V::Switch,        "--runkest-options",              0, 0, "", G::Runkest, "options of runkest follow"},
    {G::Adaptkest, V::Switch,        "--prekest-options",              0, 0, "", G::Prekest, "options of the pre-processing follow"},

    {G::Amrkest,   V::Integer,       "--max-iterations",        1, mostRestarts, "", G::Common, "refine at most so often (5)"},
    {G::Amrkest,   V::Positive,      "--frequency",                      0, 0, "", G::Common, "compare at this frequency in MHz (middle of the sweep)"},
    {G::Amrkest,   V::Word,          "--error-threshold",                0, 0, "high normal low", G::Common, "change of the impedance to stop at"},
    {G::Amrkest,   V::None,          "--keep-files",                     0, 0, "", G::Common, "keep the iterations' files"},
    {G::Amrkest,   V::None,          "--skip-final-solve",               0, 0, "", G::Common, "do not solve the refined model over its frequencies"},
    {G::Amrkest,   V::Switch,        "--runkest-options",              0, 0, "", G::Runkest, "options of runkest follow"},
    {G::Amrkest,   V::Switch,        "--prekest-options",              0, 0, "", G::Prekest, "options of the pre-processing follow"},
};
// clang-format on

} // namespace

const OptionRow* optionRow(OptionGroup group, const QString& name)
{
    const auto* row =
        std::find_if(std::begin(optionTable), std::end(optionTable), [&](const OptionRow& each) {
            return (each.group == group || each.group == OptionGroup::Common) &&
                   name == QLatin1String(each.name);
        });
    return row == std::end(optionTable) ? nullptr : row;
}

QVector<OptionRow> optionRows()
{
    return {std::begin(optionTable), std::end(optionTable)};
}

} // namespace suite
