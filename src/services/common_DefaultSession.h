// SPDX-License-Identifier: MIT
#pragma once

#include <common_ISession.h>

#include <QString>

#include <utility>

/// Shows the user's messages in boxes, or a line each on standard error.
class common_DefaultSession : public common_ISession
{
public:
    common_DefaultSession(QString applicationName, bool hasWindows)
        : m_applicationName(std::move(applicationName)), m_hasWindows(hasWindows)
    {}

    void showUserMessage(common_ActivePtr<common_UserMessage> message, QWidget* parent) override;

private:
    QString m_applicationName;
    bool m_hasWindows;
};
