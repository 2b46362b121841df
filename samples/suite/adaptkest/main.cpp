// SPDX-License-Identifier: MIT
#include "Adaptkest.h"

#include <ProgramArguments.h>
#include <WriteFailures.h>

#include <QCoreApplication>

// adaptkest solves a model where its impedance is worth knowing, in place of a plain sweep.
int main(int argc, char* argv[])
{
    WriteFailures::report();
    const QCoreApplication application(argc, argv);
    Adaptkest adaptkest;
    return suite::runComponent(adaptkest, suite::ProgramArguments::given(argc, argv));
}
