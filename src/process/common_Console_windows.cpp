#include "common_Console.h"

#include <windows.h>

void common_detachFromConsole()
{
    FreeConsole();
}
