// SPDX-License-Identifier: MIT
#include "Session.h"

#include <VisibleText.h>

#include <common_UserMessage.h>

#include <QMessageBox>
#include <QPointer>

#include <cstdio>

namespace {

// Indexed by common_UserMessage::MessageType.
constexpr QMessageBox::Icon icons[] = {QMessageBox::Information, QMessageBox::Warning,
                                       QMessageBox::Critical};

} // namespace

void Session::showUserMessage(common_ActivePtr<common_UserMessage> message, QWidget* parent)
{
    if (m_nonInteractive) {
        std::fprintf(stderr, "%s: %s (%s)\n", qPrintable(m_applicationName),
                     qPrintable(suite::visibleLines(message->text())), qPrintable(message->code()));
        return;
    }
    // Not on the stack: the parent may be destroyed while the box is open, and the box with it.
    const QPointer<QMessageBox> box = new QMessageBox(
        icons[message->type()], QStringLiteral("Kest"), message->text(), QMessageBox::Ok, parent);
    box->setTextFormat(message->format() == common_UserMessage::RichText ? Qt::RichText
                                                                         : Qt::PlainText);
    box->setInformativeText(tr("Message %1").arg(message->code()));
    box->exec();
    delete box;
}
