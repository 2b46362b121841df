// SPDX-License-Identifier: MIT
#pragma once

#include <common_ProcessRunner.h>

#include <functional>

/// Runs a solver component.
class ComponentRunner : public common_ProcessRunner<common_KestProcessMessage>
{
public:
    using StopListener = std::function<void()>;

    ComponentRunner();

    /// Sets a function that is called once for each child that is asked to stop, whoever asks. An
    /// empty function removes it.
    void setStopListener(StopListener listener);

    /// Deletes the temporary files of a set-up whose child is not started, and clears the list of
    /// them. No observer is notified.
    void deleteTemporaryFiles();

    /// Detaches from a child that cannot be killed, and deletes the temporary files. This runner
    /// stays in memory until the program ends, because its destructor would wait for the child.
    void abandon();

protected:
    void onStopRequested() override;

private:
    void removeFiles() const;

    StopListener m_stopListener;
};
