#include "WindowDisplay.h"

bool WindowDisplay::exists()
{
    return true;
}
