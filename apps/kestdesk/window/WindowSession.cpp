// SPDX-License-Identifier: MIT
#include "WindowSession.h"

#include "Component.h"
#include "RunPanel.h"
#include "WindowGeometry.h"

#include <FileProbe.h>
#include <VisibleText.h>

#include <common_IApplicationInfo.h>
#include <common_ServiceOf.h>
#include <common_geometry_settings.h>
#include <common_recent_file_settings.h>

#include <QCoreApplication>
#include <QFileInfo>

namespace {

/// Translates the texts of this file.
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(WindowSession)
};

} // namespace

WindowSession::WindowSession()
    : m_settings(GET_SERVICE(common_IApplicationInfo)->userSettingsDirectory(),
                 QStringLiteral("kestdesk"))
    , m_session(m_settings.getFullFilename())
{}

void WindowSession::restore(QWidget& window, RunPanel& panel)
{
    m_settings.readSettings();
    m_session.readSettings();
    WindowGeometry::restore(window, *m_settings.geometry());
    panel.setComponent(m_session.component());
}

WindowSession::Model WindowSession::lastModel()
{
    m_isLastModelUsed = true;
    const QString model = m_session.model();
    if (!recentFiles()->getRecentSession() || model.isEmpty()) {
        return {};
    }
    if (FileProbe().ask(model) == FileProbe::Answer::None) {
        return {{},
                Texts::tr("The model of the last session does not answer: %1")
                    .arg(suite::visibleText(model))};
    }
    if (!QFileInfo(model).isFile()) {
        return {
            {},
            Texts::tr("The model of the last session is gone: %1").arg(suite::visibleText(model))};
    }
    return {QFileInfo(model).absoluteFilePath(), {}};
}

void WindowSession::save(const QWidget& window, const RunPanel& panel)
{
    WindowGeometry::save(window, *m_settings.geometry());
    recentFiles()->setRecentSession(true);
    m_settings.writeSettings();
    if (m_isLastModelUsed || !panel.model().isEmpty()) {
        m_session.setModel(panel.model());
    }
    m_session.setComponent(QLatin1String(panel.component().name));
    m_session.writeSettings();
}
