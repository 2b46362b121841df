// SPDX-License-Identifier: MIT
#include "Component.h"

#include <ProgramArguments.h>
#include <WriteFailures.h>

#include <QCoreApplication>

// prekest reads a model, checks it and prints what it found.
int main(int argc, char* argv[])
{
    WriteFailures::report();
    const QCoreApplication application(argc, argv);
    suite::Component component(QStringLiteral("prekest"), suite::OptionGroup::Prekest);
    const std::optional<int> done =
        component.readCommandLine(suite::ProgramArguments::given(argc, argv));
    if (done) {
        return *done;
    }
    if (!component.preprocess()) {
        return suite::exitFailure;
    }
    component.printer().printPercentage(suite::Marker::TotalPercentage, 100);
    return component.printedExitCode();
}
