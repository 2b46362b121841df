// SPDX-License-Identifier: MIT
#include "AboutBox.h"

#include "EngineVersion.h"
#include "Versions.h"

#include <VisibleText.h>

#include <common_IApplicationInfo.h>
#include <common_ServiceOf.h>

#include <QCoreApplication>
#include <QMessageBox>
#include <QPointer>

namespace {

QString textOf(const QString& purpose, const QString& engine)
{
    const auto* const info = GET_SERVICE(common_IApplicationInfo);
    return QCoreApplication::translate("AboutBox", "%1 %2\n%3\nInstallation: %4\n\n%5")
        .arg(info->applicationName(), QCoreApplication::applicationVersion(), purpose,
             suite::visiblePath(info->installationDirectory()), Versions::parts(engine));
}

} // namespace

void AboutBox::show(QWidget& window, const QString& purpose)
{
    const QPointer<QMessageBox> box =
        new QMessageBox(QMessageBox::Information,
                        QCoreApplication::translate("AboutBox", "About %1")
                            .arg(GET_SERVICE(common_IApplicationInfo)->applicationName()),
                        textOf(purpose, QStringLiteral("...")), QMessageBox::Ok, &window);
    box->setObjectName(QStringLiteral("aboutBox"));
    box->setTextFormat(Qt::PlainText);
    box->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    EngineVersion engine;
    QObject::connect(&engine, &EngineVersion::found, box,
                     [&] { box->setText(textOf(purpose, engine.text())); });
    engine.start();
    box->exec();
    delete box;
}
