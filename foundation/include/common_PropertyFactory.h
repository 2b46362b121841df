// SPDX-License-Identifier: MIT
#pragma once

#include <kest_foundation_export.h>

#include <QStringList>

class common_PropertyMetaData;

/// The registry of all properties of the process. Libraries register theirs when they are loaded,
/// before main() begins.
class KEST_FOUNDATION_EXPORT common_PropertyFactory
{
public:
    /// Registers a property; asserts that the name is new.
    static void addMetaData(const QString& name, const common_PropertyMetaData& metaData);

    /// The registered metadata, for reading and for adding members; asserts that there is some. The
    /// reference stays valid until the process ends.
    static common_PropertyMetaData& getMetaData(const QString& name);

    /// Whether a property of that name is registered.
    static bool hasMetaData(const QString& name);

    /// All names, in the order of registration.
    static QStringList names();
};
