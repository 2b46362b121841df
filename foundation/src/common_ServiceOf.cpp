// SPDX-License-Identifier: MIT
#include <common_ServiceOf.h>

#include <map>
#include <string>

namespace {

std::map<std::string, void*>& services()
{
    static std::map<std::string, void*> table;
    return table;
}

} // namespace

void* common_ServiceTable::find(const char* interfaceName)
{
    const auto found = services().find(interfaceName);
    return found == services().cend() ? nullptr : found->second;
}

void common_ServiceTable::set(const char* interfaceName, void* service)
{
    services()[interfaceName] = service;
}
