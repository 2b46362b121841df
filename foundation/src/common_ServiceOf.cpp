#include <common_ServiceOf.h>

#include <QtGlobal>

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

void common_ServiceTable::reportMissing(const char* name)
{
    qCritical("The service %s is missing. The application must set it before, by "
              "common_ServiceOf<%s>::setService() or by common_DefaultServices.",
              name, name);
}
