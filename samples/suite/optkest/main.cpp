// SPDX-License-Identifier: MIT
#include "Optkest.h"

#include <ProgramArguments.h>
#include <WriteFailures.h>

#include <QCoreApplication>

// optkest tunes a named value of a model to resonance.
int main(int argc, char* argv[])
{
    WriteFailures::report();
    const QCoreApplication application(argc, argv);
    Optkest optkest;
    return suite::runComponent(optkest, suite::ProgramArguments::given(argc, argv));
}
