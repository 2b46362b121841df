// SPDX-License-Identifier: MIT
#include "LaunchOptionsPage.h"

#include "LaunchOptionTable.h"
#include "LaunchOptionsFile.h"
#include "OptionEditor.h"
#include "OptionEditors.h"
#include "OptionRules.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QResizeEvent>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int mostColumns = 2;

enum Column { LabelColumn, EditorColumn, UnitColumn, ColumnCount };

// The background of invalid values: a shade of red for light and dark palettes.
QColor reddened(const QColor& base)
{
    constexpr int share = 30;
    return QColor((base.red() * (100 - share) + 255 * share) / 100,
                  base.green() * (100 - share) / 100 + 40 * share / 100,
                  base.blue() * (100 - share) / 100 + 40 * share / 100);
}

} // namespace

LaunchOptionsPage::LaunchOptionsPage(const QString& tab, QWidget* parent) : QScrollArea(parent)
{
    auto* const content = new QWidget(this);
    auto* const layout = new QHBoxLayout(content);
    for (int i = 0; i < mostColumns; ++i) {
        auto* const column = new QVBoxLayout;
        column->addStretch();
        layout->addLayout(column);
        m_columnLayouts.append(column);
    }
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setWidget(content);
    const QStringList names = LaunchOptionTable::groups(tab);
    for (const QString& name : names) {
        m_groups.append(makeGroup(tab, name));
    }
    arrange(1);
}

QGroupBox* LaunchOptionsPage::makeGroup(const QString& tab, const QString& name)
{
    auto* const group = new QGroupBox(LaunchOptionTable::title(name), widget());
    auto* const grid = new QGridLayout(group);
    grid->setColumnStretch(EditorColumn, 1);
    for (const LaunchOptionRow& row : LaunchOptionTable::rows()) {
        if (tab == QLatin1String(row.tab) && name == QLatin1String(row.group)) {
            addField(row, group, grid);
        }
    }
    if (LaunchOptionTable::hasMachines(name)) {
        addMachines(group, grid);
    }
    return group;
}

void LaunchOptionsPage::addField(const LaunchOptionRow& row, QGroupBox* group, QGridLayout* grid)
{
    const int line = grid->rowCount();
    Field field{&row, OptionEditors::make(row, group), nullptr, nullptr, nullptr};
    if (field.editor->needsLabel()) {
        field.label = new QLabel(row.text(), group);
        field.label->setBuddy(field.editor->widget());
        grid->addWidget(field.label, line, LabelColumn);
        grid->addWidget(field.editor->widget(), line, EditorColumn, 1, *row.unit == '\0' ? 2 : 1);
    } else {
        grid->addWidget(field.editor->widget(), line, LabelColumn, 1, ColumnCount);
    }
    if (*row.unit != '\0') {
        field.unit = new QLabel(row.unitText(), group);
        grid->addWidget(field.unit, line, UnitColumn);
    }
    field.message = new QLabel(group);
    field.message->setObjectName(QString::fromLatin1(row.key) + QStringLiteral(".message"));
    field.message->setTextFormat(Qt::PlainText);
    field.message->setWordWrap(true);
    field.message->hide();
    grid->addWidget(field.message, line + 1, EditorColumn, 1, 2);
    const QString key = QString::fromLatin1(row.key);
    connect(field.editor, &OptionEditor::edited, this, [this, key] { Q_EMIT edited(key); });
    m_fields.append(field);
}

void LaunchOptionsPage::addMachines(QGroupBox* group, QGridLayout* grid) const
{
    auto* const label = new QLabel(tr("Machines file"), group);
    auto* const button = new QPushButton(tr("Configure"), group);
    button->setObjectName(QStringLiteral("configureMachines"));
    button->setAccessibleName(tr("Configure the machines file"));
    button->setToolTip(tr("The machines of parallel runs, and their processes."));
    button->setAutoDefault(false);
    label->setBuddy(button);
    const int line = grid->rowCount();
    grid->addWidget(label, line, LabelColumn);
    grid->addWidget(button, line, EditorColumn, Qt::AlignLeft);
    connect(button, &QPushButton::clicked, this, &LaunchOptionsPage::machinesRequested);
}

QWidget* LaunchOptionsPage::continueTabOrder(QWidget* previous) const
{
    for (const QGroupBox* const group : qAsConst(m_groups)) {
        const QList<QWidget*> widgets =
            group->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
        for (QWidget* const each : widgets) {
            if ((each->focusPolicy() & Qt::TabFocus) != 0) {
                QWidget::setTabOrder(previous, each);
                previous = each;
            }
        }
    }
    return previous;
}

QStringList LaunchOptionsPage::keys() const
{
    QStringList result;
    for (const Field& field : m_fields) {
        result.append(QString::fromLatin1(field.row->key));
    }
    return result;
}

QString LaunchOptionsPage::text(const QString& key) const
{
    return field(key).editor->text();
}

void LaunchOptionsPage::setText(const QString& key, const QString& text)
{
    field(key).editor->setText(text);
}

const LaunchOptionsPage::Field& LaunchOptionsPage::field(const QString& key) const
{
    return *std::find_if(m_fields.cbegin(), m_fields.cend(),
                         [&key](const Field& each) { return key == QLatin1String(each.row->key); });
}

void LaunchOptionsPage::setReadOnly()
{
    m_readOnly = true;
    check();
}

bool LaunchOptionsPage::isAllowed(const Field& field) const
{
    const LaunchOptionRow& row = *field.row;
    return !m_readOnly && LaunchOptionsFile::isKept(row.metaData()) &&
           (*row.switchKey == '\0' ||
            text(QString::fromLatin1(row.switchKey)) == QLatin1String("true"));
}

QString LaunchOptionsPage::problemOf(const Field& field)
{
    const common_PropertyMetaData& metaData = field.row->metaData();
    const QString value = field.editor->text();
    const QString missing = value.isEmpty() ? OptionRules::emptyProblem(metaData) : QString();
    return missing.isEmpty() ? OptionRules::problem(metaData, value) : missing;
}

QString LaunchOptionsPage::check()
{
    QString first;
    for (const Field& field : qAsConst(m_fields)) {
        const bool allowed = isAllowed(field);
        field.editor->widget()->setEnabled(allowed);
        for (QLabel* const label : {field.label, field.unit}) {
            if (label != nullptr) {
                label->setEnabled(allowed);
            }
        }
        const QString problem = allowed ? problemOf(field) : QString();
        mark(field, problem);
        if (first.isEmpty() && !problem.isEmpty()) {
            first = field.row->plainText() + QStringLiteral(": ") + problem;
        }
    }
    return first;
}

void LaunchOptionsPage::mark(const Field& field, const QString& problem)
{
    if (field.message->text() == problem) {
        return;
    }
    QWidget* const widget = field.editor->widget();
    QPalette colours; // what the widget has not of its own comes from its parent
    if (!problem.isEmpty()) {
        colours.setColor(QPalette::Base, reddened(palette().color(QPalette::Base)));
    }
    widget->setPalette(colours);
    widget->setAccessibleDescription(problem);
    field.message->setText(problem);
    field.message->setVisible(!problem.isEmpty());
}

void LaunchOptionsPage::resizeEvent(QResizeEvent* event)
{
    QScrollArea::resizeEvent(event);
    const int spacing = widget()->layout()->spacing();
    int widest = 0;
    for (const QGroupBox* const group : qAsConst(m_groups)) {
        widest = std::max(widest, group->sizeHint().width());
    }
    const int room = viewport()->width() - 2 * spacing;
    arrange(std::max(
        1, std::min({mostColumns, static_cast<int>(m_groups.size()), room / (widest + spacing)})));
}

// In the order of reading: one column after the other, of about the same height.
void LaunchOptionsPage::arrange(int columns)
{
    if (columns == m_columns) {
        return;
    }
    m_columns = columns;
    int total = 0;
    for (QGroupBox* const group : qAsConst(m_groups)) {
        for (QVBoxLayout* const layout : qAsConst(m_columnLayouts)) {
            layout->removeWidget(group);
        }
        total += group->sizeHint().height();
    }
    int column = 0;
    int height = 0;
    for (QGroupBox* const group : qAsConst(m_groups)) {
        if (column + 1 < columns && height * columns >= total * (column + 1)) {
            ++column;
        }
        QVBoxLayout* const layout = m_columnLayouts[column];
        layout->insertWidget(layout->count() - 1, group); // before the stretch
        height += group->sizeHint().height();
    }
}
