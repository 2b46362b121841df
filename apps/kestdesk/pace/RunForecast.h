// SPDX-License-Identifier: MIT
#pragma once

#include "PaceExpectation.h"
#include "RemainingTime.h"
#include "RunArchive.h"
#include "RunPace.h"

#include <QFutureWatcher>
#include <QObject>
#include <QTimer>

#include <atomic>
#include <memory>

class Run;

/// Estimates the remaining time of a run from the runs in the archive and from its own pace. The
/// archive is read in a thread; until that is done, there is no estimate.
class RunForecast : public QObject
{
    Q_OBJECT

public:
    /// To be created before the run is started. The run must outlive the forecast.
    RunForecast(const Run& run, RunArchive archive, QObject* parent = nullptr);
    ~RunForecast() override;

    /// "about 3:40 left"; empty if there is no estimate or the run does not run.
    QString text() const;

    /// The same for a table: "about 3:40".
    QString shortText() const;

    /// The same in milliseconds, to sort by.
    std::optional<qint64> remaining() const { return m_remaining.milliseconds(); }

Q_SIGNALS:
    /// The texts have changed.
    void changed();

private:
    void onStateChanged();
    void readHistory();
    void update();

    const Run& m_run;
    RunArchive m_archive;
    RunPace m_pace;
    RemainingTime m_remaining;
    bool m_isReady = false; ///< the archive has been read
    QString m_shown;
    QTimer m_timer;
    QFutureWatcher<PaceExpectation> m_reading;
    std::shared_ptr<std::atomic<bool>> m_isCancelled;
};
