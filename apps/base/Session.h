// SPDX-License-Identifier: MIT
#pragma once

#include <common_ISession.h>

#include <QCoreApplication>
#include <QString>

#include <utility>

/// Tells the user: on standard error, or in a box.
class Session : public common_ISession
{
    Q_DECLARE_TR_FUNCTIONS(Session)

public:
    Session(QString applicationName, bool nonInteractive)
        : m_applicationName(std::move(applicationName)), m_nonInteractive(nonInteractive)
    {}

    void showUserMessage(common_ActivePtr<common_UserMessage> message, QWidget* parent) override;

private:
    QString m_applicationName;
    bool m_nonInteractive;
};
