// SPDX-License-Identifier: MIT
#pragma once

#include <common_Assert.h>
#include <kest_foundation_export.h>

#include <typeinfo>

/// The process's table of services, by the name of their interface. Use common_ServiceOf instead.
class KEST_FOUNDATION_EXPORT common_ServiceTable
{
public:
    /// The service, or null.
    static void* find(const char* interfaceName);

    /// Sets the service; null removes it.
    static void set(const char* interfaceName, void* service);
};

/// Access to the service that the application offers through the interface T, if it offers one.
///
/// An application sets its services at the start, before it uses the library:
///
///     common_ServiceOf<common_ISession>::setService(&session);
///
/// Which ones are needed is said by common_ServiceCheck; common_DefaultServices sets all of them.
/// Both are in kest::common.
///
/// There is one table of services for the whole process. A static member of this template would
/// exist once in every library, and a library would not see the application's services.
template <typename T>
class common_ServiceOf
{
public:
    /// Whether the application has set the service.
    static bool hasService() { return find() != nullptr; }

    /// The service; asserts that there is one, with the name, the file and the line given. An
    /// assertion "common_ISession" means that the application has not called
    /// common_ServiceOf<common_ISession>::setService(). Use GET_SERVICE(T), which fills them in.
    static T* getService(const char* name, const char* file, int line)
    {
        COMMON_ASSERT_AT(hasService(), name, file, line);
        return find();
    }

    /// Sets the service; null removes it. It is not owned: remove it before it is destroyed.
    static void setService(T* service) { common_ServiceTable::set(typeid(T).name(), service); }

private:
    static T* find() { return static_cast<T*>(common_ServiceTable::find(typeid(T).name())); }
};

/// The service of the interface T; asserts that there is one.
#define GET_SERVICE(T) common_ServiceOf<T>::getService(#T, __FILE__, __LINE__)
