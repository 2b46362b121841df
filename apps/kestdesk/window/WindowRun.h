#pragma once

#include "Run.h"
#include "RunForecast.h"

#include <QObject>
#include <QPointer>
#include <QStringList>

class common_CommonSettingsSet;
class common_KestProcessDialog;

/// A run as the window shows it: with a dialog of its own, and with texts for the list of runs.
class WindowRun : public QObject
{
    Q_OBJECT

public:
    /// The component must outlive the run.
    WindowRun(const Component& component, const QString& model, QObject* parent);

    /// Sets the run up and starts it. The dialog gets the window as its parent. False when it did
    /// not start, which the user has been shown then.
    bool start(common_RunWrapper::RunOptions options, common_CommonSettingsSet& settings,
               QWidget* window);

    /// Brings the dialog to the front. False when the user has closed it.
    bool showDialog();

    Run& run() { return m_run; }
    const Run& run() const { return m_run; }

    /// The state in a few words; of a fault also what ended the run: "fault, SIGKILL".
    QString stateText() const;

    /// The state as a sentence or two, with what the end usually means.
    QString explanation() const;

    /// How long the run still takes: "about 3:40"; empty while that cannot be said.
    QString remainingText() const { return m_forecast.shortText(); }

    /// The tables that the results viewer shows, once the component has ended.
    QStringList results() const { return m_results; }

Q_SIGNALS:
    /// What the list shows has changed.
    void changed();

    /// The run has ended.
    void ended();

private:
    RunSetup::Readiness setUp(common_RunWrapper::RunOptions options,
                              common_CommonSettingsSet& settings, QWidget* window);
    void makeDialog(QWidget* window);
    void onStateChanged();

    Run m_run;
    RunForecast m_forecast;
    QPointer<common_KestProcessDialog> m_dialog;
    QStringList m_results;
};
