#pragma once

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMap>
#include <QMenu>
#include <QSpinBox>
#include <QStringList>
#include <QTabWidget>
#include <QTableView>
#include <QWidget>

/// All texts of a window: of its widgets, hidden ones included, of their tool tips and
/// accessible names, and of its actions and menus. What the user or the library has put into fields
/// and views is left out, and so are windows of the library.
class ShownTexts
{
public:
    static QStringList of(const QWidget& window)
    {
        ShownTexts texts;
        texts.addWidget(window);
        const QList<QWidget*> widgets = window.findChildren<QWidget*>();
        for (const QWidget* const widget : widgets) {
            if (belongsTo(*widget, window)) {
                texts.addWidget(*widget);
            }
        }
        const QList<QAction*> actions = window.findChildren<QAction*>();
        for (const QAction* const action : actions) {
            texts.addAction(*action);
        }
        texts.m_all.removeDuplicates();
        return texts.m_all;
    }

    /// The letters that are pressed with Alt, each with the texts that have it.
    static QMap<QChar, QStringList> accelerators(const QStringList& texts)
    {
        QMap<QChar, QStringList> result;
        for (const QString& text : texts) {
            QString marks = text;
            marks.replace(QLatin1String("&&"), QString());
            const int mark = marks.indexOf(QLatin1Char('&'));
            if (mark >= 0 && mark + 1 < marks.size() && marks.at(mark + 1).isLetterOrNumber()) {
                result[marks.at(mark + 1).toLower()].append(text);
            }
        }
        return result;
    }

private:
    // Not a part of another window, and of no window of the library.
    static bool belongsTo(const QWidget& widget, const QWidget& window)
    {
        if (qobject_cast<const QMenu*>(&widget) != nullptr) {
            return true;
        }
        const QWidget* each = &widget;
        while (each != nullptr && each != &window && !each->isWindow()) {
            each = each->parentWidget();
        }
        return each == &window;
    }

    void add(const QString& text)
    {
        if (!text.isEmpty()) {
            m_all.append(text);
        }
    }

    void addWidget(const QWidget& widget)
    {
        add(widget.toolTip());
        add(widget.statusTip());
        add(widget.accessibleName());
        add(widget.accessibleDescription());
        if (widget.isWindow() && qobject_cast<const QMenu*>(&widget) == nullptr) {
            add(widget.windowTitle());
        }
        if (const auto* const label = qobject_cast<const QLabel*>(&widget)) {
            add(label->text());
        } else if (const auto* const button = qobject_cast<const QAbstractButton*>(&widget)) {
            add(button->text());
        } else if (const auto* const group = qobject_cast<const QGroupBox*>(&widget)) {
            add(group->title());
        } else if (const auto* const edit = qobject_cast<const QLineEdit*>(&widget)) {
            add(edit->placeholderText());
        } else if (const auto* const menu = qobject_cast<const QMenu*>(&widget)) {
            add(menu->title());
        } else {
            addParts(widget);
        }
    }

    void addParts(const QWidget& widget)
    {
        if (const auto* const box = qobject_cast<const QComboBox*>(&widget)) {
            for (int i = 0; i < box->count(); ++i) {
                add(box->itemText(i));
            }
        } else if (const auto* const number = qobject_cast<const QSpinBox*>(&widget)) {
            add(number->suffix());
        } else if (const auto* const tabs = qobject_cast<const QTabWidget*>(&widget)) {
            for (int i = 0; i < tabs->count(); ++i) {
                add(tabs->tabText(i));
            }
        } else if (const auto* const table = qobject_cast<const QTableView*>(&widget)) {
            for (int i = 0; i < table->model()->columnCount(); ++i) {
                add(table->model()->headerData(i, Qt::Horizontal).toString());
            }
        }
    }

    void addAction(const QAction& action)
    {
        add(action.text());
        add(action.toolTip());
        add(action.statusTip());
    }

    QStringList m_all;
};
