// SPDX-License-Identifier: MIT
#include "RunPanel.h"

#include "Component.h"

#include <common_IIconUtility.h>
#include <common_ServiceOf.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>

namespace {

using Wrapper = common_RunWrapper;

// Messages of the library refer to these boxes by their names.
// clang-format off
const struct { Wrapper::RunOption option; const char* text; const char* name; const char* hint; } boxRows[] = {
    {Wrapper::Parallel, QT_TRANSLATE_NOOP("RunPanel", "&Parallel"), "parallelBox", QT_TRANSLATE_NOOP("RunPanel", "Solve with several processes, on the hosts of the machines file")},
    {Wrapper::Remote,   QT_TRANSLATE_NOOP("RunPanel", "Re&mote"),   "remoteBox",   QT_TRANSLATE_NOOP("RunPanel", "Run on the remote host of the component launch options")},
};
// clang-format on

QPushButton* makeButton(const QString& text, const QString& name, const QString& icon,
                        QWidget* parent)
{
    auto* button = new QPushButton(text, parent);
    button->setObjectName(name);
    button->setIcon(GET_SERVICE(common_IIconUtility)->getIcon(icon));
    return button;
}

} // namespace

RunPanel::RunPanel(QWidget* parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("runPanel"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(makeModelRow());
    layout->addWidget(makeComponentRow());
    layout->addWidget(makeLaunchGroup());
    layout->addWidget(makeButtonRow());
    updateControls();
}

QString RunPanel::model() const
{
    return m_model->text().trimmed();
}

void RunPanel::setModel(const QString& path)
{
    m_model->setText(QDir::toNativeSeparators(path));
}

const Component& RunPanel::component() const
{
    return *Component::find(m_component->currentText());
}

void RunPanel::setComponent(const QString& name)
{
    m_component->setCurrentText(name);
}

Wrapper::RunOptions RunPanel::ticked() const
{
    Wrapper::RunOptions result;
    for (int i = 0; i < m_boxes.size(); ++i) {
        result.setFlag(boxRows[i].option, m_boxes.at(i)->isChecked());
    }
    return result;
}

void RunPanel::setTicked(Wrapper::RunOptions options)
{
    for (int i = 0; i < m_boxes.size(); ++i) {
        const QSignalBlocker blocker(m_boxes.at(i));
        m_boxes.at(i)->setChecked(options.testFlag(boxRows[i].option));
    }
}

void RunPanel::focusRunButton()
{
    m_run->setFocus();
}

void RunPanel::setStopEnabled(bool enabled)
{
    m_stop->setEnabled(enabled);
}

QWidget* RunPanel::makeModelRow()
{
    auto* row = new QWidget(this);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* label = new QLabel(tr("Mo&del:"), row);
    m_model = new QLineEdit(row);
    m_model->setObjectName(QStringLiteral("modelEdit"));
    m_model->setPlaceholderText(tr("Open a model, or drop one on this window"));
    m_model->setClearButtonEnabled(true);
    m_model->setAcceptDrops(false); // it would insert a dropped file as text
    m_model->setAccessibleName(tr("Model"));
    label->setBuddy(m_model);
    auto* open =
        makeButton(tr("Op&en..."), QStringLiteral("openButton"), QStringLiteral("open"), row);
    layout->addWidget(label);
    layout->addWidget(m_model, 1);
    layout->addWidget(open);
    connect(m_model, &QLineEdit::textChanged, this, &RunPanel::onTargetChanged);
    connect(m_model, &QLineEdit::returnPressed, this, &RunPanel::runRequested);
    connect(open, &QPushButton::clicked, this, &RunPanel::openRequested);
    return row;
}

QWidget* RunPanel::makeComponentRow()
{
    auto* row = new QWidget(this);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* label = new QLabel(tr("&Component:"), row);
    m_component = new QComboBox(row);
    m_component->setObjectName(QStringLiteral("componentBox"));
    m_component->setAccessibleName(tr("Component"));
    m_component->addItems(Component::names().split(QStringLiteral(", ")));
    label->setBuddy(m_component);
    layout->addWidget(label);
    layout->addWidget(m_component);
    layout->addStretch(1);
    connect(m_component, qOverload<int>(&QComboBox::currentIndexChanged), this,
            &RunPanel::onTargetChanged);
    return row;
}

QWidget* RunPanel::makeLaunchGroup()
{
    auto* group = new QGroupBox(tr("Run/launch"), this);
    group->setObjectName(QStringLiteral("runLaunchGroup"));
    auto* layout = new QHBoxLayout(group);
    for (const auto& row : boxRows) {
        auto* box = new QCheckBox(tr(row.text), group);
        box->setObjectName(QLatin1String(row.name));
        box->setToolTip(tr(row.hint));
        box->setAccessibleDescription(tr(row.hint));
        layout->addWidget(box);
        connect(box, &QCheckBox::toggled, this, &RunPanel::tickedChanged);
        m_boxes.append(box);
    }
    layout->addStretch(1);
    return group;
}

QWidget* RunPanel::makeButtonRow()
{
    auto* row = new QWidget(this);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    m_run = makeButton(tr("R&un"), QStringLiteral("runButton"), QStringLiteral("play"), row);
    m_stop = makeButton(tr("&Stop"), QStringLiteral("stopButton"), QStringLiteral("exclude"), row);
    m_stop->setEnabled(false);
    layout->addStretch(1);
    layout->addWidget(m_run);
    layout->addWidget(m_stop);
    connect(m_run, &QPushButton::clicked, this, &RunPanel::runRequested);
    connect(m_stop, &QPushButton::clicked, this, &RunPanel::stopRequested);
    return row;
}

void RunPanel::onTargetChanged()
{
    updateControls();
    Q_EMIT targetChanged();
}

void RunPanel::updateControls()
{
    m_run->setEnabled(!model().isEmpty());
    for (int i = 0; i < m_boxes.size(); ++i) {
        m_boxes.at(i)->setEnabled(component().options.testFlag(boxRows[i].option));
    }
}
