#ifndef SESSION_H
#define SESSION_H

#include <common_ISession.h>

/// Tells the user: on standard error, or in a box.
class Session : public common_ISession
{
public:
    explicit Session(bool nonInteractive) : m_nonInteractive(nonInteractive) {}

    void showUserMessage(common_ActivePtr<common_UserMessage> message, QWidget* parent) override;

private:
    bool m_nonInteractive;
};

#endif
