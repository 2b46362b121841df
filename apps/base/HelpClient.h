// SPDX-License-Identifier: MIT
#pragma once

#include "HelpPages.h"

#include <common_HelpClient.h>

#include <QHash>
#include <QObject>
#include <QPointer>

class HelpViewer;

/// Shows the help page of the widget that has the focus when F1 is pressed, or else that of its
/// nearest ancestor that has one, or else the contents.
class HelpClient : public QObject, public common_HelpClient
{
    Q_OBJECT

public:
    /// Watches the application's keys from now on. The pages are in the directory.
    explicit HelpClient(const QString& directory);
    ~HelpClient() override;

    HelpClient(const HelpClient&) = delete;
    HelpClient& operator=(const HelpClient&) = delete;

    /// A later page takes the place of an earlier one; the widget may go away at any time.
    void registerPage(QWidget* widget, const QString& page) override;

    /// The page that F1 shows in the widget.
    QString pageOf(const QWidget* widget) const;

    /// Shows the page in front of the widget's window.
    void showPage(const QString& page, QWidget* widget);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    HelpPages m_helpPages;
    QHash<const QObject*, QString> m_pages;
    QPointer<HelpViewer> m_viewer;
};
