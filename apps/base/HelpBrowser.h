// SPDX-License-Identifier: MIT
#pragma once

#include "HelpPages.h"

#include <QTextBrowser>

/// Shows help pages. Links lead from page to page; a link that leads elsewhere is only reported.
class HelpBrowser : public QTextBrowser
{
    Q_OBJECT

public:
    explicit HelpBrowser(HelpPages pages, QWidget* parent = nullptr);

    void showPage(const QString& page);

    QVariant loadResource(int type, const QUrl& name) override;

Q_SIGNALS:
    /// The user followed a link to what is no help page.
    void leftToTheUser(const QUrl& address);

private:
    void onAnchorClicked(const QUrl& address);

    HelpPages m_pages;
};
