#include "common_Console.h"

void common_detachFromConsole()
{
    // An application that is started from a terminal keeps it: that is what its user expects.
}
