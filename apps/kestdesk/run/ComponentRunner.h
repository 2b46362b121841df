#pragma once

#include <common_ProcessRunner.h>

#include <functional>

/// Runs a solver component.
class ComponentRunner : public common_ProcessRunner<common_KestProcessMessage>
{
public:
    using StopListener = std::function<void()>;

    /// Is called once for each child that is asked to stop, by whomever; an empty one for none.
    void setStopListener(StopListener listener);

    /// Deletes the temporary files of a set-up whose child is not started, and forgets their names.
    /// No observer is notified.
    void deleteTemporaryFiles();

    /// Leaves a child that cannot be ended to itself and deletes the temporary files. This runner
    /// stays in memory until the program ends, so that nothing waits for the child.
    void abandon();

protected:
    void onStopRequested() override;

private:
    void removeFiles() const;

    StopListener m_stopListener;
};
