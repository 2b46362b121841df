#pragma once

class QWidget;
class Run;

/// Questions to the user before runs are stopped, which "No" and the Escape key leave alone.
namespace StopQuestion {

/// Whether the user wants to stop the run.
bool agreesToStop(const Run& run, QWidget* window);

/// Whether the user wants to stop that many runs, and to quit.
bool agreesToQuit(int runs, QWidget* window);

/// Whether the user wants to end that many runs by force, which have not stopped yet, and to quit.
bool agreesToForce(int runs, QWidget* window);

} // namespace StopQuestion
