// SPDX-License-Identifier: MIT
#include <common_UserMessage.h>

common_UserMessage::common_UserMessage(const QString& text, const QString& code, MessageType type,
                                       MessageFormat format)
    : m_text(text), m_code(code), m_type(type), m_format(format)
{}

common_UserMessage::~common_UserMessage() = default;

common_ActivePtr<common_UserMessage> common_UserMessage::create(const QString& text,
                                                                const QString& code,
                                                                MessageType type,
                                                                MessageFormat format)
{
    return common_ActivePtr<common_UserMessage>(new common_UserMessage(text, code, type, format));
}
