// SPDX-License-Identifier: MIT
#include "RemoteServer.h"

#include "RemoteSession.h"

#include <StopSignals.h>

#include <QCoreApplication>

int RemoteServer::serve()
{
    RemoteSession session;
    QObject::connect(&session, &RemoteSession::finished, QCoreApplication::instance(),
                     &QCoreApplication::exit, Qt::QueuedConnection);
    StopSignals::watch(&session, [&session] { session.stop(); });
    return QCoreApplication::exec();
}
