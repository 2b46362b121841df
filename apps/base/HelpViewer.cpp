// SPDX-License-Identifier: MIT
#include "HelpViewer.h"

#include "HelpBrowser.h"

#include <QLabel>
#include <QPushButton>
#include <QUrl>
#include <QVBoxLayout>

HelpViewer::HelpViewer(const HelpPages& pages, QWidget* parent)
    : QDialog(parent), m_browser(new HelpBrowser(pages, this)), m_message(new QLabel(this))
{
    setObjectName(QStringLiteral("helpViewer"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    setWindowTitle(tr("Help"));
    m_message->setObjectName(QStringLiteral("helpMessage"));
    m_message->setTextFormat(Qt::PlainText);
    m_message->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_message->setWordWrap(true);
    m_message->hide();
    auto* const layout = new QVBoxLayout(this);
    layout->addLayout(makeButtons());
    layout->addWidget(m_browser, 1);
    layout->addWidget(m_message);
    connect(m_browser, &HelpBrowser::leftToTheUser, this, &HelpViewer::onLeftToTheUser);
    connect(m_browser, &QTextBrowser::sourceChanged, m_message, &QWidget::hide);
    const int unit = fontMetrics().averageCharWidth();
    resize(unit * 80, unit * 70);
    m_browser->setFocus();
}

void HelpViewer::showPage(const QString& page)
{
    m_browser->showPage(page);
    show();
    raise();
    activateWindow();
}

QBoxLayout* HelpViewer::makeButtons()
{
    auto* const layout = new QHBoxLayout;
    const auto add = [this, layout](const QString& text, const QString& name) {
        auto* const button = new QPushButton(text, this);
        button->setObjectName(name);
        button->setAutoDefault(false);
        layout->addWidget(button);
        return button;
    };
    auto* const contents = add(tr("&Contents"), QStringLiteral("helpContents"));
    auto* const back = add(tr("&Back"), QStringLiteral("helpBack"));
    auto* const forward = add(tr("&Forward"), QStringLiteral("helpForward"));
    layout->addStretch();
    back->setEnabled(false);
    forward->setEnabled(false);
    connect(contents, &QPushButton::clicked, m_browser,
            [this] { m_browser->showPage(QStringLiteral("index")); });
    connect(back, &QPushButton::clicked, m_browser, &QTextBrowser::backward);
    connect(forward, &QPushButton::clicked, m_browser, &QTextBrowser::forward);
    connect(m_browser, &QTextBrowser::backwardAvailable, back, &QWidget::setEnabled);
    connect(m_browser, &QTextBrowser::forwardAvailable, forward, &QWidget::setEnabled);
    return layout;
}

void HelpViewer::onLeftToTheUser(const QUrl& address)
{
    m_message->setText(tr("The help opens nothing outside of itself. The address is %1")
                           .arg(address.toDisplayString()));
    m_message->show();
}
