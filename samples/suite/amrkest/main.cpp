// SPDX-License-Identifier: MIT
#include "Amrkest.h"

#include <ProgramArguments.h>
#include <WriteFailures.h>

#include <QCoreApplication>

// amrkest refines a model's segments until its impedance hardly changes any more.
int main(int argc, char* argv[])
{
    WriteFailures::report();
    const QCoreApplication application(argc, argv);
    Amrkest amrkest;
    return suite::runComponent(amrkest, suite::ProgramArguments::given(argc, argv));
}
