#include "ProgramName.h"

const char* ProgramName::suffix()
{
    return "";
}
