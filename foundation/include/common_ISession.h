// SPDX-License-Identifier: MIT
#pragma once

#include <common_ActivePtr.h>
#include <kest_foundation_export.h>

class QWidget;
class common_UserMessage;

/// The service that shows messages to the user.
class KEST_FOUNDATION_EXPORT common_ISession
{
public:
    virtual ~common_ISession();

    /// Shows the message, over the parent if that is not null.
    virtual void showUserMessage(common_ActivePtr<common_UserMessage> message, QWidget* parent) = 0;

protected:
    common_ISession() = default;
    common_ISession(const common_ISession&) = default;
    common_ISession& operator=(const common_ISession&) = default;
};
