#include "SpaceMouse.h"

namespace cad {

std::unique_ptr<SpaceMouse> SpaceMouse::create()
{
    return nullptr;
}

} // namespace cad
