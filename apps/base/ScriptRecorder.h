// SPDX-License-Identifier: MIT
#pragma once

#include <common_IScriptRecorder.h>

#include <QCoreApplication>
#include <QString>

/// Appends what the user does to the file that KEST_SCRIPT names, a command a line, behind the
/// label of the object that it is done to.
class ScriptRecorder : public common_IScriptRecorder
{
    Q_DECLARE_TR_FUNCTIONS(ScriptRecorder)

public:
    /// The name is that of the application, for error messages.
    explicit ScriptRecorder(QString applicationName);

    /// Whether a file is named.
    bool isRecording() const;

    void recordCommand(common_ActivePtr<common_DomainEntity> entity,
                       const QString& command) override;

private:
    void reportError(const QString& reason) const;

    QString m_applicationName;
    QString m_fileName;
};
