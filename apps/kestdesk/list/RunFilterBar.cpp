// SPDX-License-Identifier: MIT
#include "RunFilterBar.h"

#include "RunFilter.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QToolButton>

namespace {

using State = RunRecord::State;

// clang-format off
const struct { const char* text; std::optional<State> state; } stateRows[] = {
    {QT_TRANSLATE_NOOP("RunFilterBar", "All states"),      std::nullopt},
    {QT_TRANSLATE_NOOP("RunFilterBar", "Running"),         State::Running},
    {QT_TRANSLATE_NOOP("RunFilterBar", "Valid"),           State::Valid},
    {QT_TRANSLATE_NOOP("RunFilterBar", "Fault"),           State::Fault},
    {QT_TRANSLATE_NOOP("RunFilterBar", "Stopped"),         State::Stopped},
    {QT_TRANSLATE_NOOP("RunFilterBar", "Not started"),     State::NotStarted},
    {QT_TRANSLATE_NOOP("RunFilterBar", "Interrupted"),     State::Interrupted},
    {QT_TRANSLATE_NOOP("RunFilterBar", "Damaged"),         State::Damaged},
};
// clang-format on

constexpr int shortestState = 4; // characters of a state that a narrow window shows

} // namespace

RunFilterBar::RunFilterBar(RunFilter* filter, QWidget* parent) : QWidget(parent), m_filter(filter)
{
    setObjectName(QStringLiteral("runFilterBar"));
    makeText();
    makeState();
    makeGrouping();
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_text, 1);
    layout->addWidget(m_state);
    layout->addWidget(m_grouping);
}

void RunFilterBar::makeText()
{
    m_text = new QLineEdit(this);
    m_text->setObjectName(QStringLiteral("runFilterEdit"));
    m_text->setPlaceholderText(tr("Filter by model, state, outcome or number"));
    m_text->setAccessibleName(tr("Filter of the runs"));
    m_text->setClearButtonEnabled(true);
    connect(m_text, &QLineEdit::textChanged, m_filter, &RunFilter::setText);
}

void RunFilterBar::makeState()
{
    m_state = new QComboBox(this);
    m_state->setObjectName(QStringLiteral("runStateBox"));
    m_state->setAccessibleName(tr("State of the runs"));
    m_state->setToolTip(tr("Show only runs in this state"));
    m_state->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_state->setMinimumContentsLength(shortestState);
    for (const auto& row : stateRows) {
        m_state->addItem(tr(row.text));
    }
    connect(m_state, qOverload<int>(&QComboBox::currentIndexChanged), this,
            &RunFilterBar::onStateChosen);
}

void RunFilterBar::makeGrouping()
{
    m_grouping = new QToolButton(this);
    m_grouping->setObjectName(QStringLiteral("groupRunsButton"));
    m_grouping->setText(tr("Group"));
    m_grouping->setToolTip(tr("Keep the runs of a model together"));
    m_grouping->setCheckable(true);
    connect(m_grouping, &QToolButton::toggled, m_filter, &RunFilter::setGrouped);
}

void RunFilterBar::focusText()
{
    m_text->setFocus(Qt::ShortcutFocusReason);
    m_text->selectAll();
}

QWidget* RunFilterBar::lastControl() const
{
    return m_grouping;
}

void RunFilterBar::clear()
{
    m_text->clear();
    m_state->setCurrentIndex(0);
    m_filter->showAll();
}

void RunFilterBar::onStateChosen()
{
    m_filter->setState(stateRows[m_state->currentIndex()].state);
}
