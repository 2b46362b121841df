// SPDX-License-Identifier: MIT
// The marker scanner against the regular expressions, built anew for each line.
#include "RatioReporter.h"

#include <MarkerPattern.h>

#include <common_KestProcessMessage.h>

#include <QStringList>

namespace {

// What components print in a run, in about the proportions of a sweep.
const QStringList& markedLines()
{
    static const QStringList lines = {
        QStringLiteral("-*-percentage-*-45%\n"),
        QStringLiteral("-*-total-percentage-*-62%\n"),
        QStringLiteral("-*-warning-*-WARNING 3201: segment 17 is longer than a tenth wavelength\n"),
        QStringLiteral("-*-notice-*-NOTE 101: 3 wires with 63 segments in all\n"),
        QStringLiteral("-*-error-*-ERROR 2101: yagi.nec:17: a field is not a number\n"),
        QStringLiteral("-*-file-*-results/yagi.out\n"),
        QStringLiteral("-*-percentage-*-46%-*-total-percentage-*-63%-*-linefeed-*-\n"),
    };
    return lines;
}

const QStringList& plainLines()
{
    static const QStringList lines = {
        QStringLiteral("  299.800      72.1311      -1.0042        1.443  solved\n"),
        QStringLiteral("Iteration 17 of 100: residuum 1.2345e-05, time 0.31 s.\n"),
        QStringLiteral("---------------------------------------------------------\n"),
        QStringLiteral("Memory of the matrix: 12.5 MByte; factor *not* out-of-core\n"),
    };
    return lines;
}

template <typename Parse>
void parseAll(benchmark::State& state, const QStringList& lines, Parse parse)
{
    for ([[maybe_unused]] auto _ : state) {
        for (const QString& line : lines) {
            benchmark::DoNotOptimize(parse(line));
        }
    }
    state.SetItemsProcessed(state.iterations() * lines.size());
}

void scannerMarked(benchmark::State& state)
{
    parseAll(state, markedLines(), common_KestProcessMessage::parseOutput);
}

void patternMarked(benchmark::State& state)
{
    parseAll(state, markedLines(), MarkerPattern::parse);
}

void scannerPlain(benchmark::State& state)
{
    parseAll(state, plainLines(), common_KestProcessMessage::parseOutput);
}

void patternPlain(benchmark::State& state)
{
    parseAll(state, plainLines(), MarkerPattern::parse);
}

} // namespace

BENCHMARK(scannerMarked);
BENCHMARK(patternMarked);
BENCHMARK(scannerPlain);
BENCHMARK(patternPlain);

int main(int argc, char* argv[])
{
    return runBenchmarks(argc, argv,
                         {{"scanner to pattern, marked lines", "scannerMarked", "patternMarked", 3},
                          {"scanner to pattern, plain lines", "scannerPlain", "patternPlain", 5}});
}
