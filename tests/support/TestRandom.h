// SPDX-License-Identifier: MIT
#pragma once

#include <QRandomGenerator>
#include <QString>

/// Random numbers for tests. The seed is printed, and taken from the environment variable
/// KEST_TEST_SEED where that is set: to repeat a run that failed, or to try other numbers.
namespace TestRandom {

inline QRandomGenerator withSeed(quint32 seed)
{
    qInfo("random numbers with KEST_TEST_SEED=%u", seed);
    return QRandomGenerator(seed);
}

/// The same numbers in every run, unless the environment has a seed.
inline QRandomGenerator usual(quint32 seed)
{
    bool isSet = false;
    const uint wanted = qEnvironmentVariable("KEST_TEST_SEED").toUInt(&isSet);
    return withSeed(isSet ? wanted : seed);
}

/// Other numbers in every run, unless the environment has a seed.
inline QRandomGenerator anew()
{
    return usual(QRandomGenerator::global()->generate());
}

} // namespace TestRandom
