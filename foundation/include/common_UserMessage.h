// SPDX-License-Identifier: MIT
#pragma once

#include <common_ActivePtr.h>
#include <common_Assert.h>
#include <common_AutoCounter.h>
#include <kest_foundation_export.h>

#include <QString>

/// A message to the user, which the common_ISession service shows. It cannot be changed.
class KEST_FOUNDATION_EXPORT common_UserMessage
{
public:
    /// How serious the message is. The numbers are fixed.
    enum MessageType { Information = 0, Warning = 1, Error = 2 };
    /// How the text is read. The numbers are fixed.
    enum MessageFormat { PlainText = 0, RichText = 1 };

    /// The code identifies the message for support staff.
    static common_ActivePtr<common_UserMessage> create(const QString& text, const QString& code,
                                                       MessageType type, MessageFormat format);

    common_UserMessage(const common_UserMessage&) = delete;
    common_UserMessage& operator=(const common_UserMessage&) = delete;
    virtual ~common_UserMessage();

    /// What the user reads, in the format of format().
    QString text() const { return m_text; }
    /// For support staff; may be empty.
    QString code() const { return m_code; }
    /// How serious the message is.
    MessageType type() const { return m_type; }
    /// Whether the text has markup.
    MessageFormat format() const { return m_format; }

    void reference() { m_refCount.increment(); }
    void dereference()
    {
        COMMON_ASSERT_AT(m_refCount.value() > 0, "m_refCount > 0", "include/common_UserMessage.h",
                         __LINE__);
        m_refCount.decrement();
    }
    int getRefCount() const { return m_refCount.value(); }

private:
    common_UserMessage(const QString& text, const QString& code, MessageType type,
                       MessageFormat format);

    common_AutoCounter m_refCount;
    QString m_text;
    QString m_code;
    MessageType m_type;
    MessageFormat m_format;
};
