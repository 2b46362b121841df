// SPDX-License-Identifier: MIT
#include "common_DefaultSession.h"

#include <common_UserMessage.h>

#include <QMessageBox>
#include <QPointer>

#include <algorithm>
#include <cstdio>

namespace {

// Indexed by common_UserMessage::MessageType.
constexpr QMessageBox::Icon icons[] = {QMessageBox::Information, QMessageBox::Warning,
                                       QMessageBox::Critical};

// Texts contain names of files: nothing in them may control the terminal.
QString printable(QString text)
{
    std::replace_if(
        text.begin(), text.end(),
        [](QChar each) { return !each.isPrint() && each != QLatin1Char('\n'); }, QLatin1Char('?'));
    return text;
}

void print(const QString& applicationName, const common_UserMessage& message)
{
    const QString line = QStringLiteral("%1: %2 (%3)\n")
                             .arg(applicationName, printable(message.text()), message.code());
    std::fputs(line.toLocal8Bit().constData(), stderr);
}

} // namespace

void common_DefaultSession::showUserMessage(common_ActivePtr<common_UserMessage> message,
                                            QWidget* parent)
{
    if (!m_hasWindows) {
        print(m_applicationName, *message);
        return;
    }
    // Not on the stack: the parent may be destroyed while the box is open, and the box with it.
    const QPointer<QMessageBox> box = new QMessageBox(icons[message->type()], m_applicationName,
                                                      message->text(), QMessageBox::Ok, parent);
    box->setTextFormat(message->format() == common_UserMessage::RichText ? Qt::RichText
                                                                         : Qt::PlainText);
    box->setInformativeText(QStringLiteral("Message %1").arg(message->code()));
    box->exec();
    delete box;
}
