// SPDX-License-Identifier: MIT
#include "runInPlace.h"

#include <QProcess>

int runInPlace(const QString& program, const QStringList& arguments)
{
    constexpr int noProgram = 127;
    QProcess process;
    process.setInputChannelMode(QProcess::ForwardedInputChannel);
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    process.start(program, arguments);
    const bool hasEnded = process.waitForFinished(-1);
    return hasEnded && process.exitStatus() == QProcess::NormalExit ? process.exitCode()
                                                                    : noProgram;
}
