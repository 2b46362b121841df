// SPDX-License-Identifier: MIT
#pragma once

#include <BoxReader.h>
#include <DialogStage.h>

#include <common_ComponentsLaunchOptions.h>

#include <QGroupBox>
#include <QMovie>

inline QLabel* labelOf(const QWidget* parent, const QString& text)
{
    const QList<QLabel*> labels = parent->findChildren<QLabel*>();
    for (QLabel* const label : labels) {
        if (label->text() == text) {
            return label;
        }
    }
    return nullptr;
}

inline QLabel* busyLabel(const QWidget* parent)
{
    const QList<QLabel*> labels = parent->findChildren<QLabel*>();
    for (QLabel* const label : labels) {
        if (label->movie()) {
            return label;
        }
    }
    return nullptr;
}

inline QRgb colourOf(const QPixmap& pixmap)
{
    return pixmap.isNull() ? 0 : pixmap.toImage().pixel(pixmap.width() / 2, pixmap.height() / 2);
}

inline QRgb iconColour(const QAbstractButton* button, QIcon::State state = QIcon::Off)
{
    return colourOf(button->icon().pixmap(QSize(16, 16), QIcon::Normal, state));
}

inline QStringList strings(std::initializer_list<const char*> texts)
{
    QStringList result;
    for (const char* const text : texts) {
        result.append(QString::fromUtf8(text));
    }
    return result;
}

inline QRgb colour(const char* name)
{
    return Picture::colour(QLatin1String(name)).rgb();
}

/// What there is to see of a dialog.
class Stage : public DialogStage
{
public:
    using DialogStage::DialogStage;

    QLabel* phaseLabel() const { return labelOf(dialog, QStringLiteral("Current phase:")); }
    QLabel* totalLabel() const { return labelOf(dialog, QStringLiteral("Total progress:")); }
    QLabel* busy() const { return busyLabel(dialog); }
    QGroupBox* noticesBox() const { return box("distinct notice(s) occurred"); }
    QGroupBox* warningsBox() const { return box("distinct warning(s) occurred"); }
    QString outcome() const { return ok()->property("squishValue").toString(); }

    bool storedDetailsShown() const
    {
        return (*common_ComponentsLaunchOptions::create(
            ReadOnlyAccess))[QStringLiteral("RunDetailsShown")]
            .castToBool();
    }

    void storeDetailsShown(bool shown) const
    {
        SettingsFolders::write(folders.userFile(), shown ? "[options]\nRunDetailsShown=true\n"
                                                         : "[options]\nRunDetailsShown=false\n");
    }

    /// The widgets that there are to see, in a fixed order.
    QStringList visible() const
    {
        const QPair<const char*, QWidget*> widgets[] = {{"total label", totalLabel()},
                                                        {"busy", busy()},
                                                        {"total bar", bar("totalProgressBar")},
                                                        {"phase label", phaseLabel()},
                                                        {"bar", bar("progressBar")},
                                                        {"notices", noticesBox()},
                                                        {"warnings", warningsBox()},
                                                        {"info", info()},
                                                        {"output", tabs()},
                                                        {"details", details()},
                                                        {"ok", ok()},
                                                        {"stop", stop()}};
        QStringList names;
        for (const auto& widget : widgets) {
            if (!widget.second->isHidden()) {
                names.append(QLatin1String(widget.first));
            }
        }
        return names;
    }

private:
    QGroupBox* box(const char* text) const
    {
        return qobject_cast<QGroupBox*>(labelOf(dialog, QLatin1String(text))->parentWidget());
    }
};

inline QStringList names(const char* list)
{
    return QString::fromLatin1(list).split(QStringLiteral(", "));
}

inline const char* const closedDetails = "busy, total bar, details, ok, stop";

inline const char* const openDetails =
    "total label, total bar, phase label, bar, info, output, details, ok, stop";

// What ends the program.
inline int doDeed(const QString& deed)
{
    FakePixmapUtility pixmaps;
    pixmaps.missing = deed;
    const FakeIconUtility icons;
    const FakeApplication application;
    const FakeApplicationInfo info(Child::folder());
    const common_ActivePtr<TalkingRunner> runner(new TalkingRunner);
    const common_KestProcessDialog dialog(runner, nullptr);
    runner->say(deed == QLatin1String("variable") ? common_IProcessMessage::Variable
                                                  : static_cast<common_IProcessMessage::Type>(9),
                QStringLiteral("x = 1"));
    return 0;
}
