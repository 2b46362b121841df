// SPDX-License-Identifier: MIT
#include "WindowRunner.h"

void WindowRunner::onOutputRecieved(const QString& line)
{
    notify(common_KestProcessMessage::parseOutput(line));
}

void WindowRunner::onErrorRecieved(const QString& line)
{
    notify(common_KestProcessMessage::parseError(line));
}

void WindowRunner::notify(const QVector<common_KestProcessMessage>& messages)
{
    for (const common_KestProcessMessage& message : messages) {
        if (message.getType() == common_IProcessMessage::Variable) {
            notifyProcessMessageReceived(
                common_KestProcessMessage(common_IProcessMessage::Output, message.getText()));
        } else {
            notifyProcessMessageReceived(message);
        }
    }
}
