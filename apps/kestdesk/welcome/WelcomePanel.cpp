// SPDX-License-Identifier: MIT
#include "WelcomePanel.h"

#include "SampleModels.h"

#include <VisibleText.h>

#include <common_IIconUtility.h>
#include <common_ServiceOf.h>

#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QMenu>
#include <QPushButton>

namespace {

constexpr int edge = 4;

} // namespace

WelcomePanel::WelcomePanel(QWidget* parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("welcomePanel"));
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(edge, 0, 0, 0); // small screens have little height
    auto* const text =
        new QLabel(tr("Open a model, or drop one on this window. Then press Run."), this);
    text->setWordWrap(true);
    auto* const open = new QPushButton(tr("Open a model..."), this);
    open->setObjectName(QStringLiteral("welcomeOpenButton"));
    open->setIcon(GET_SERVICE(common_IIconUtility)->getIcon(QStringLiteral("open")));
    auto* const samples = new QPushButton(tr("Try a sample"), this);
    samples->setObjectName(QStringLiteral("samplesButton"));
    samples->setToolTip(tr("Copies a model of the installation for you to try"));
    auto* const menu = new QMenu(samples);
    menu->setObjectName(QStringLiteral("samplesMenu"));
    samples->setMenu(menu);
    layout->addWidget(text, 1);
    layout->addWidget(open);
    layout->addWidget(samples);
    connect(open, &QPushButton::clicked, this, &WelcomePanel::openRequested);
    connect(menu, &QMenu::aboutToShow, this, [this, menu] { listSamples(*menu); });
}

void WelcomePanel::listSamples(QMenu& menu)
{
    menu.clear();
    const QStringList samples = SampleModels::all();
    for (const QString& sample : samples) {
        menu.addAction(suite::visibleFileName(sample), this,
                       [this, sample] { openSample(sample); });
    }
    if (samples.isEmpty()) {
        menu.addAction(tr("The installation has no samples"))->setEnabled(false);
    }
}

void WelcomePanel::openSample(const QString& sample)
{
    QString problem;
    const QString copy = SampleModels::copyOf(sample, problem);
    if (copy.isEmpty()) {
        Q_EMIT reported(tr("The sample is not opened: %1").arg(problem));
    } else {
        Q_EMIT sampleOpened(copy);
    }
}
