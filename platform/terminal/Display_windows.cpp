#include "Display.h"

bool Display::exists()
{
    return true;
}
