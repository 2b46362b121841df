// SPDX-License-Identifier: MIT
#include "Notifier.h"

#include "Descendants.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QGuiApplication>
#include <QVariantMap>

namespace {

constexpr int serverChoosesTime = -1;

// The server may interpret markup.
QString plain(const QString& text)
{
    return text.toHtmlEscaped();
}

} // namespace

// The interface of the freedesktop.org notification server, which Linux desktops provide.
void Notifier::show(const QString& title, const QString& text)
{
    // A session bus that this call starts must not be a child of this program: it serves the whole
    // session.
    Descendants::startDetached([] { QDBusConnection::sessionBus(); });
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        return;
    }
    const QString interface = QStringLiteral("org.freedesktop.Notifications");
    QDBusMessage call =
        QDBusMessage::createMethodCall(interface, QStringLiteral("/org/freedesktop/Notifications"),
                                       interface, QStringLiteral("Notify"));
    const quint32 replacesNone = 0;
    call.setArguments({QGuiApplication::applicationDisplayName(), replacesNone, QString(), title,
                       plain(text), QStringList(), QVariantMap(), serverChoosesTime});
    bus.asyncCall(call);
}
