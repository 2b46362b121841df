// SPDX-License-Identifier: MIT
#pragma once

#include <kest_common_export.h>

#include <QFlags>
#include <QString>
#include <QStringList>

/// Finds out at the start of an application which services it has not set, instead of in the middle
/// of a run by an assertion.
///
/// A process runner by itself needs no services.
class KEST_COMMON_EXPORT common_ServiceCheck
{
public:
    /// What the application does with the library.
    enum Use {
        Settings = 0x01,       ///< reads and writes settings objects, and locks them
        RunSetup = 0x02,       ///< sets runs up with common_RunWrapper
        ProcessDialog = 0x04,  ///< shows common_KestProcessDialog
        GuiLauncher = 0x08,    ///< starts other applications with common_KestGuiLauncher
        RenderingDialog = 0x10 ///< shows common_InitialRenderingSettingsDialog
    };
    /// A combination of Use.
    Q_DECLARE_FLAGS(Uses, Use)

    /// The names of the services that these uses need, in the order of common_ServiceNames::all().
    static QStringList neededServices(Uses uses);

    /// Those of them that are not set now.
    static QStringList missingServices(Uses uses);

    /// A line for each missing service: its name, what it is for, and the call that sets it. Empty
    /// when none is missing.
    static QString problem(Uses uses);
};

Q_DECLARE_OPERATORS_FOR_FLAGS(common_ServiceCheck::Uses)
