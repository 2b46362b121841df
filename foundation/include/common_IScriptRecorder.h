// SPDX-License-Identifier: MIT
#pragma once

#include <common_ActivePtr.h>
#include <kest_foundation_export.h>

class QString;
class common_DomainEntity;

/// The service that records the user's actions as a script.
class KEST_FOUNDATION_EXPORT common_IScriptRecorder
{
public:
    virtual ~common_IScriptRecorder();

    /// Records a command of the entity, for example ":RestoreDefaults()".
    virtual void recordCommand(common_ActivePtr<common_DomainEntity> entity,
                               const QString& command) = 0;

protected:
    common_IScriptRecorder() = default;
    common_IScriptRecorder(const common_IScriptRecorder&) = default;
    common_IScriptRecorder& operator=(const common_IScriptRecorder&) = default;
};
