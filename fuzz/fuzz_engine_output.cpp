// SPDX-License-Identifier: MIT
// What the engine printed, or another program in its place.

#include "Fuzzing.h"

#include <EngineOutput.h>

#include <cmath>

void fuzz(FuzzedInput input)
{
    const QByteArray bytes = input.rest();
    const suite::EngineOutput output(bytes);
    if (output.hasImpedance()) {
        const suite::Impedance impedance = output.impedance();
        require(std::isfinite(impedance.resistance) && std::isfinite(impedance.reactance),
                "an impedance is finite");
        require(impedance.standingWaveRatio() >= 1, "no wave ratio is below 1");
    }
    const QStringList errors = output.errorLines();
    for (const QString& error : errors) {
        require(!error.contains(QLatin1Char('\n')), "an error is one line");
    }
    require(errors.size() <= 5, "errors are limited");
    require(output.stableBytes().size() <= bytes.size() + 1, "nothing is added to the output");
    require(output.stableBytes().endsWith(output.stableBytesFromFrequency()),
            "what a further frequency adds is the end of the output");
}
