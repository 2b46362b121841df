// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

class HelpBrowser;
class HelpPages;
class QBoxLayout;
class QLabel;

/// The window with the help pages.
class HelpViewer : public QDialog
{
    Q_OBJECT

public:
    /// A child of the window that help was asked for in, so that it can be used while that is
    /// modal.
    HelpViewer(const HelpPages& pages, QWidget* parent);

    void showPage(const QString& page);

private:
    QBoxLayout* makeButtons();
    void onLeftToTheUser(const QUrl& address);

    HelpBrowser* m_browser;
    QLabel* m_message;
};
