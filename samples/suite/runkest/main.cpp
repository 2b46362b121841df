#include "ComponentSetup.h"
#include "Runkest.h"

#include <QCoreApplication>

// runkest checks a model, solves it over its frequencies and writes the results beside it.
int main(int argc, char* argv[])
{
    suite::setupComponent();
    const QCoreApplication application(argc, argv);
    Runkest runkest;
    return suite::runComponent(runkest);
}
