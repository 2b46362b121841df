// SPDX-License-Identifier: MIT
#include "HelpClient.h"

#include "HelpViewer.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QWidget>

HelpClient::HelpClient(const QString& directory) : m_helpPages(directory)
{
    QCoreApplication::instance()->installEventFilter(this);
}

HelpClient::~HelpClient()
{
    delete m_viewer;
}

void HelpClient::registerPage(QWidget* widget, const QString& page)
{
    if (!m_pages.contains(widget)) {
        connect(widget, &QObject::destroyed, this,
                [this](const QObject* gone) { m_pages.remove(gone); });
    }
    m_pages.insert(widget, page);
}

QString HelpClient::pageOf(const QWidget* widget) const
{
    while (widget != nullptr && !m_pages.contains(widget)) {
        widget = widget->parentWidget();
    }
    return m_pages.value(widget, QStringLiteral("index"));
}

void HelpClient::showPage(const QString& page, QWidget* widget)
{
    QWidget* const window = widget != nullptr ? widget->window() : nullptr;
    if (m_viewer && m_viewer != window && m_viewer->parentWidget() != window) {
        m_viewer->hide();
        m_viewer->deleteLater(); // the key may come from it
        m_viewer.clear();
    }
    if (!m_viewer) {
        m_viewer = new HelpViewer(m_helpPages, window);
    }
    m_viewer->showPage(page);
}

// Qt offers a key to the focused widget first, and to its ancestors only when that leaves it.
bool HelpClient::eventFilter(QObject* watched, QEvent* event)
{
    auto* const widget = qobject_cast<QWidget*>(watched);
    if (event->type() != QEvent::KeyPress || widget == nullptr) {
        return false;
    }
    const auto* const key = static_cast<QKeyEvent*>(event);
    if (key->key() != Qt::Key_F1 || key->modifiers() != Qt::NoModifier) {
        return false;
    }
    showPage(m_viewer == widget->window() ? QStringLiteral("index") : pageOf(widget), widget);
    return true;
}
